#pragma once

#include "platform/Platform.h"

#include <string>
#include <string_view>

namespace quorvane {

/// What came over the line may hold anything, and a terminal must not obey it: all but printable ASCII
/// becomes "?".
[[nodiscard]] std::string Printable(std::string text);

/// The terminal: results on standard output, everything said on standard error, and there, when it is a
/// terminal, one progress line that stays below all other lines. Nothing here waits for a reader: what a
/// stream does not take is kept and goes out with a later `Flush`.
class Console {
public:
    /// @param progress  whether a progress line is wanted
    explicit Console(bool progress) : progressWanted_(progress) {}
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// One line on standard output.
    void Print(std::string_view line);
    /// One line on standard error.
    void Say(std::string_view line);
    /// Replaces the progress line; an empty one takes it away. Left out while one of the streams takes
    /// nothing.
    void SetProgress(std::string line);
    /// Writes what the streams take now. @return whether everything is out
    bool Flush();
    /// Waits until everything is out.
    void FlushAll();

private:
    void HideProgress();
    void ShowProgress();

    std::string output_;
    std::string error_;
    bool progressWanted_;
    bool progressShown_ = false;
    std::string progress_;
};

} // namespace quorvane
