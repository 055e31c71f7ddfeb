#include "platform/JournalWriter.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::Pair;

constexpr FileFault kFull{FileFaultKind::NoSpace, {}};

/// A disk that a test fills, breaks and holds up.
struct Disk {
    std::mutex mutex;
    std::map<std::string, std::string> files;
    std::size_t room = std::numeric_limits<std::size_t>::max();
    bool refusesNames = false;
    bool refusesFlush = false;
    int flushes = 0;
    int failures = 0;      ///< of writes
    std::string kept;      ///< a name that nothing can be renamed to
    std::timed_mutex hold; ///< held by a test: writes wait
    std::atomic<int> open = 0;
};

class DiskFile final : public JournalFile {
public:
    explicit DiskFile(std::shared_ptr<Disk> disk) : disk_(std::move(disk)) { ++disk_->open; }
    ~DiskFile() override { --disk_->open; }

    std::optional<FileFault> Create(const std::string& path) override
    {
        const std::lock_guard lock(disk_->mutex);
        if (disk_->refusesNames)
            return FileFault{FileFaultKind::NoPermission, {}};
        path_ = path;
        disk_->files[path_];
        return std::nullopt;
    }
    std::optional<FileFault> Open(const std::string& path, std::string& bytes) override
    {
        const std::lock_guard lock(disk_->mutex);
        if (!disk_->files.contains(path))
            return FileFault{FileFaultKind::NotFound, {}};
        path_ = path;
        bytes = disk_->files[path];
        return std::nullopt;
    }
    Appended Append(std::string_view bytes) override
    {
        const std::lock_guard held(disk_->hold);
        const std::lock_guard lock(disk_->mutex);
        const std::size_t taken = std::min(bytes.size(), disk_->room);
        disk_->room -= taken;
        disk_->failures += taken == 0 ? 1 : 0;
        if (StillThere())
            disk_->files[path_] += bytes.substr(0, taken);
        return {taken, taken == 0 ? std::optional(kFull) : std::nullopt};
    }
    std::optional<FileFault> CutTo(std::uint64_t size) override
    {
        const std::lock_guard lock(disk_->mutex);
        disk_->files[path_].resize(static_cast<std::size_t>(size));
        return std::nullopt;
    }
    bool StillThere() const override { return disk_->files.contains(path_); }
    std::optional<FileFault> Flush() override
    {
        const std::lock_guard lock(disk_->mutex);
        ++disk_->flushes;
        return disk_->refusesFlush ? std::optional(kFull) : std::nullopt;
    }
    std::optional<FileFault> Retire(const std::string& kept) override
    {
        const std::lock_guard lock(disk_->mutex);
        if (!kept.empty() && kept == disk_->kept)
            return FileFault{FileFaultKind::InUse, {}};
        if (!kept.empty())
            disk_->files[kept] = disk_->files[path_];
        disk_->files.erase(path_);
        return std::nullopt;
    }
    void Close() override {}

private:
    std::shared_ptr<Disk> disk_;
    std::string path_;
};

class DiskFiles final : public JournalFiles {
public:
    explicit DiskFiles(std::shared_ptr<Disk> disk) : disk_(std::move(disk)) {}
    std::unique_ptr<JournalFile> Make() const override { return std::make_unique<DiskFile>(disk_); }
    std::vector<std::string> LeftOver(const std::string&) const override { return {}; }

private:
    std::shared_ptr<Disk> disk_;
};

class JournalWriterTest : public testing::Test {
protected:
    /// Whoever waits for the thread here waits for it as long as it takes.
    static void Await(const std::function<bool()>& reached)
    {
        while (!reached())
            std::this_thread::sleep_for(1ms);
    }
    [[nodiscard]] std::map<std::string, std::string> Files()
    {
        const std::lock_guard lock(disk_->mutex);
        return disk_->files;
    }
    void GiveRoom(std::size_t room)
    {
        const std::lock_guard lock(disk_->mutex);
        disk_->room = room;
    }
    [[nodiscard]] bool Put(std::string_view record) { return writer_->Put(record); }

    JournalBounds bounds_{
        .records = 100, .bytes = 1000, .behind = 1ms, .retry = 1ms, .flush = 1ms, .end = 60s};
    std::shared_ptr<Disk> disk_ = std::make_shared<Disk>();
    std::unique_ptr<JournalWriter> writer_ =
        std::make_unique<JournalWriter>(std::make_shared<DiskFiles>(disk_), bounds_);
};

TEST_F(JournalWriterTest, DoesAllInItsOrderBeforeItEnds)
{
    EXPECT_FALSE(Put("nowhere\n"));
    writer_->Retire("nothing");
    writer_->Begin("a");
    EXPECT_TRUE(Put("1\n"));
    EXPECT_TRUE(Put("2\n"));
    writer_->Retire("kept");
    EXPECT_FALSE(Put("nowhere\n"));
    writer_->Begin("b");
    EXPECT_TRUE(Put("3\n"));
    writer_->Begin("c"); // leaves the one before where it is
    EXPECT_TRUE(Put("4\n"));
    writer_->Retire("");
    std::string bytes;
    EXPECT_EQ(writer_->Claim("absent", bytes).value().kind, FileFaultKind::NotFound);
    EXPECT_FALSE(writer_->Claim("b", bytes));
    EXPECT_EQ(bytes, "3\n");
    EXPECT_FALSE(Put("what was claimed is not written to\n"));
    writer_->Retire("claimed");
    writer_->Begin("d");
    EXPECT_TRUE(Put("5\n"));
    writer_.reset();
    EXPECT_THAT(disk_->files, ElementsAre(Pair("claimed", "3\n"), Pair("d", "5\n"), Pair("kept", "1\n2\n")));
    EXPECT_EQ(disk_->open, 0);
}

