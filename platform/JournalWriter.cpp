#include "platform/JournalWriter.h"

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <system_error>
#include <utility>

namespace quorvane {

namespace {

using SteadyTime = std::chrono::steady_clock::time_point;

SteadyTime NowSteady()
{
    return std::chrono::steady_clock::now();
}

} // namespace

struct JournalWriter::Task {
    enum class Kind { Begin, Record, Retire, Release, Adopt };
    Kind kind = Kind::Release;
    std::string text;                    ///< the path, the record or the name to keep it by
    std::unique_ptr<JournalFile> file{}; ///< to adopt
    SteadyTime since = NowSteady();
};

/// What the thread and the writer have in common; the lock is held for a moment only.
struct JournalWriter::Shared {
    std::shared_ptr<const JournalFiles> files;
    JournalBounds bounds;

    mutable std::mutex mutex;
    std::condition_variable changed;
    std::deque<Task> tasks; ///< each stays until it is done; the thread alone takes some away
    std::size_t records = 0;
    std::size_t bytes = 0; ///< of the records
    std::optional<FileFault> fault;
    std::optional<FileFault> flushFault;
    bool behind = false;   ///< until nothing waits any more
    bool vanished = false; ///< until another one is begun
    bool ending = false;
    bool finished = false;
};

/// The thread's side. All that waits for the disk is done without the lock.
class JournalWriter::Thread {
public:
    explicit Thread(std::shared_ptr<Shared> shared) : shared_(std::move(shared)) {}

    void Run()
    {
        std::unique_lock lock(shared_->mutex);
        while (!GivenUp() || SkipToRetirement()) { // what is to be retired wants no room on the disk
            WaitForWork(lock);
            FlushInTime(lock);
            if (!shared_->tasks.empty())
                DoNext(lock);
            else if (shared_->ending)
                break;
        }
        lock.unlock();
        CloseFile();
        lock.lock();
        shared_->finished = true;
        shared_->changed.notify_all();
    }

private:
    using Lock = std::unique_lock<std::mutex>;
    using Kind = Task::Kind;
    using Fault = std::optional<FileFault>;

    /// A disk that answers with nothing but failures does not hold the program's end for long.
    [[nodiscard]] bool GivenUp() const
    {
        constexpr int kTriesAtTheEnd = 10;
        return shared_->ending && failures_ >= kTriesAtTheEnd;
    }

    void WaitForWork(Lock& lock)
    {
        const auto work = [this] { return !shared_->tasks.empty() || shared_->ending; };
        if (flushAt_)
            shared_->changed.wait_until(lock, *flushAt_, work);
        else
            shared_->changed.wait(lock, work);
    }

    void FlushInTime(Lock& lock)
    {
        if (!flushAt_ || NowSteady() < *flushAt_)
            return;
        lock.unlock();
        Fault fault = file_ ? file_->Flush() : Fault();
        const bool vanished = LetVanishedGo();
        lock.lock();
        flushAt_.reset();
        if (fault && !vanished)
            flushAt_ = NowSteady() + shared_->bounds.retry;
        shared_->flushFault = vanished ? Fault({FileFaultKind::NotFound, {}}) : std::move(fault);
        NoteVanished(vanished);
    }

    void DoNext(Lock& lock)
    {
        const std::size_t count = JoinRecords();
        Task& task = shared_->tasks.front(); // stays where it is while others are added behind it
        const Kind kind = task.kind;
        std::unique_ptr<JournalFile> adopted = std::move(task.file);
        const std::string text = kind == Kind::Record ? std::string() : task.text;
        lock.unlock();
        Fault fault = kind == Kind::Record ? Write() : Do(kind, text, std::move(adopted));
        const bool vanished = fault && LetVanishedGo();
        lock.lock();
        if (vanished)
            shared_->flushFault = std::exchange(fault, std::nullopt); // the records are offered again
        else if (kind != Kind::Record && !fault)
            shared_->flushFault.reset(); // it was that of the journal before
        NoteVanished(vanished);
        shared_->fault = fault;
        failures_ = fault ? failures_ + 1 : 0;
        if (!fault)
            TakeAway(count);
        else if (!SkipToRetirement())
            Pause(lock);
        shared_->changed.notify_all();
    }

