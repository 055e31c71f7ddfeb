#pragma once

#include <utility>

namespace quorvane {

/// Sets a flag that guards against re-entry and puts back what it was on every way out.
class ScopedFlag {
public:
    explicit ScopedFlag(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~ScopedFlag() { flag_ = before_; }
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;

private:
    bool& flag_;
    const bool before_;
};

} // namespace quorvane
