#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane {

/// Numbers that look random and are the same on every machine and in every run.
class SeededRandom {
public:
    explicit SeededRandom(std::uint64_t seed) : engine_(seed) {}
    /// At least 0 and below 1.
    [[nodiscard]] double Fraction();

private:
    std::mt19937_64 engine_;
};

/// Where a simulated instrument takes its concentrations from.
class ReadingSource {
public:
    virtual ~ReadingSource() = default;
    /// Back to the first reading.
    virtual void Restart() = 0;
    /// @return the next concentration in mg/m3, or nothing when there are no more
    [[nodiscard]] virtual std::optional<double> Next() = 0;
};

/// What comes after the last recorded reading.
enum class AtEnd { Repeat, Silence, Loop };

/// Recorded readings.
class RecordedReadings : public ReadingSource {
public:
    /// `values` holds at least one reading, in mg/m3.
    RecordedReadings(std::vector<double> values, AtEnd atEnd) : values_(std::move(values)), atEnd_(atEnd) {}
    void Restart() override { next_ = 0; }
    [[nodiscard]] std::optional<double> Next() override;

private:
    std::vector<double> values_;
    AtEnd atEnd_;
    std::size_t next_ = 0;
};

/// Endless dust as it might be met on a walk through a workshop: a background that wanders slowly, with
/// bursts that settle again. 0.005 to 5 mg/m3.
class GeneratedDust : public ReadingSource {
public:
    void Restart() override { *this = GeneratedDust(); }
    [[nodiscard]] std::optional<double> Next() override;

private:
    SeededRandom random_{20260};
    double wander_ = 0; ///< natural logarithm of background over its usual level
    double burst_ = 0;  ///< mg/m3 above the background
};

/// Reads comma-separated text: one header line, then a concentration in mg/m3, 0 or more, in the second
/// column of each line. Lines end in LF or CR LF; blank lines are skipped.
/// @return what is wrong with it, with the line's number, or nothing and at least one value
[[nodiscard]] std::optional<std::string> ParseReadings(std::string_view text, std::vector<double>& values);

} // namespace quorvane
