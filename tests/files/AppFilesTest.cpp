#include "files/AppFiles.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

const std::string kSeparator(1, static_cast<char>(std::filesystem::path::preferred_separator));

TEST(AppFiles, FolderAndNameAreJoinedByOneSeparator)
{
    EXPECT_EQ(FileInFolder("/opt/quorvane", "RSErr.log"), "/opt/quorvane" + kSeparator + "RSErr.log");
    EXPECT_EQ(FileInFolder("C:" + kSeparator, "RSErr.log"), "C:" + kSeparator + "RSErr.log");
    EXPECT_EQ(FileInFolder("/", "RSErr.log"), "/RSErr.log");
    EXPECT_EQ(FileInFolder("粉じん", "a.csv"), "粉じん" + kSeparator + "a.csv");
}

TEST(AppFiles, PathsKeepEveryCharacter)
{
    EXPECT_TRUE(PathFromUtf8("粉じん/é.csv").u8string() == u8"粉じん/é.csv");
    EXPECT_TRUE(PathFromUtf8("").empty());
}

} // namespace
} // namespace quorvane
