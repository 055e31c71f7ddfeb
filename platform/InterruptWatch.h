#pragma once

#include <memory>

namespace quorvane {

/// Counts, as long as it lives, how often the user or the system asked the program to stop, instead of
/// letting that end the program: Ctrl-C, a termination request, the closing of the terminal or console.
/// A broken output pipe or a file beyond the user's size limit does not end the program either. One at a
/// time; everything is put back at the end.
class InterruptWatch {
public:
    InterruptWatch();
    ~InterruptWatch();
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;

    /// Requests to stop since construction.
    [[nodiscard]] int Count() const;

private:
    struct Saved;
    std::unique_ptr<Saved> saved_;
    int countAtStart_;
};

} // namespace quorvane
