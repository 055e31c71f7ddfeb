#include "platform/posix/PosixInstanceLock.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/support/ScopedEnvironment.h"
#include "tests/support/ScratchFolder.h"

#include <csignal>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace quorvane {
namespace {

namespace fs = std::filesystem;

/// Another process that asks for the lock and stays. Ended with the object.
class OtherInstance {
public:
    explicit OtherInstance(const std::vector<LockFolder>& folders)
    {
        EXPECT_EQ(::pipe2(answer_, O_CLOEXEC), 0);
        process_ = ::fork();
        if (process_ == 0)
            Run(folders);
        ::close(answer_[1]);
        EXPECT_EQ(::read(answer_[0], &said_, 1), 1);
    }
    ~OtherInstance()
    {
        Kill();
        ::close(answer_[0]);
    }
    OtherInstance(const OtherInstance&) = delete;
    OtherInstance& operator=(const OtherInstance&) = delete;

    [[nodiscard]] bool WasRefused() const { return said_ == 'y'; }
    void Kill()
    {
        if (process_ <= 0)
            return;
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
        process_ = -1;
    }

private:
    [[noreturn]] void Run(const std::vector<LockFolder>& folders)
    {
        PosixInstanceLock lock(folders);
        const char answer = lock.PreviousInstanceRunning() ? 'y' : 'n';
        if (::write(answer_[1], &answer, 1) == 1)
            for (;;)
                ::pause();
        ::_exit(1);
    }

    int answer_[2] = {-1, -1};
    pid_t process_ = -1;
    char said_ = 0;
};

/// Two folders for the lock's file: one that is there, and one that is made when the first will not do.
struct InstanceLockTest : testing::Test {
    InstanceLockTest()
    {
        fs::create_directory(first);
        fs::permissions(first, fs::perms(0700));
    }
    [[nodiscard]] bool Refused() const { return PosixInstanceLock(folders).PreviousInstanceRunning(); }