    /// Records that wait together go out with one write. @return how many tasks that are
    std::size_t JoinRecords()
    {
        constexpr std::size_t kWrittenAtOnce = std::size_t{1} << 16U;
        records_.clear();
        std::size_t count = 0;
        for (const Task& task : shared_->tasks) {
            if (task.kind != Kind::Record || records_.size() >= kWrittenAtOnce)
                break;
            records_ += task.text;
            ++count;
        }
        return std::max<std::size_t>(count, 1);
    }

    void TakeAway(std::size_t count)
    {
        for (; count > 0; --count) {
            const Task& task = shared_->tasks.front();
            if (task.kind == Kind::Record) {
                --shared_->records;
                shared_->bytes -= task.text.size();
            }
            shared_->tasks.pop_front();
        }
    }

    /// What cannot be written is not needed any more when its journal is to be retired: its readings are in a
    /// file, or nobody wants them.
    bool SkipToRetirement()
    {
        auto& tasks = shared_->tasks;
        const auto other = [](const Task& task) {
            return task.kind != Kind::Begin && task.kind != Kind::Record;
        };
        const auto retirement = std::ranges::find_if(tasks, other);
        if (retirement == tasks.end() || retirement->kind != Kind::Retire) // or it would be another journal's
            return false;
        TakeAway(static_cast<std::size_t>(retirement - tasks.begin()));
        return true;
    }

    void Pause(Lock& lock)
    {
        constexpr std::chrono::milliseconds kPauseAtTheEnd{100};
        const bool atTheEnd = shared_->ending;
        const auto pause = atTheEnd ? std::min(kPauseAtTheEnd, shared_->bounds.retry) : shared_->bounds.retry;
        shared_->changed.wait_for(lock, pause, [&] { return shared_->ending != atTheEnd; });
    }

    /// A file that somebody has removed, or whose disk has gone, takes records and keeps none.
    bool LetVanishedGo()
    {
        if (!file_ || file_->StillThere())
            return false;
        torn_ = false;
        flushAt_.reset();
        file_->Close();
        file_.reset();
        return true;
    }

    /// Where another one is to be begun already, nobody has to be told.
    void NoteVanished(bool vanished)
    {
        if (vanished && std::ranges::find(shared_->tasks, Kind::Begin, &Task::kind) == shared_->tasks.end())
            shared_->vanished = true;
    }

    Fault Write()
    {
        if (!file_) // that of a journal which has vanished, or could not be begun before it was retired
            return std::nullopt;
        if (torn_) {
            if (Fault fault = file_->CutTo(whole_))
                return fault;
            torn_ = false;
        }
        JournalFile::Appended appended = file_->Append(records_);
        if (appended.bytes > 0 && !flushAt_)
            flushAt_ = NowSteady() + shared_->bounds.flush;
        if (appended.bytes == records_.size()) {
            whole_ += records_.size();
            return std::nullopt;
        }
        torn_ = true;
        return appended.fault ? appended.fault : FileFault{FileFaultKind::NoSpace, {}};
    }

    Fault Do(Kind kind, const std::string& text, std::unique_ptr<JournalFile> adopted)
    {
        switch (kind) {
        case Kind::Begin:
            return Create(text);
        case Kind::Adopt:
            CloseFile();
            file_ = std::move(adopted);
            break;
        case Kind::Retire:
            Retire(text);
            break;
        case Kind::Release:
            CloseFile();
            break;
        case Kind::Record:
            break;
        }
        return std::nullopt;
    }

    Fault Create(const std::string& path)
    {
        CloseFile();
        auto file = shared_->files->Make();
        if (Fault fault = file->Create(path))
            return fault;
        file_ = std::move(file);
        whole_ = 0;
        torn_ = false;
        return std::nullopt;
    }

    /// Not tried again: the next run's records wait. One that cannot be renamed is removed, one that cannot
    /// even be removed is offered once more at the next start.
    void Retire(const std::string& kept)
    {
        if (torn_)
            static_cast<void>(file_->CutTo(whole_));
        if (file_ && file_->Retire(kept) && !kept.empty())
            static_cast<void>(file_->Retire({}));
        flushAt_.reset();
        torn_ = false;
        CloseFile();
    }

