#pragma once

#include <vector>

namespace quorvane {

/// What a long run takes of the machine, looked at now and then.
class Consumption {
public:
    void Look(int samples);

    /// Growth of the resident memory per 1000 readings after the first third, kilobytes: the slope of the
    /// straight line that fits best.
    [[nodiscard]] double MemorySlope() const;
    /// Prints the figures. @return whether the memory grows by no more than `mostMemory` and no handle is
    /// left
    bool Judge(double mostMemory) const;

private:
    struct Point {
        int samples = 0;
        double memory = 0;     ///< kilobytes
        int handles = 0;       ///< open files
        double cpuSeconds = 0; ///< of this program so far
    };
    std::vector<Point> points_;
};

/// `samples` readings through the real main window at high speed; ends early after `seconds`, with 0 not at
/// all.
bool SoakWindow(int samples, int seconds);

/// So many simulated hours of one line a second that comes in random pieces, with the plug pulled each hour.
bool SoakPlug(int hours, unsigned seed);

} // namespace quorvane