    ScratchFolder scratch;
    const std::string first = scratch.Path("first");
    const std::string second = scratch.Path("second");
    const std::string firstFile = first + "/quorvane.lock";
    const std::vector<LockFolder> folders = {{first}, {second, true}};
};

TEST_F(InstanceLockTest, IsTakenAtTheFirstQuestionAndHeldUntilItsEnd)
{
    {
        PosixInstanceLock lock(folders);
        EXPECT_FALSE(fs::exists(firstFile)) << "nobody has asked yet";
        EXPECT_FALSE(lock.PreviousInstanceRunning());
        EXPECT_FALSE(lock.PreviousInstanceRunning()) << "it is no previous instance of itself";
        EXPECT_TRUE(Refused());
        EXPECT_TRUE(OtherInstance(folders).WasRefused());
        EXPECT_FALSE(fs::exists(second)) << "one folder is enough";
    }
    EXPECT_TRUE(fs::exists(firstFile));
    EXPECT_FALSE(Refused());
}

TEST_F(InstanceLockTest, SurvivesAKillWithoutARefusal)
{
    OtherInstance other(folders);
    EXPECT_FALSE(other.WasRefused());
    EXPECT_TRUE(Refused());
    other.Kill();
    EXPECT_TRUE(fs::exists(firstFile));
    EXPECT_FALSE(Refused());
}

TEST_F(InstanceLockTest, AProgramThatThisOneStartsDoesNotGetIt)
{
    PosixInstanceLock lock(folders);
    ASSERT_FALSE(lock.PreviousInstanceRunning());
    int held = 0;
    for (int file = 0; file < 1000; ++file) {
        std::error_code none;
        if (fs::read_symlink("/proc/self/fd/" + std::to_string(file), none) != firstFile)
            continue;
        ++held;
        EXPECT_NE(::fcntl(file, F_GETFD) & FD_CLOEXEC, 0) << "it would outlive the program";
    }
    EXPECT_EQ(held, 1);
}

TEST_F(InstanceLockTest, WhatIsNotTheUsersOwnIsNotUsed)
{
    const std::string precious = scratch.Path("precious");
    const auto isNotUsed = [&](const char* what, const std::string& folder) {
        const std::vector<LockFolder> candidates = {{folder}, {second, true}};
        PosixInstanceLock lock(candidates);
        EXPECT_FALSE(lock.PreviousInstanceRunning()) << what;
        EXPECT_TRUE(fs::exists(second + "/quorvane.lock")) << what << ": the next folder is taken";
        EXPECT_TRUE(OtherInstance(candidates).WasRefused()) << what;
        fs::remove_all(second);
    };
    ::mkfifo(firstFile.c_str(), 0600);
    isNotUsed("a pipe", first);
    fs::remove(firstFile);
    std::ofstream(precious) << "kept";
    fs::create_symlink(precious, firstFile);
    isNotUsed("a link", first);
    EXPECT_EQ(FileBytes(precious), "kept");
    fs::remove(firstFile);
    fs::permissions(first, fs::perms(0770));
    isNotUsed("a folder that others may write", first);
    fs::permissions(first, fs::perms(0700));
    fs::create_symlink(first, scratch.Path("link"));
    isNotUsed("a link to a folder", scratch.Path("link"));
    isNotUsed("a missing folder", scratch.Path("missing"));
    isNotUsed("a file", precious);
    isNotUsed("a relative path", ".");
    EXPECT_FALSE(fs::exists(firstFile));
    if (::geteuid() != 0)
        return; // only root can make what is another user's
    std::ofstream(firstFile) << "theirs";
    ASSERT_EQ(::chown(firstFile.c_str(), kOrdinaryUser, kOrdinaryUser), 0);
    isNotUsed("another user's file", first);
    fs::remove(firstFile);
    ASSERT_EQ(::chown(first.c_str(), kOrdinaryUser, kOrdinaryUser), 0);
    isNotUsed("another user's folder", first);
}

TEST_F(InstanceLockTest, WithoutAnyLockTheProgramStarts)
{
    const std::vector<LockFolder> useless = {{""}, {"/proc/there-is-no-such-folder", true}};
    PosixInstanceLock lock(useless);
    EXPECT_FALSE(lock.PreviousInstanceRunning());
    EXPECT_FALSE(PosixInstanceLock(useless).PreviousInstanceRunning());
}

TEST(LockFolders, AreTheUsersOwnInTheDesktopsOrder)
{
    const std::string user = std::to_string(::geteuid());
    const ScopedEnvironment running("XDG_RUNTIME_DIR", "/running");
    const ScopedEnvironment data("XDG_DATA_HOME", "/data");
    const ScopedEnvironment temporary("TMPDIR", "/usr");
    std::vector<std::string> paths;
    for (const LockFolder& folder : LockFolders())
        paths.push_back((folder.mayBeMade ? "made " : "") + folder.path);
    EXPECT_THAT(paths, testing::ElementsAre("/running", "/run/user/" + user, "made /data/quorvane",
                                            "made /usr/quorvane-" + user));
}

TEST(LockFolders, OfTwoUsersDoNotMeet)
{
    const ScratchFolder scratch;
    const ScopedEnvironment temporary("TMPDIR", scratch.Path());
    fs::permissions(scratch.Path(), fs::perms(01777)); // as the system's own
    const auto own = [] { return std::vector<LockFolder>{LockFolders().back()}; };
    PosixInstanceLock ours(own());
    EXPECT_FALSE(ours.PreviousInstanceRunning());
    if (::geteuid() == 0) // or there is no other user to be
        AsOrdinaryUser([&] { EXPECT_FALSE(PosixInstanceLock(own()).PreviousInstanceRunning()); });
    EXPECT_TRUE(PosixInstanceLock(own()).PreviousInstanceRunning());
    EXPECT_EQ(fs::status(LockFolders().back().path).permissions(), fs::perms(0700));
}

} // namespace
} // namespace quorvane
