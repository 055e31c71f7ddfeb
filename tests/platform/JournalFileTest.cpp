#include "platform/JournalFile.h"

#include "files/JournalStore.h"
#include "tests/platform/FileStoreFixture.h"

namespace quorvane {
namespace {

using testing::ElementsAre;

/// The system's journals, of a program and of another one.
class JournalFileTest : public FileStoreFixture {
protected:
    /// Nothing is under way any more behind this.
    static void Settle(JournalStore& store)
    {
        std::string bytes;
        EXPECT_TRUE(store.Claim("no such journal", bytes));
    }
    [[nodiscard]] std::string Path(const std::string& name) const
    {
        return FileInFolder(folder_.Path(), name);
    }

    JournalStore& journals_ = *system_.journals;
    Platform otherSystem_ = MakePlatform();
    JournalStore& others_ = *otherSystem_.journals;
};

TEST_F(JournalFileTest, OneAtHandIsNobodyElses)
{
    const std::string path = Path("Run 1.journal");
    journals_.Begin(path);
    EXPECT_TRUE(journals_.Put("1\n"));
    std::string bytes = "of before";
    while (Get("Run 1.journal").empty())
        std::this_thread::yield();
    EXPECT_EQ(Get("Run 1.journal"), "1\n") << "people may read it";
    EXPECT_THAT(others_.LeftOver(In("")), ElementsAre());
    EXPECT_EQ(others_.Claim(path, bytes).value().kind, FileFaultKind::InUse);
    EXPECT_EQ(bytes, "");

    journals_.Release();
    Settle(journals_);
    EXPECT_THAT(others_.LeftOver(In("")), ElementsAre(path));
    EXPECT_FALSE(others_.Claim(path, bytes));
    EXPECT_EQ(bytes, "1\n");
    EXPECT_THAT(journals_.LeftOver(In("")), ElementsAre());
    EXPECT_EQ(journals_.Claim(path, bytes).value().kind, FileFaultKind::InUse);
    others_.Retire(In("Run.journal.old"));
    Settle(others_);
    EXPECT_THAT(Names(), ElementsAre("Run.journal.old"));
}

TEST_F(JournalFileTest, NoneIsWrittenOver)
{
    Put("Run.journal", "the first");
    Put("Run.journal.old", "the one before");
    for (const std::string record : {"second\n", "third\n"}) {
        journals_.Begin(Path("Run.journal"));
        EXPECT_TRUE(journals_.Put(record));
    }
    journals_.Release();
    Settle(journals_);
    EXPECT_THAT(journals_.LeftOver(In("")),
                ElementsAre(Path("Run 3.journal"), Path("Run 2.journal"), Path("Run.journal")));
    EXPECT_EQ(Get("Run.journal"), "the first");
    EXPECT_EQ(Get("Run 2.journal"), "second\n");
    EXPECT_EQ(Get("Run 3.journal"), "third\n");

    std::string bytes;
    EXPECT_FALSE(journals_.Claim(Path("Run 3.journal"), bytes));
    journals_.Retire(Path("Run.journal.old"));
    EXPECT_FALSE(journals_.Claim(Path("Run.journal"), bytes));
    journals_.Retire({});
    Settle(journals_);
    EXPECT_EQ(Get("Run.journal.old"), "third\n");
    EXPECT_THAT(Names(), ElementsAre("Run 2.journal", "Run.journal.old"));
}

TEST_F(JournalFileTest, WhatStandsBehindTheCutIsGone)
{
    const auto file = SystemJournalFiles()->Make();
    ASSERT_FALSE(file->Create(Path("Run.journal")));
    EXPECT_EQ(file->Append("whole\nhalf").bytes, 10U);
    EXPECT_FALSE(file->CutTo(6));
    EXPECT_EQ(file->Append("next\n").bytes, 5U);
    EXPECT_FALSE(file->Flush());
    file->Close();
    EXPECT_EQ(Get("Run.journal"), "whole\nnext\n");
}

TEST_F(JournalFileTest, SaysWhatIsNoJournal)
{
    std::filesystem::create_directory(In("folder.journal"));
    std::string bytes;
    EXPECT_TRUE(journals_.Claim(In("folder.journal"), bytes));
    EXPECT_EQ(journals_.Claim(In("absent"), bytes).value().kind, FileFaultKind::NotFound);
    EXPECT_THAT(journals_.LeftOver(In("")), ElementsAre());
    EXPECT_THAT(journals_.LeftOver(In("absent")), ElementsAre());
    const auto file = SystemJournalFiles()->Make();
    EXPECT_EQ(file->Create(In("absent/Run.journal")).value().kind, FileFaultKind::NotFound);
}

} // namespace
} // namespace quorvane