TEST_F(JournalWriterTest, AFullDiskCostsNoRecordAndLeavesNoHalfOne)
{
    GiveRoom(9);
    writer_->Begin("a");
    std::string all;
    for (int i = 10; i < 40; ++i) {
        all += std::to_string(i) + " record\n";
        EXPECT_TRUE(Put(std::to_string(i) + " record\n"));
    }
    for (const std::size_t room : {0U, 3U, 25U}) {
        GiveRoom(room);
        Await([&] { return writer_->Health().fault.has_value(); });
        EXPECT_EQ(writer_->Health().fault->kind, FileFaultKind::NoSpace);
    }
    GiveRoom(10000);
    Await([&] { return writer_->Health().Good(); });
    EXPECT_EQ(Files()["a"], all);
}

TEST_F(JournalWriterTest, TellsWhatCannotBeMadeOrFlushedUntilItCan)
{
    disk_->refusesNames = true;
    writer_->Begin("a");
    EXPECT_TRUE(Put("1\n"));
    Await([&] { return writer_->Health().fault.has_value(); });
    {
        const std::lock_guard lock(disk_->mutex);
        disk_->refusesNames = false;
        disk_->refusesFlush = true;
    }
    Await([&] { return Files()["a"] == "1\n" && writer_->Health().fault; });
    {
        const std::lock_guard lock(disk_->mutex);
        disk_->refusesFlush = false;
    }
    Await([&] { return writer_->Health().Good(); });
    EXPECT_GT(disk_->flushes, 1) << "without another record";
}

TEST_F(JournalWriterTest, WhatIsSettledIsNotWrittenAnyMore)
{
    GiveRoom(0);
    disk_->kept = "kept";
    writer_->Begin("a");
    EXPECT_TRUE(Put("1\n"));
    Await([&] { return writer_->Health().fault.has_value(); });
    writer_->Retire("kept"); // where it cannot be, so that it is removed
    Await([&] { return Files().empty(); });
    GiveRoom(2);
    writer_->Begin("b");
    EXPECT_TRUE(Put("2\n"));
    writer_.reset();
    EXPECT_THAT(disk_->files, ElementsAre(Pair("b", "2\n")));
}

TEST_F(JournalWriterTest, OneThatCouldNotBeWrittenForLongIsRetiredAtTheEndAllTheSame)
{
    GiveRoom(0);
    writer_->Begin("a");
    EXPECT_TRUE(Put("1\n"));
    Await([&] {
        const std::lock_guard lock(disk_->mutex);
        return disk_->failures > 20;
    });
    writer_->Retire("kept");
    writer_.reset();
    EXPECT_THAT(Files(), ElementsAre(Pair("kept", "")));
}

TEST_F(JournalWriterTest, OneThatIsRemovedIsToldAndBegunAnew)
{
    writer_->Begin("a");
    EXPECT_TRUE(Put("1\n"));
    Await([&] { return Files()["a"] == "1\n"; });
    EXPECT_FALSE(writer_->Vanished());
    {
        const std::lock_guard lock(disk_->mutex);
        disk_->files.clear();
    }
    EXPECT_TRUE(Put("2\n"));
    Await([&] { return writer_->Vanished(); });
    EXPECT_FALSE(writer_->Health().Good());
    writer_->Begin("b");
    EXPECT_FALSE(writer_->Vanished());
    EXPECT_TRUE(Put("1\n") && Put("2\n"));
    Await([&] { return writer_->Health().Good(); });
    writer_.reset();
    EXPECT_THAT(Files(), ElementsAre(Pair("b", "1\n2\n")));
}

TEST_F(JournalWriterTest, ASlowDiskIsToldAndHoldsNobody)
{
    std::unique_lock held(disk_->hold);
    writer_->Begin("a");
    std::string all;
    int taken = 0;
    while (Put("record\n")) {
        all += "record\n";
        ++taken;
    }
    EXPECT_EQ(taken, 100) << "as many as may wait";
    Await([&] { return writer_->Health().behind; });
    EXPECT_FALSE(writer_->Health().fault);
    held.unlock();
    Await([&] { return writer_->Health().Good() && Files()["a"] == all; });
    EXPECT_FALSE(Put(std::string(1001, 'x'))) << "nor more bytes";
    EXPECT_TRUE(Put("record\n"));
}

TEST_F(JournalWriterTest, ADiskThatHangsDoesNotHoldTheEnd)
{
    bounds_.end = 10ms;
    auto hasty = std::make_unique<JournalWriter>(std::make_shared<DiskFiles>(disk_), bounds_);
    std::unique_lock held(disk_->hold);
    hasty->Begin("a");
    EXPECT_TRUE(hasty->Put("1\n"));
    std::string bytes;
    EXPECT_EQ(hasty->Claim("a", bytes).value().kind, FileFaultKind::InUse);
    hasty.reset();
    EXPECT_EQ(Files()["a"], "");
    held.unlock();
    Await([&] { return disk_->open == 0; }); // the thread goes on by itself
    EXPECT_EQ(Files()["a"], "1\n");
}

TEST_F(JournalWriterTest, ADiskThatStaysFullDoesNotHoldTheEnd)
{
    GiveRoom(1);
    writer_->Begin("a");
    EXPECT_TRUE(Put("1\n"));
    writer_.reset();
    EXPECT_THAT(disk_->files, ElementsAre(Pair("a", ""))) << "without half a record";
}

} // namespace
} // namespace quorvane
