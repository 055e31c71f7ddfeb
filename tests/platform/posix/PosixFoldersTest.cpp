#include "platform/posix/PosixFolders.h"

#include "platform/Platform.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/support/ScopedEnvironment.h"
#include "tests/support/ScratchFolder.h"

#include <pwd.h>

namespace quorvane {
namespace {

namespace fs = std::filesystem;

TEST(PosixFolders, WritingIsAskedOfTheSystemNotOfTheMode)
{
    const ScratchFolder scratch;
    const PosixFolders folders;
    EXPECT_FALSE(folders.CanWrite("/proc")) << "whose mode lets root write";
    fs::permissions(scratch.Path(), fs::perms(0555));
    AsOrdinaryUser([&] { EXPECT_FALSE(folders.CanWrite(scratch.Path())); });
    fs::permissions(scratch.Path(), fs::perms(0755));
}

TEST(PosixFolders, AreMadeForTheUserAlone)
{
    const ScratchFolder scratch;
    PosixFolders folders;
    EXPECT_TRUE(folders.Make(scratch.Path("a/b/c")));
    EXPECT_EQ(fs::status(scratch.Path("a/b")).permissions(), fs::perms(0700)) << "for the user alone";
    fs::permissions(scratch.Path("a/b/c"), fs::perms(0750));
    EXPECT_TRUE(folders.Make(scratch.Path("a/b/c")));
    EXPECT_EQ(fs::status(scratch.Path("a/b/c")).permissions(), fs::perms(0750)) << "stays as it is";
    EXPECT_FALSE(folders.Make("/proc/there-is-no-such-folder/below"));
}

TEST(UserDataFolder, FollowsTheDesktopsRules)
{
    using Variable = std::optional<std::string>;
    const passwd* const user = ::getpwuid(::geteuid());
    ASSERT_NE(user, nullptr);
    const std::string home = user->pw_dir;
    struct Row {
        Variable dataHome;
        Variable home;
        std::string folder;
    };
    const Row rows[] = {
        {"/data", "/home/u", "/data/quorvane"},
        {"data", "/home/u", "/home/u/.local/share/quorvane"},
        {"", "/home/u", "/home/u/.local/share/quorvane"},
        {std::nullopt, "/home/u", "/home/u/.local/share/quorvane"},
        {std::nullopt, std::nullopt, home + "/.local/share/quorvane"},
        {std::nullopt, "", home + "/.local/share/quorvane"},
    };
    for (const Row& row : rows) {
        const ScopedEnvironment dataHome("XDG_DATA_HOME", row.dataHome);
        const ScopedEnvironment homeFolder("HOME", row.home);
        EXPECT_EQ(UserDataFolder(), row.folder);
    }
}

} // namespace
} // namespace quorvane
