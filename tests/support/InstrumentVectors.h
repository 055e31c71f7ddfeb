#pragma once

#include "app/LocalClock.h"

#include <chrono>
#include <string_view>
#include <vector>

namespace quorvane {

// What passes over the line, byte by byte, written by hand. The program's side and the simulated instrument
// are held against the same bytes and share no code that makes them.

/// One request and what an instrument with nothing wrong sends back.
struct Exchange {
    std::string_view what;
    char letter;
    std::string_view parameters;
    std::string_view request;
    std::string_view answer;
};

/// A measuring program as the operator entered it, with a short date written "yyyy/MM/dd".
struct ProgramVector {
    Exchange exchange;
    std::string_view startDate;
    std::string_view startTime;
    double hours;
    double minutes;
    double count;
};

/// The moment that the clock is set to, and the clock record that the instrument sends then.
struct ClockVector {
    Exchange exchange;
    LocalMoment moment;
    std::string_view record;
};

struct KFactorVector {
    Exchange exchange;
    double kFactor; ///< mg/m3 per count per minute
};

/// What the instrument's clock shows when the exchanges begin.
inline constexpr LocalMoment kVectorClock = std::chrono::local_days(std::chrono::year(2024) / 5 / 1) +
                                            std::chrono::hours(9) + std::chrono::minutes(30);

// clang-format off
inline constexpr Exchange kPlainVectors[] = {
    {"link check",    'N', "", "N\r\n", "AN\r\n"},
    {"live stream",   'D', "", "D\r\n", "AD\r\n"},
    {"clock reading", 'M', "", "M\r\n", "AM\r\n2024/05/01 09:30:00\r\n"},
};

inline constexpr ProgramVector kProgramVectors[] = {
    {{"usual program", 'P', "2024/05/01;09:30:00;01:30;00120", "P2024/05/01;09:30:00;01:30;00120\r\n", "AP\r\n"},
     "2024/05/01", "09:30:00", 1, 30, 120},
    {{"no date", 'P', ";09:30:00;05:00;00007", "P;09:30:00;05:00;00007\r\n", "AP\r\n"},
     "", "09:30:00", 5, 0, 7},
    {{"date left open, least", 'P', "0000/00/00;00:00:00;00:01;00001", "P0000/00/00;00:00:00;00:01;00001\r\n", "AP\r\n"},
     "0000/00/00", "00:00:00", 0, 1, 1},
    {{"leap day, most", 'P', "2028/02/29;23:59:59;99:59;30000", "P2028/02/29;23:59:59;99:59;30000\r\n", "AP\r\n"},
     "2028/02/29", "23:59:59", 99, 59, 30000},
};

inline constexpr ClockVector kClockVectors[] = {
    {{"usual clock", 'T', "2024;05;01;09;30;00", "T2024;05;01;09;30;00\r\n", "AT\r\n"},
     kVectorClock, "2024/05/01 09:30:00\r\n"},
    {{"midnight", 'T', "2024;02;29;00;00;00", "T2024;02;29;00;00;00\r\n", "AT\r\n"},
     std::chrono::local_days(std::chrono::year(2024) / 2 / 29), "2024/02/29 00:00:00\r\n"},
    {{"end of the year", 'T', "2026;12;31;23;59;59", "T2026;12;31;23;59;59\r\n", "AT\r\n"},
     std::chrono::local_days(std::chrono::year(2027) / 1 / 1) - std::chrono::seconds(1), "2026/12/31 23:59:59\r\n"},
};

inline constexpr KFactorVector kKFactorVectors[] = {
    {{"usual factor",   'E', "1.2", "E1.2\r\n", "AE\r\n"}, 0.0012},
    {{"least factor",   'E', "0.1", "E0.1\r\n", "AE\r\n"}, 0.0001},
    {{"whole factor",   'E', "2.0", "E2.0\r\n", "AE\r\n"}, 0.002},
    {{"highest factor", 'E', "9.9", "E9.9\r\n", "AE\r\n"}, 0.0099},
};
// clang-format on

/// The rows of all tables.
[[nodiscard]] inline std::vector<Exchange> RecordedExchanges()
{
    std::vector<Exchange> all(std::begin(kPlainVectors), std::end(kPlainVectors));
    const auto add = [&all](const auto& vectors) {
        for (const auto& vector : vectors)
            all.push_back(vector.exchange);
    };
    add(kProgramVectors);
    add(kClockVectors);
    add(kKFactorVectors);
    return all;
}

} // namespace quorvane
