#include "tests/platform/FileStoreFixture.h"
#include "tests/platform/posix/OrdinaryUser.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class PosixFileStoreTest : public FileStoreFixture {
protected:
    [[nodiscard]] fs::perms ModeOf(const std::string& name) const
    {
        return fs::status(In(name)).permissions();
    }
};

TEST_F(PosixFileStoreTest, ANewFileGetsTheUsualModeAndAnOldOneKeepsItsOwn)
{
    const unsigned mask = ::umask(027);
    EXPECT_FALSE(store_.Replace(In("new.csv"), "new"));
    ::umask(mask);
    EXPECT_EQ(ModeOf("new.csv"), fs::perms(0640));
    Put("old.csv", "old", 0604);
    EXPECT_FALSE(store_.Replace(In("old.csv"), "new"));
    EXPECT_EQ(ModeOf("old.csv"), fs::perms(0604));
}

TEST_F(PosixFileStoreTest, ALinkStaysALink)
{
    fs::create_directory(In("far"));
    Put("far/real.csv", "old");
    fs::create_symlink("far/real.csv", In("link.csv"));
    fs::create_symlink(In("link.csv"), In("link-to-link.csv"));
    fs::create_symlink("far/not-yet.csv", In("dangling.csv"));
    fs::create_symlink("circle.csv", In("circle.csv"));
    EXPECT_FALSE(store_.Replace(In("link-to-link.csv"), "new"));
    EXPECT_FALSE(store_.Replace(In("dangling.csv"), "made"));
    EXPECT_TRUE(store_.Replace(In("circle.csv"), "never"));
    EXPECT_EQ(Get("far/real.csv"), "new");
    EXPECT_EQ(Get("far/not-yet.csv"), "made");
    for (const std::string name : {"link.csv", "link-to-link.csv", "dangling.csv", "circle.csv"})
        EXPECT_TRUE(fs::is_symlink(In(name))) << name;
}

TEST_F(PosixFileStoreTest, WhatIsNoFileIsRefusedAndStays)
{
    ASSERT_EQ(::mkfifo(In("pipe").c_str(), 0600), 0);
    for (const std::string& target : {In("pipe"), std::string("/dev/full")})
        ExpectNoFile(target);
    EXPECT_TRUE(fs::is_fifo(In("pipe")));
    EXPECT_THAT(Names(), ElementsAre("pipe"));
}

TEST_F(PosixFileStoreTest, AWriteThatFailsLeavesTheOldFileWhole)
{
    Put("old.csv", "old");
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{1000, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto fault = store_.Replace(In("old.csv"), std::string(5000, 'x'));
    const auto faultOfNew = store_.Replace(In("new.csv"), std::string(5000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    ASSERT_TRUE(fault && faultOfNew);
    EXPECT_EQ(fault->kind, FileFaultKind::NoSpace);
    EXPECT_EQ(fault->systemReason, "File too large");
    EXPECT_EQ(Get("old.csv"), "old");
    EXPECT_THAT(Names(), ElementsAre("old.csv"));
}

TEST_F(PosixFileStoreTest, SaysWhatIsForbidden)
{
    const auto kind = [](const std::optional<FileFault>& fault) { return fault.value().kind; };
    const auto replacing = [&](const std::string& path) {
        EXPECT_EQ(kind(store_.CheckReplace(path)), kind(store_.Replace(path, "x"))) << path;
        return kind(store_.Replace(path, "x"));
    };
    Put("protected.csv", "old", 0444);
    fs::permissions(In(""), fs::perms(0777));
    AsOrdinaryUser([&] {
        EXPECT_EQ(replacing(In("protected.csv")), FileFaultKind::NoPermission)
            << "renaming could get round the write protection";
        EXPECT_EQ(kind(store_.Append(In("protected.csv"), "x")), FileFaultKind::NoPermission);
    });
    fs::permissions(In(""), fs::perms(0555));
    AsOrdinaryUser([&] { EXPECT_EQ(replacing(In("new.csv")), FileFaultKind::NoPermission); });
    fs::permissions(In(""), fs::perms(0755));
    EXPECT_EQ(Get("protected.csv"), "old");
    EXPECT_THAT(Names(), ElementsAre("protected.csv"));
}

} // namespace
} // namespace quorvane
