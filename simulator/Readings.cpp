#include "simulator/Readings.h"

#include "app/CommandOptions.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace quorvane {
namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view SecondColumn(std::string_view line)
{
    const std::size_t comma = line.find(',');
    if (comma == std::string_view::npos)
        return {};
    const std::string_view rest = line.substr(comma + 1);
    return Trimmed(rest.substr(0, rest.find(',')));
}

std::optional<double> Concentration(std::string_view text)
{
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stopped != end || !std::isfinite(value) || value < 0)
        return std::nullopt;
    return value;
}

} // namespace

double SeededRandom::Fraction()
{
    constexpr double kStep = 1.0 / 9007199254740992.0; // 2 to the -53: as many steps as a double holds
    return static_cast<double>(engine_() >> 11U) * kStep;
}

std::optional<double> RecordedReadings::Next()
{
    if (next_ == values_.size()) {
        if (atEnd_ == AtEnd::Silence)
            return std::nullopt;
        next_ = atEnd_ == AtEnd::Loop ? 0 : next_ - 1;
    }
    return values_[next_++];
}

std::optional<double> GeneratedDust::Next()
{
    constexpr double kUsualLevel = 0.04; // mg/m3
    constexpr double kReturn = 0.01;     // part of the way back to the usual level, per reading
    constexpr double kStep = 0.12;
    constexpr double kBurstChance = 1.0 / 150;
    constexpr double kBurstFade = 0.93;

    wander_ += kStep * (random_.Fraction() - random_.Fraction()) - kReturn * wander_;
    burst_ *= kBurstFade;
    if (random_.Fraction() < kBurstChance)
        burst_ += 0.05 + 4 * std::pow(random_.Fraction(), 3); // mostly small ones
    const double flicker = 1 + 0.1 * (random_.Fraction() - 0.5);
    return std::clamp((kUsualLevel * std::exp(wander_) + burst_) * flicker, 0.005, 5.0);
}

std::optional<std::string> ParseReadings(std::string_view text, std::vector<double>& values)
{
    values.clear();
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        const std::string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (number == 1 || line.empty())
            continue;
        const std::string_view column = SecondColumn(line);
        const std::optional<double> value = Concentration(column);
        if (!value)
            return "line " + std::to_string(number) + ": the second column is " + Quoted(column) +
                   ", not a concentration in mg/m3";
        values.push_back(*value);
    }
    if (values.empty())
        return "there is no reading in it";
    return std::nullopt;
}

} // namespace quorvane
