#include "platform/posix/PosixFileStore.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace quorvane::test {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FileStoreTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        std::string pattern = ::testing::TempDir() + "file-store-XXXXXX";
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
    }
    void TearDown() override { fs::remove_all(folder_); }

    [[nodiscard]] std::string In(const std::string& name) const { return (folder_ / name).string(); }
    [[nodiscard]] std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    void Put(const std::string& name, std::string_view bytes, unsigned mode = 0644) const
    {
        std::ofstream(In(name), std::ios::binary) << bytes;
        ::chmod(In(name).c_str(), mode);
    }
    [[nodiscard]] std::string Get(const std::string& name) const
    {
        std::ifstream file(In(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    [[nodiscard]] unsigned ModeOf(const std::string& name) const
    {
        struct stat status {};
        ::stat(In(name).c_str(), &status);
        return status.st_mode & 07777U;
    }

    fs::path folder_;
    PosixFileStore store_;
};

/// Root may do everything; in this scope it is an ordinary user.
class OrdinaryUser {
public:
    OrdinaryUser()
    {
        if (wasRoot_) {
            EXPECT_EQ(::seteuid(65534), 0);
        }
    }
    ~OrdinaryUser()
    {
        if (wasRoot_) {
            EXPECT_EQ(::seteuid(0), 0);
        }
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    bool wasRoot_ = ::geteuid() == 0;
};

std::optional<FileFaultKind> KindOf(const std::optional<FileFault>& fault)
{
    return fault ? std::optional(fault->kind) : std::nullopt;
}

TEST_F(FileStoreTest, ReplaceMakesANewFile)
{
    const std::string bytes("a\0\r\n\xFF", 5);
    const unsigned mask = ::umask(027);
    EXPECT_FALSE(store_.Replace(In("new.csv"), bytes));
    ::umask(mask);
    EXPECT_EQ(Get("new.csv"), bytes);
    EXPECT_EQ(ModeOf("new.csv"), 0640U);
    EXPECT_THAT(Names(), ElementsAre("new.csv"));
}

TEST_F(FileStoreTest, ReplaceKeepsTheModeAndLeavesNothingBeside)
{
    Put("old.csv", "longer than the new text", 0604);
    EXPECT_FALSE(store_.Replace(In("old.csv"), "new"));
    EXPECT_EQ(Get("old.csv"), "new");
    EXPECT_EQ(ModeOf("old.csv"), 0604U);
    EXPECT_THAT(Names(), ElementsAre("old.csv"));
}

TEST_F(FileStoreTest, ReplaceWorksByRenaming)
{
    Put("old.csv", "old");
    fs::create_hard_link(In("old.csv"), In("other-name"));
    EXPECT_FALSE(store_.Replace(In("old.csv"), "new"));
    EXPECT_EQ(Get("other-name"), "old") << "the old file itself is never written to";
}

TEST_F(FileStoreTest, ReplaceTakesABareFileName)
{
    const fs::path before = fs::current_path();
    fs::current_path(folder_);
    EXPECT_FALSE(store_.Replace("bare.csv", "here"));
    fs::current_path(before);
    EXPECT_EQ(Get("bare.csv"), "here");
}

TEST_F(FileStoreTest, ALinkStaysALink)
{
    fs::create_directory(In("far"));
    Put("far/real.csv", "old", 0640);
    fs::create_symlink("far/real.csv", In("link.csv"));
    fs::create_symlink(In("link.csv"), In("link-to-link.csv"));
    EXPECT_FALSE(store_.Replace(In("link-to-link.csv"), "new"));
    EXPECT_TRUE(fs::is_symlink(In("link.csv")));
    EXPECT_TRUE(fs::is_symlink(In("link-to-link.csv")));
    EXPECT_EQ(Get("far/real.csv"), "new");
    EXPECT_EQ(ModeOf("far/real.csv"), 0640U);

    fs::create_symlink("far/not-yet.csv", In("dangling.csv"));
    EXPECT_FALSE(store_.Replace(In("dangling.csv"), "made"));
    EXPECT_TRUE(fs::is_symlink(In("dangling.csv")));
    EXPECT_EQ(Get("far/not-yet.csv"), "made");

    fs::create_symlink("circle.csv", In("circle.csv"));
    EXPECT_TRUE(store_.Replace(In("circle.csv"), "never"));
    EXPECT_TRUE(fs::is_symlink(In("circle.csv")));
}

TEST_F(FileStoreTest, WhatIsNoFileIsRefusedAndStays)
{
    fs::create_directory(In("folder"));
    ASSERT_EQ(::mkfifo(In("pipe").c_str(), 0600), 0);
    std::string bytes = "unchanged";
    const std::string targets[] = {In("folder"), In("folder/"), In("folder/.."),
                                   In("pipe"),   "/dev/null",   "/dev/full"};
    for (const std::string& target : targets) {
        const auto faults = {store_.Replace(target, "x"), store_.Append(target, "x"),
                             store_.ReadWhole(target, bytes)};
        for (const auto& fault : faults) {
            ASSERT_TRUE(fault) << target;
            EXPECT_EQ(fault->kind, FileFaultKind::NotAFile) << target;
            EXPECT_FALSE(fault->systemReason.empty()) << target;
        }
        EXPECT_EQ(bytes, "") << target;
    }
    EXPECT_TRUE(fs::is_directory(In("folder")));
    EXPECT_TRUE(fs::is_fifo(In("pipe")));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_THAT(Names(), ElementsAre("folder", "pipe"));
}

TEST_F(FileStoreTest, AWriteThatFailsLeavesTheOldFileWhole)
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

TEST_F(FileStoreTest, SaysWhatIsMissingOrForbidden)
{
    Put("protected.csv", "old", 0444);
    std::string bytes;
    EXPECT_EQ(KindOf(store_.Replace(In("no-folder/new.csv"), "x")), FileFaultKind::NotFound);
    EXPECT_EQ(KindOf(store_.Append(In("no-folder/new.log"), "x")), FileFaultKind::NotFound);
    EXPECT_EQ(KindOf(store_.ReadWhole(In("absent"), bytes)), FileFaultKind::NotFound);
    EXPECT_EQ(KindOf(store_.Replace(In("protected.csv/new.csv"), "x")), FileFaultKind::NotFound);
    EXPECT_EQ(KindOf(store_.Replace("", "x")), FileFaultKind::NotFound);

    fs::permissions(folder_, fs::perms(0777));
    {
        const OrdinaryUser user;
        EXPECT_EQ(KindOf(store_.Replace(In("protected.csv"), "x")), FileFaultKind::NoPermission)
            << "renaming could get round the write protection";
        EXPECT_EQ(KindOf(store_.Append(In("protected.csv"), "x")), FileFaultKind::NoPermission);
    }
    fs::permissions(folder_, fs::perms(0555));
    {
        const OrdinaryUser user;
        EXPECT_EQ(KindOf(store_.Replace(In("new.csv"), "x")), FileFaultKind::NoPermission);
    }
    fs::permissions(folder_, fs::perms(0755));
    EXPECT_EQ(Get("protected.csv"), "old");
    EXPECT_THAT(Names(), ElementsAre("protected.csv"));
}

TEST_F(FileStoreTest, AppendMakesAndExtends)
{
    EXPECT_FALSE(store_.Exists(In("RSErr.log")));
    EXPECT_FALSE(store_.Append(In("RSErr.log"), "heading\r\n"));
    EXPECT_TRUE(store_.Exists(In("RSErr.log")));
    EXPECT_FALSE(store_.Append(In("RSErr.log"), "record\r\n"));
    EXPECT_EQ(Get("RSErr.log"), "heading\r\nrecord\r\n");
}

TEST_F(FileStoreTest, ReadsWholeFiles)
{
    const std::string large(200'001, 'x');
    Put("large", large);
    Put("empty", "");
    std::string bytes = "of before";
    EXPECT_FALSE(store_.ReadWhole(In("large"), bytes));
    EXPECT_TRUE(bytes == large);
    EXPECT_FALSE(store_.ReadWhole(In("empty"), bytes));
    EXPECT_THAT(bytes, IsEmpty());
}

} // namespace
} // namespace quorvane::test
