#include "measure/Exposure.h"

#include <gtest/gtest.h>
#include <vector>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr LocalMoment kStart = std::chrono::local_days(std::chrono::year(2024) / 5 / 1) + 8h;

TEST(Exposure, WindowCoversFifteenMinutes)
{
    const std::pair<int, int> rows[] = {{1, 900}, {2, 450}, {7, 129}, {8, 113}, {30, 30}, {60, 15},
                                        {599, 2}, {600, 2}, {700, 2}, {900, 1}, {899, 2}, {1800, 1}};
    for (const auto& [seconds, length] : rows)
        EXPECT_EQ(WindowLength(seconds), length) << seconds << " s";
}

TEST(Exposure, AveragesTheWholeRunAndTheLastFifteenMinutes)
{
    const AlarmLimits limits{10, 10, 10};
    Exposure exposure(limits);
    exposure.Begin(1);
    // Reading k is k mg/m3: the mean of a to b is (a + b) / 2.
    for (int k = 1; k <= 2000; ++k) {
        exposure.Add(k, k);
        ASSERT_DOUBLE_EQ(exposure.TimeWeightedAverage(k), (1 + k) / 2.0) << k;
        const int first = k <= 900 ? 1 : k - 899;
        ASSERT_DOUBLE_EQ(exposure.ShortTerm(), (first + k) / 2.0) << k;
    }
    exposure.Begin(900);
    exposure.Add(1, 5);
    exposure.Add(2, 7);
    EXPECT_EQ(exposure.ShortTerm(), 7) << "a window of one reading";
    EXPECT_EQ(exposure.TimeWeightedAverage(2), 6) << "nothing of the run before";
}

/// A run given by its short-term values; the other values stay out of the way unless a row names them.
class Shift {
public:
    explicit Shift(const AlarmLimits& limits) : limits_(limits), exposure_(limits_) { Begin(); }
    void Begin()
    {
        exposure_.Begin(60);
        sample_ = 0;
    }

    LampsLit At(std::chrono::seconds time, double stel, double conc = 0, double twa = 0)
    {
        return exposure_.Check(++sample_, conc, twa, stel, kStart + time);
    }
    bool StelAt(std::chrono::seconds time, double stel) { return At(time, stel).stel; }
    /// An excursion above the TWA limit of one minute. @return whether it lights the STEL lamp
    bool ExcursionAt(std::chrono::seconds time)
    {
        const bool lit = StelAt(time, 2.5);
        return StelAt(time + 60s, 1.0) || lit;
    }
    void ResetAt(std::chrono::seconds time) { exposure_.StartSpan(kStart + time); }

private:
    AlarmLimits limits_;
    Exposure exposure_;
    int sample_ = 0;
};

constexpr AlarmLimits kLimits{.TwaAlarm = 2, .StelAlarm = 3, .CAlarm = 4};

TEST(Exposure, ComparesEachLimitInItsOwnWay)
{
    Shift shift(kLimits);
    shift.At(0s, 0);
    shift.At(901s, 0);
    // Equal: the ceiling lights, the others do not.
    const LampsLit equal = shift.At(902s, 3, 4, 2);
    EXPECT_TRUE(equal.ceiling);
    EXPECT_FALSE(equal.stel);
    EXPECT_FALSE(equal.twa);
    const LampsLit above = shift.At(903s, 3.001, 3.999, 2.001);
    EXPECT_FALSE(above.ceiling);
    EXPECT_TRUE(above.stel);
    EXPECT_TRUE(above.twa);
}

TEST(Exposure, IsSilentAboutTheShortTermInTheFirstFifteenMinutes)
{
    Shift shift(kLimits);
    const LampsLit first = shift.At(0s, 9, 9, 9);
    EXPECT_TRUE(first.ceiling) << "the ceiling and the TWA limit speak from the first reading on";
    EXPECT_TRUE(first.twa);
    EXPECT_FALSE(first.stel);
    EXPECT_FALSE(shift.StelAt(900s, 9)) << "exactly 15 minutes are not yet more than 15";
    EXPECT_TRUE(shift.StelAt(901s, 9));
}

