#include "platform/posix/PosixFileStore.h"
#include "tests/platform/OrdinaryUser.h"
#include "tests/support/ScratchFolder.h"

#include <algorithm>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <vector>

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class FileStoreTest : public testing::Test {
protected:
    [[nodiscard]] std::string In(const std::string& name) const { return folder_.Path(name); }
    [[nodiscard]] std::string Get(const std::string& name) const { return FileBytes(In(name)); }
    [[nodiscard]] std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(In("")))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }
    void Put(const std::string& name, std::string_view bytes, unsigned mode = 0644) const
    {
        std::ofstream(In(name), std::ios::binary) << bytes;
        fs::permissions(In(name), fs::perms(mode));
    }
    [[nodiscard]] fs::perms ModeOf(const std::string& name) const
    {
        return fs::status(In(name)).permissions();
    }

    ScratchFolder folder_;
    PosixFileStore store_;
};

TEST_F(FileStoreTest, ReplaceMakesANewFile)
{
    const std::string bytes("a\0\r\n\xFF", 5);
    const fs::path before = fs::current_path();
    const unsigned mask = ::umask(027);
    EXPECT_FALSE(store_.Replace(In("new.csv"), bytes));
    fs::current_path(In(""));
    EXPECT_FALSE(store_.Replace("bare.csv", bytes));
    fs::current_path(before);
    ::umask(mask);
    EXPECT_EQ(Get("new.csv"), bytes);
    EXPECT_EQ(Get("bare.csv"), bytes);
    EXPECT_EQ(ModeOf("new.csv"), fs::perms(0640));
    EXPECT_THAT(Names(), ElementsAre("bare.csv", "new.csv"));
}

TEST_F(FileStoreTest, ReplaceWorksByRenamingAndKeepsTheMode)
{
    Put("old.csv", "longer than the new text", 0604);
    fs::create_hard_link(In("old.csv"), In("other-name"));
    EXPECT_FALSE(store_.Replace(In("old.csv"), "new"));
    EXPECT_EQ(Get("old.csv"), "new");
    EXPECT_EQ(ModeOf("old.csv"), fs::perms(0604));
    EXPECT_EQ(Get("other-name"), "longer than the new text") << "the old file itself is never written to";
    EXPECT_THAT(Names(), ElementsAre("old.csv", "other-name"));
}

TEST_F(FileStoreTest, ALinkStaysALink)
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

TEST_F(FileStoreTest, WhatIsNoFileIsRefusedAndStays)
{
    fs::create_directory(In("folder"));
    ASSERT_EQ(::mkfifo(In("pipe").c_str(), 0600), 0);
    for (const std::string& target : {In("folder"), In("folder/"), In("pipe"), std::string("/dev/full")}) {
        std::string bytes = "of before";
        for (const auto& fault : {store_.CheckReplace(target), store_.Replace(target, "x"),
                                  store_.Append(target, "x"), store_.ReadWhole(target, bytes)}) {
            ASSERT_TRUE(fault) << target;
            EXPECT_EQ(fault->kind, FileFaultKind::NotAFile) << target;
            EXPECT_FALSE(fault->systemReason.empty()) << target;
        }
        EXPECT_EQ(bytes, "") << target;
    }
    EXPECT_TRUE(fs::is_directory(In("folder")) && fs::is_fifo(In("pipe")));
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
    const auto kind = [](const std::optional<FileFault>& fault) { return fault.value().kind; };
    const auto replacing = [&](const std::string& path) {
        EXPECT_EQ(kind(store_.CheckReplace(path)), kind(store_.Replace(path, "x"))) << path;
        return kind(store_.Replace(path, "x"));
    };
    Put("protected.csv", "old", 0444);
    std::string bytes;
    EXPECT_EQ(replacing(In("no-folder/new.csv")), FileFaultKind::NotFound);
    EXPECT_EQ(kind(store_.Append(In("no-folder/new.log"), "x")), FileFaultKind::NotFound);
    EXPECT_EQ(kind(store_.ReadWhole(In("absent"), bytes)), FileFaultKind::NotFound);
    EXPECT_EQ(replacing(In("protected.csv/new.csv")), FileFaultKind::NotFound);
    EXPECT_EQ(replacing(""), FileFaultKind::NotFound);

    fs::permissions(In(""), fs::perms(0777));
    AsOrdinaryUser([&] {
        EXPECT_EQ(replacing(In("protected.csv")), FileFaultKind::NoPermission)
            << "renaming could get round the write protection";
        EXPECT_EQ(kind(store_.Append(In("protected.csv"), "x")), FileFaultKind::NoPermission);
    });
    fs::permissions(In(""), fs::perms(0555));
    AsOrdinaryUser([&] { EXPECT_EQ(replacing(In("new.csv")), FileFaultKind::NoPermission); });
    fs::permissions(In(""), fs::perms(0755));
    EXPECT_FALSE(store_.CheckReplace(In("new.csv")));
    EXPECT_EQ(Get("protected.csv"), "old");
    EXPECT_THAT(Names(), ElementsAre("protected.csv"));
}

TEST_F(FileStoreTest, AFileThatWouldNotFitIntoMemoryIsNotRead)
{
    const std::string path = In("huge");
    std::ofstream(path).close();
    fs::resize_file(path, kLargestFile + 1); // takes no room on the disk
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

} // namespace
} // namespace quorvane
