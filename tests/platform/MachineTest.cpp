#include "files/AppFiles.h"
#include "platform/Platform.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(Platform, FindsTheFolderOfTheProgram)
{
    EXPECT_TRUE(std::filesystem::exists(PathFromUtf8(FileInFolder(ProgramFolder(), QUORVANE_TEST_PROGRAM))));
}

} // namespace
} // namespace quorvane
