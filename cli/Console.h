#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// The terminal: results on standard output, everything said on standard error,
/// and there, when it is a terminal, one progress line that stays below all
/// other lines.
class Console {
public:
    /// @param progress  whether a progress line is wanted
    explicit Console(bool progress) : progressWanted_(progress) {}
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// One line on standard output. A reader who has gone away does not matter.
    void Print(std::string_view line);
    /// One line on standard error.
    void Say(std::string_view line);
    void SetProgress(std::string line);

private:
    void HideProgress();
    void ShowProgress();

    bool progressWanted_;
    bool progressShown_ = false;
    std::string progress_;
};

} // namespace quorvane