TEST(Exposure, WantsExcursionsToBeAnHourApart)
{
    struct Row {
        std::string_view what;
        std::chrono::seconds distance;
        bool lit;
    };
    for (const Row& row : {Row{"59 minutes", 59min, true}, Row{"exactly an hour", 1h, true},
                           Row{"an hour and a second", 1h + 1s, false}, Row{"61 minutes", 61min, false}}) {
        Shift shift(kLimits);
        shift.At(0s, 0);
        EXPECT_FALSE(shift.ExcursionAt(1000s)) << "the first one is free"; // ends at 1060 s
        EXPECT_EQ(shift.ExcursionAt(1060s + row.distance), row.lit) << row.what;
    }
}

TEST(Exposure, BeginsAndEndsAnExcursionAtTheLimitItself)
{
    Shift shift(kLimits);
    shift.At(0s, 0);
    shift.At(901s, 2); // >= begins
    shift.At(902s, 2); // <= ends
    EXPECT_TRUE(shift.StelAt(903s, 2)) << "so the same value begins a second one, too soon";
}

TEST(Exposure, AnExcursionDuringTheFirstFifteenMinutesCountsFromTheirEnd)
{
    Shift shift(kLimits);
    shift.At(0s, 2.5);
    EXPECT_FALSE(shift.StelAt(902s, 2.5)); // the first excursion begins here
    EXPECT_FALSE(shift.StelAt(903s, 1));
    EXPECT_TRUE(shift.StelAt(904s, 2.5)) << "the second";
}

TEST(Exposure, ANewRunForgetsTheExcursionsOfTheOneBefore)
{
    Shift shift(kLimits);
    shift.At(0s, 0);
    for (int k = 1; k <= 4; ++k)
        shift.ExcursionAt(k * 90min);
    shift.At(370min, 2.5); // and ends in the middle of one
    shift.Begin();
    shift.At(371min, 9);
    EXPECT_FALSE(shift.StelAt(372min, 9)) << "the first fifteen minutes are silent again";
    EXPECT_FALSE(shift.StelAt(387min, 2.5)) << "the first excursion of this run";
    EXPECT_FALSE(shift.StelAt(388min, 1));
    EXPECT_TRUE(shift.StelAt(389min, 2.5));
}

TEST(Exposure, AllowsFourExcursionsInEightHours)
{
    Shift shift(kLimits);
    shift.At(0s, 0);
    for (int k = 1; k <= 4; ++k)
        EXPECT_FALSE(shift.ExcursionAt(k * 90min)) << k;
    EXPECT_TRUE(shift.StelAt(450min, 2.5)) << "the fifth, in the same span";
    EXPECT_TRUE(shift.StelAt(8h, 1)) << "and it stays too many until the span is over";
    EXPECT_FALSE(shift.StelAt(8h + 1s, 1)) << "a new span";
    for (int k = 0; k < 4; ++k)
        EXPECT_FALSE(shift.ExcursionAt(9h + 2h * k)) << k;
    EXPECT_FALSE(shift.StelAt(17h, 1)) << "the next span begins with the first reading after it";
}

TEST(Exposure, StartsTheSpanWithTheRunAndAtAReset)
{
    Shift shift(kLimits);
    shift.At(0s, 0);
    for (int k = 1; k <= 4; ++k)
        shift.ExcursionAt(k * 90min);
    shift.ResetAt(7h);
    EXPECT_FALSE(shift.StelAt(450min, 2.5)) << "the count began again";
    EXPECT_FALSE(shift.StelAt(460min, 1));
    EXPECT_TRUE(shift.StelAt(470min, 2.5)) << "distance to the last one is still watched";

    Shift next(kLimits);
    next.At(0s, 0);
    next.Begin();
    next.At(4h, 0);
    for (int k = 1; k <= 4; ++k)
        EXPECT_FALSE(next.ExcursionAt(4h + k * 90min)) << k;
    EXPECT_TRUE(next.StelAt(690min, 2.5)) << "in eight hours of this run, not of the one before";
}

} // namespace
} // namespace quorvane
