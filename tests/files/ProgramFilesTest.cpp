#include "files/ProgramFiles.h"

#include "files/AppFiles.h"
#include "tests/support/MemoryFileStore.h"
#include "tests/support/MemoryFolders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using testing::IsEmpty;

struct ProgramFilesTest : testing::Test {
    ProgramFiles Find() { return FindProgramFiles(candidates, folders, store); }
    std::string& Beside(std::string_view name) { return store.files[FileInFolder("program", name)]; }
    std::string& Own(std::string_view name) { return store.files[FileInFolder("user", name)]; }

    PlaceCandidates candidates = {std::nullopt, "program", "user"};
    MemoryFolders folders;
    MemoryFileStore store;
};

TEST_F(ProgramFilesTest, IsTheNamedFolderThenTheProgramsThenTheUsers)
{
    struct Row {
        std::string_view what;
        std::optional<std::string> home;
        std::string userFolder;
        std::string folder;
        FilesPlace place;
        bool programWritable = false;
        bool makingFails = false;
    };
    const Row rows[] = {
        {"named", "named", "user", "named", FilesPlace::Named, true},
        {"named beats the rest", "named", "user", "named", FilesPlace::Named},
        {"named, and not to be made", "named", "user", "named", FilesPlace::NamedUnwritable, true, true},
        {"beside the program", std::nullopt, "user", "program", FilesPlace::BesideProgram, true},
        {"named by nothing", "", "user", "program", FilesPlace::BesideProgram, true},
        {"write-protected", std::nullopt, "user", "user", FilesPlace::UserFolder},
        {"nor can it be made", std::nullopt, "user", "program", FilesPlace::Unwritable, false, true},
        {"nor is one known", std::nullopt, "", "program", FilesPlace::Unwritable},
    };
    for (const Row& row : rows) {
        candidates = {row.home, "program", row.userFolder};
        folders = {};
        folders.makingFails = row.makingFails;
        if (row.programWritable)
            folders.writable = {"program"};
        const ProgramFiles files = Find();
        EXPECT_EQ(files.folder, row.folder) << row.what;
        EXPECT_EQ(files.place, row.place) << row.what;
        const bool made = row.place == FilesPlace::UserFolder || row.place == FilesPlace::Named;
        EXPECT_EQ(folders.made.size(), made ? 1U : 0U) << row.what;
    }
    EXPECT_THAT(store.files, IsEmpty());
}

TEST_F(ProgramFilesTest, AUserFolderThatIsThereButWriteProtectedIsNone)
{
    struct Protected : MemoryFolders {
        bool CanWrite(const std::string&) const override { return false; }
    } unwritable;
    EXPECT_EQ(FindProgramFiles(candidates, unwritable, store).place, FilesPlace::Unwritable);
}

TEST_F(ProgramFilesTest, FilesBesideTheProgramAreCopiedOnce)
{
    Beside("Quorvane.ini") = "installed";
    Beside("RSErr.log") = "old trouble";
    Beside("readme.txt") = "nobody's business";
    ASSERT_EQ(Find().place, FilesPlace::UserFolder);
    EXPECT_EQ(Own("Quorvane.ini"), "installed");
    EXPECT_EQ(Own("RSErr.log"), "old trouble");
    EXPECT_EQ(store.files.size(), 5U) << "nothing else is made";

    Own("Quorvane.ini") = "the user's";
    store.files.erase(FileInFolder("user", "RSErr.log"));
    Beside("Language.dat") = "Language = 1\r\n";
    ASSERT_EQ(Find().place, FilesPlace::UserFolder);
    EXPECT_EQ(Own("Quorvane.ini"), "the user's");
    EXPECT_EQ(store.files.size(), 5U) << "what was removed stays so";
}

TEST_F(ProgramFilesTest, AFailedCopyIsTriedAgain)
{
    Beside("Quorvane.ini") = "installed";
    store.replaceFault = FileFault{FileFaultKind::NoSpace, "full"};
    EXPECT_EQ(Find().place, FilesPlace::UserFolder);
    store.replaceFault.reset();
    EXPECT_EQ(Find().place, FilesPlace::UserFolder);
    EXPECT_EQ(Own("Quorvane.ini"), "installed");
}

TEST_F(ProgramFilesTest, TheOperatorIsToldOfAnUnusualPlaceOnly)
{
    const StringTable table(TableLanguage::English);
    const ProgramPlace english;
    const Texts texts(table, english);
    using testing::HasSubstr;
    EXPECT_EQ(PlaceNotice({"named", FilesPlace::Named}, texts), "");
    EXPECT_EQ(PlaceNotice({"program", FilesPlace::BesideProgram}, texts), "");
    EXPECT_THAT(PlaceNotice({"/home/u", FilesPlace::UserFolder}, texts), HasSubstr(" /home/u."));
    EXPECT_THAT(PlaceNotice({"/opt/q", FilesPlace::Unwritable}, texts), HasSubstr(" /opt/q "));
}

} // namespace
} // namespace quorvane
