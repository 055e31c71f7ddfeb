#include "tests/soak/Soak.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/resource.h>

namespace quorvane {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kMemoryTells = false; // what is freed is kept for a while, to notice its use
#else
constexpr bool kMemoryTells = true;
#endif

double ResidentKilobytes()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        double kilobytes = 0;
        if (word == "VmRSS:" && status >> kilobytes)
            return kilobytes;
    }
    return 0;
}

int OpenFiles()
{
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return static_cast<int>(std::distance(begin(files), end(files)));
}

double CpuSeconds()
{
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const auto seconds = [](timeval time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

} // namespace

void Consumption::Look(int samples)
{
    points_.push_back({samples, ResidentKilobytes(), OpenFiles(), CpuSeconds()});
}

double Consumption::MemorySlope() const
{
    const std::size_t warm = points_.size() / 3;
    double meanX = 0;
    double meanY = 0;
    const auto count = static_cast<double>(points_.size() - warm);
    for (std::size_t i = warm; i < points_.size(); ++i) {
        meanX += points_[i].samples / 1000.0 / count;
        meanY += points_[i].memory / count;
    }
    double xy = 0;
    double xx = 0;
    for (std::size_t i = warm; i < points_.size(); ++i) {
        const double x = points_[i].samples / 1000.0 - meanX;
        xy += x * (points_[i].memory - meanY);
        xx += x * x;
    }
    return xx > 0 ? xy / xx : 0;
}

bool Consumption::Judge(double mostMemory) const
{
    if (points_.size() < 4) {
        std::printf("  too few readings to judge\n");
        return false;
    }
    const Point& warm = points_[points_.size() / 3];
    const Point& last = points_.back();
    const double slope = MemorySlope();
    std::printf(
        "  memory %.1f MB at reading %d, %.1f MB at %d: %.1f KB more per 1000 readings (at most %.0f%s)\n",
        warm.memory / 1024, warm.samples, last.memory / 1024, last.samples, slope, mostMemory,
        kMemoryTells ? "" : ", not judged under a sanitizer");
    std::printf("  open files %d, then %d; CPU %.2f ms per reading\n", warm.handles, last.handles,
                1000 * (last.cpuSeconds - warm.cpuSeconds) / std::max(1, last.samples - warm.samples));
    return (slope <= mostMemory || !kMemoryTells) && last.handles <= warm.handles;
}

} // namespace quorvane
