#pragma once

#include "files/JournalStore.h"
#include "platform/JournalFile.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace quorvane {

/// What the writer of journals allows itself.
struct JournalBounds {
    std::size_t records = 4096; ///< that wait at most
    std::size_t bytes = std::size_t{1} << 20U;
    std::chrono::milliseconds behind{2000}; ///< a record that has waited longer is told
    std::chrono::milliseconds retry{1000};  ///< from a failed attempt to the next
    /// From a write to the flush that follows it: what was written is on the disk 5 s later even if that
    /// takes its time.
    std::chrono::milliseconds flush{4000};
    std::chrono::milliseconds end{5000}; ///< that its end waits for the disk at most
};

/// Writes journals with a thread of its own, begun with the first one. The two share nothing but a list of
/// what is to be done: the thread may wait for a disk as long as that wants, at the end of the program too,
/// and is left alone then.
class JournalWriter final : public JournalStore {
public:
    /// @param files  used by the thread and, for `LeftOver` and `Claim`, by the caller's
    explicit JournalWriter(std::shared_ptr<const JournalFiles> files, JournalBounds bounds = {});
    /// Waits, within its bound, until all that was asked for is done.
    ~JournalWriter() override;
    JournalWriter(const JournalWriter&) = delete;
    JournalWriter& operator=(const JournalWriter&) = delete;

    void Begin(const std::string& path) override;
    [[nodiscard]] bool Put(std::string_view record) override;
    [[nodiscard]] JournalHealth Health() const override;
    [[nodiscard]] bool Vanished() const override;
    void Retire(const std::string& kept) override;
    void Release() override;
    [[nodiscard]] std::vector<std::string> LeftOver(const std::string& folder) const override;
    /// Waits, within the same bound as the end, until what is at hand is released.
    [[nodiscard]] std::optional<FileFault> Claim(const std::string& path, std::string& bytes) override;

private:
    struct Task;
    struct Shared;
    class Thread;
    void Ask(Task task);
    [[nodiscard]] bool WaitUntilDone();

    std::shared_ptr<Shared> shared_;
    std::thread thread_;
    bool atHand_ = false;   ///< as soon as all is done that was asked for
    bool writable_ = false; ///< and begun, not claimed
};

} // namespace quorvane
