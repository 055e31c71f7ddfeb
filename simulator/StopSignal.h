#pragma once

namespace quorvane {

/// The wish that the program should end: SIGTERM, or SIGINT and SIGHUP unless whoever started the program had
/// them ignored (a script that keeps its background programs through Ctrl-C, nohup). The signals stay blocked
/// and are waited for like input.
class StopSignal {
public:
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    /// Becomes readable with the signal.
    [[nodiscard]] int Descriptor() const { return descriptor_; }
    [[nodiscard]] bool Raised() const;

private:
    int descriptor_ = -1;
};

} // namespace quorvane
