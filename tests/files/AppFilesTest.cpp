#include "files/AppFiles.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(AppFiles, FolderAndNameAreJoinedByOneSeparatorAndKeepEveryCharacter)
{
    const std::string separator(1, static_cast<char>(std::filesystem::path::preferred_separator));
    EXPECT_EQ(FileInFolder("粉じん", "RSErr.log"), "粉じん" + separator + "RSErr.log");
    EXPECT_EQ(FileInFolder("C:" + separator, "RSErr.log"), "C:" + separator + "RSErr.log");
    EXPECT_TRUE(PathFromUtf8("粉じん/é.csv").u8string() == u8"粉じん/é.csv");
}

} // namespace
} // namespace quorvane
