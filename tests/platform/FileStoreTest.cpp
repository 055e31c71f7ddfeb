#include "tests/platform/FileStoreFixture.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

using FileStoreTest = FileStoreFixture;

TEST_F(FileStoreTest, ReplaceMakesANewFile)
{
    const std::string bytes("a\0\r\n\xFF", 5);
    const fs::path before = fs::current_path();
    EXPECT_FALSE(store_.Replace(In("new.csv"), bytes));
    fs::current_path(In(""));
    EXPECT_FALSE(store_.Replace("bare.csv", bytes));
    fs::current_path(before);
    EXPECT_EQ(Get("new.csv"), bytes);
    EXPECT_EQ(Get("bare.csv"), bytes);
    EXPECT_THAT(Names(), ElementsAre("bare.csv", "new.csv"));
}

TEST_F(FileStoreTest, ReplaceWorksByRenaming)
{
    Put("old.csv", "longer than the new text");
    fs::create_hard_link(In("old.csv"), In("other-name"));
    EXPECT_FALSE(store_.Replace(In("old.csv"), "new"));
    EXPECT_EQ(Get("old.csv"), "new");
    EXPECT_EQ(Get("other-name"), "longer than the new text") << "the old file itself is never written to";
    EXPECT_THAT(Names(), ElementsAre("old.csv", "other-name"));
}

TEST_F(FileStoreTest, AFolderIsRefusedAndStays)
{
    fs::create_directory(In("folder"));
    for (const std::string& target : {In("folder"), In("folder/")}) {
        ExpectNoFile(target);
        EXPECT_EQ(store_.Size(target), std::nullopt) << target;
    }
    EXPECT_THAT(Names(), ElementsAre("folder"));
}

TEST_F(FileStoreTest, SaysWhatIsMissing)
{
    Put("file.csv", "old");
    std::string bytes;
    for (const std::string& path : {In("no-folder/new.csv"), In("file.csv/new.csv"), std::string()}) {
        for (const auto& fault : {store_.CheckReplace(path), store_.Replace(path, "x"),
                                  store_.Append(path, "x"), store_.ReadWhole(path, bytes)})
            EXPECT_EQ(fault.value().kind, FileFaultKind::NotFound) << path;
    }
    EXPECT_EQ(store_.ReadWhole(In("absent"), bytes).value().kind, FileFaultKind::NotFound);
    EXPECT_FALSE(store_.CheckReplace(In("new.csv")));
    EXPECT_THAT(Names(), ElementsAre("file.csv"));
}

TEST_F(FileStoreTest, AFileThatWouldNotFitIntoMemoryIsNotRead)
{
    const std::string path = In("huge");
    std::ofstream(path).seekp(kLargestFile).put('x'); // what lies before takes no room on the disk
    std::string bytes = "old";
    EXPECT_TRUE(store_.ReadWhole(path, bytes));
    EXPECT_EQ(bytes, "");
}

TEST_F(FileStoreTest, AppendsAndReadsWholeFiles)
{
    const std::string large(200'001, 'x');
    std::string bytes = "of before";
    EXPECT_FALSE(store_.Exists(In("RSErr.log")));
    EXPECT_FALSE(store_.Append(In("RSErr.log"), ""));
    EXPECT_TRUE(store_.Exists(In("RSErr.log")));
    EXPECT_FALSE(store_.ReadWhole(In("RSErr.log"), bytes));
    EXPECT_EQ(bytes, "");
    EXPECT_FALSE(store_.Append(In("RSErr.log"), "heading\r\n"));
    EXPECT_FALSE(store_.Append(In("RSErr.log"), large));
    EXPECT_FALSE(store_.ReadWhole(In("RSErr.log"), bytes));
    EXPECT_TRUE(bytes == "heading\r\n" + large);
    EXPECT_EQ(store_.Size(In("RSErr.log")), 200'010U);
    EXPECT_EQ(store_.Size(In("absent")), std::nullopt);
}

TEST_F(FileStoreTest, NamesMayBeInAnyScriptAndPathsAsLongAsTheyLike)
{
    std::string folder = In("測定 é");
    for (int depth = 0; depth < 12; ++depth)
        folder = FileInFolder(folder, "データ-0123456789-0123456789");
    const std::string path = FileInFolder(folder, "№1 ソ表.csv");
    EXPECT_FALSE(system_.folders->CanWrite(folder)) << "before it is there";
    ASSERT_TRUE(system_.folders->Make(folder));
    EXPECT_TRUE(system_.folders->CanWrite(folder));
    EXPECT_TRUE(system_.folders->CanWrite(FileInFolder(folder, ""))) << "with a separator at its end";
    EXPECT_FALSE(store_.CheckReplace(path));
    EXPECT_FALSE(store_.Replace(path, "one "));
    EXPECT_FALSE(store_.Replace(path, "two "));
    EXPECT_FALSE(store_.Append(path, "three"));
    std::string bytes;
    EXPECT_FALSE(store_.ReadWhole(path, bytes));
    EXPECT_EQ(bytes, "two three");
    EXPECT_TRUE(store_.Exists(path));
    EXPECT_EQ(store_.Size(path), 9U);
    EXPECT_FALSE(system_.profile->WriteIniValue("S", "k", "v", folder + "/測定.ini"));
    EXPECT_EQ(system_.profile->ReadIniValue("S", "k", folder + "/測定.ini"), "v");
    EXPECT_THAT(Names(), ElementsAre("測定 é"));
}

} // namespace
} // namespace quorvane
