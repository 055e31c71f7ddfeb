#include "platform/Platform.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

namespace fs = std::filesystem;

TEST(Folders, WritingIsFoundOutByTryingAndLeavesNothing)
{
    const ScratchFolder scratch;
    const auto folders = MakePlatform().folders;
    std::ofstream(scratch.Path("file")) << "kept";
    EXPECT_TRUE(folders->CanWrite(scratch.Path()));
    EXPECT_FALSE(folders->CanWrite(scratch.Path("absent")));
    EXPECT_FALSE(folders->CanWrite(scratch.Path("file")));
    EXPECT_EQ(std::distance(fs::directory_iterator(scratch.Path()), {}), 1);
}

TEST(Folders, AreMadeWithWhatIsMissingAboveThem)
{
    const ScratchFolder scratch;
    const auto folders = MakePlatform().folders;
    std::ofstream(scratch.Path("file")) << "kept";
    EXPECT_TRUE(folders->Make(scratch.Path("a/b/c")));
    EXPECT_TRUE(folders->Make(scratch.Path("a/b/c"))) << "it is there";
    EXPECT_TRUE(folders->Make(scratch.Path("d/e/"))) << "with a separator at its end";
    EXPECT_TRUE(fs::is_directory(scratch.Path("a/b/c")) && fs::is_directory(scratch.Path("d/e")));
    EXPECT_FALSE(folders->Make(scratch.Path("file")));
    EXPECT_FALSE(folders->Make(scratch.Path("file/below")));
    EXPECT_FALSE(folders->Make(""));
}

} // namespace
} // namespace quorvane