    void CloseFile()
    {
        if (!file_)
            return;
        if (torn_)
            static_cast<void>(file_->CutTo(whole_));
        if (flushAt_)
            static_cast<void>(file_->Flush());
        torn_ = false;
        flushAt_.reset();
        file_->Close();
        file_.reset();
    }

    std::shared_ptr<Shared> shared_;
    std::unique_ptr<JournalFile> file_;
    std::string records_;     ///< that are being written
    std::uint64_t whole_ = 0; ///< bytes of whole records in the file
    bool torn_ = false;       ///< something else may stand behind them
    std::optional<SteadyTime> flushAt_;
    int failures_ = 0; ///< one after the other
};

JournalWriter::JournalWriter(std::shared_ptr<const JournalFiles> files, JournalBounds bounds)
    : shared_(std::make_shared<Shared>())
{
    shared_->files = std::move(files);
    shared_->bounds = bounds;
}

JournalWriter::~JournalWriter()
{
    if (!thread_.joinable())
        return;
    std::unique_lock lock(shared_->mutex);
    shared_->ending = true;
    shared_->changed.notify_all();
    const bool finished =
        shared_->changed.wait_for(lock, shared_->bounds.end, [this] { return shared_->finished; });
    lock.unlock();
    if (finished)
        thread_.join();
    else
        thread_.detach();
}

void JournalWriter::Ask(Task task)
{
    const std::lock_guard lock(shared_->mutex);
    if (task.kind == Task::Kind::Record) {
        ++shared_->records;
        shared_->bytes += task.text.size();
    }
    shared_->tasks.push_back(std::move(task));
    shared_->changed.notify_all();
    if (thread_.joinable())
        return;
    try {
        thread_ = std::thread([shared = shared_] { Thread(shared).Run(); });
    } catch (const std::system_error& error) { // tried again with the next record
        shared_->fault = FileFault{FileFaultKind::Other, error.what()};
    }
}

void JournalWriter::Begin(const std::string& path)
{
    Release();
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->vanished = false;
    }
    Ask({.kind = Task::Kind::Begin, .text = path});
    atHand_ = true;
    writable_ = true;
}

bool JournalWriter::Put(std::string_view record)
{
    if (!writable_)
        return false;
    {
        const std::lock_guard lock(shared_->mutex);
        if (shared_->records >= shared_->bounds.records ||
            shared_->bytes + record.size() > shared_->bounds.bytes)
            return false;
    }
    Ask({.kind = Task::Kind::Record, .text = std::string(record)});
    return true;
}

JournalHealth JournalWriter::Health() const
{
    const std::lock_guard lock(shared_->mutex);
    const auto& tasks = shared_->tasks;
    if (tasks.empty())
        shared_->behind = false;
    else if (NowSteady() - tasks.front().since > shared_->bounds.behind)
        shared_->behind = true;
    return {.behind = shared_->behind, .fault = shared_->fault ? shared_->fault : shared_->flushFault};
}

bool JournalWriter::Vanished() const
{
    const std::lock_guard lock(shared_->mutex);
    return writable_ && shared_->vanished;
}

void JournalWriter::Retire(const std::string& kept)
{
    if (atHand_)
        Ask({.kind = Task::Kind::Retire, .text = kept});
    atHand_ = false;
    writable_ = false;
}

void JournalWriter::Release()
{
    if (atHand_)
        Ask({.kind = Task::Kind::Release, .text = {}});
    atHand_ = false;
    writable_ = false;
}

std::vector<std::string> JournalWriter::LeftOver(const std::string& folder) const
{
    return shared_->files->LeftOver(folder);
}

std::optional<FileFault> JournalWriter::Claim(const std::string& path, std::string& bytes)
{
    Release();
    if (!WaitUntilDone())
        return FileFault{FileFaultKind::InUse, {}};
    std::unique_ptr<JournalFile> file = shared_->files->Make();
    if (auto fault = file->Open(path, bytes))
        return fault;
    Ask({.kind = Task::Kind::Adopt, .text = {}, .file = std::move(file)});
    atHand_ = true;
    return std::nullopt;
}

bool JournalWriter::WaitUntilDone()
{
    std::unique_lock lock(shared_->mutex);
    return shared_->changed.wait_for(lock, shared_->bounds.end, [this] { return shared_->tasks.empty(); });
}

} // namespace quorvane
