#include "files/NumberText.h"
#include "instrument/DateTimeText.h"
#include "measure/ReadingRecord.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <random>
#include <vector>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::seconds;

/// A run as it really was: when each reading was taken and what it was, index from 1.
struct TrueRun {
    int interval = 1;
    AlarmLimits limits;
    std::vector<LocalMoment> when{LocalMoment{}};
    std::vector<double> conc{0};
};

/// Concentrations are eighths, so that sums are exact in any order and equality with a limit really happens.
TrueRun MakeRun(std::mt19937& random)
{
    const auto draw = [&random](int least, int most) {
        return std::uniform_int_distribution(least, most)(random);
    };
    TrueRun run;
    const int intervals[] = {1, 7, 30, 60, 200, 900};
    run.interval = intervals[draw(0, 5)];
    run.limits = {.TwaAlarm = draw(2, 6) / 8.0, .StelAlarm = draw(6, 12) / 8.0, .CAlarm = draw(12, 24) / 8.0};
    LocalMoment now = std::chrono::local_days(std::chrono::year(2024) / 12 / 31) + seconds(draw(0, 86399));
    double level = 0;
    for (int sample = 1; sample <= 1500; ++sample) {
        run.when.push_back(now);
        if (draw(0, 20) == 0)
            level = draw(0, 3) == 0 ? draw(0, 28) / 8.0 : draw(0, 5) / 8.0;
        run.conc.push_back(level);
        now += seconds(run.interval);
        if (draw(0, 200) == 0)
            now += seconds(draw(1, 11 * 3600)); // a gap, shorter than the half day that the clock can tell
    }
    return run;
}

/// The rules again, each reading by itself from the whole history: slow, and without any running state.
class Recomputation {
public:
    explicit Recomputation(const TrueRun& run) : run_(run)
    {
        window_ = (900 + run.interval - 1) / run.interval; // the smallest number that covers 15 minutes
        // 7 s would need 129 = ceil(128.57); where 900 / s rounds up the two agree as well.
        for (std::size_t i = 1; i < run.when.size(); ++i)
            stel_.push_back(Mean(i > window_ ? i - window_ + 1 : 1, i));
        FindExcursions();
    }

    [[nodiscard]] double Mean(std::size_t first, std::size_t last) const
    {
        return std::accumulate(run_.conc.begin() + static_cast<std::ptrdiff_t>(first),
                               run_.conc.begin() + static_cast<std::ptrdiff_t>(last) + 1, 0.0) /
               static_cast<double>(last - first + 1);
    }
    [[nodiscard]] double Stel(std::size_t i) const { return stel_[i]; }
    [[nodiscard]] bool StelLamp(std::size_t i) const
    {
        if (Ready(i) && stel_[i] > run_.limits.StelAlarm)
            return true;
        const auto begun = std::find(begins_.begin(), begins_.end(), i);
        if (begun != begins_.end() && begun != begins_.begin() && BegunInSpan(i) > 1) {
            const auto before = static_cast<std::size_t>(begun - begins_.begin()) - 1;
            if (run_.when[i] - run_.when[ends_[before]] <= 1h)
                return true;
        }
        return BegunInSpan(i) >= 5 && run_.when[i] - run_.when[SpanStart(i)] <= 8h;
    }

private:
    [[nodiscard]] bool Ready(std::size_t i) const { return run_.when[i] - run_.when[1] > 15min; }

    void FindExcursions()
    {
        for (std::size_t i = 1; i < run_.when.size(); ++i) {
            if (!Ready(i) || stel_[i] < run_.limits.TwaAlarm)
                continue;
            begins_.push_back(i);
            do
                ++i;
            while (i < run_.when.size() && stel_[i] > run_.limits.TwaAlarm);
            ends_.push_back(i); // the ending reading does not begin the next one
        }
    }

    /// The reading at which the span that is valid for reading i began.
    [[nodiscard]] std::size_t SpanStart(std::size_t i) const
    {
        std::size_t start = 1;
        for (std::size_t k = 1; k < i; ++k) {
            if (run_.when[k] - run_.when[start] > 8h)
                start = k;
        }
        return start;
    }

    /// An excursion that begins with the reading that begins a span is forgotten with the span before.
    [[nodiscard]] long BegunInSpan(std::size_t i) const
    {
        const std::size_t start = SpanStart(i);
        return std::count_if(begins_.begin(), begins_.end(),
                             [&](std::size_t b) { return b <= i && (b > start || start == 1); });
    }

    const TrueRun& run_;
    std::size_t window_ = 1;
    std::vector<double> stel_{0};
    std::vector<std::size_t> begins_, ends_;
};

TEST(Exposure, AgreesWithASlowRecomputationOfRandomRuns)
{
    const unsigned seed = std::random_device{}();
    RecordProperty("seed", std::to_string(seed));
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    int lit = 0;
    for (int turn = 0; turn < 12; ++turn) {
        const TrueRun run = MakeRun(random);
        const Recomputation expected(run);
        MeasureSettings settings;
        settings.TotalSamples = 1500;
        settings.SamplingSeconds = static_cast<std::int16_t>(run.interval);
        MeasurementArrays arrays;
        ReadingRecord record(settings, run.limits, arrays);
        record.Begin(run.when[1]);
        for (int i = 1; i <= 1500; ++i) {
            const auto at = static_cast<std::size_t>(i);
            arrays.ReplyLine[at] = InstrumentTimeText(run.when[at]) + ";0000001;" +
                                   PatternText(run.conc[at], {3, 3, 3}) + ";1.3\r\n";
            const LampsLit lamps = record.Store(i);
            SCOPED_TRACE("turn " + std::to_string(turn) + " reading " + std::to_string(i));
            ASSERT_EQ(arrays.Moment[at].time_since_epoch(), run.when[at].time_since_epoch());
            ASSERT_EQ(arrays.DerivedValueA[at], expected.Mean(1, at));
            ASSERT_EQ(arrays.DerivedValueB[at], expected.Stel(at));
            ASSERT_EQ(lamps.ceiling, run.conc[at] >= run.limits.CAlarm);
            ASSERT_EQ(lamps.twa, expected.Mean(1, at) > run.limits.TwaAlarm);
            ASSERT_EQ(lamps.stel, expected.StelLamp(at));
            lit += lamps.stel ? 1 : 0;
        }
    }
    EXPECT_GT(lit, 0) << "runs in which nothing happens show nothing";
}

} // namespace
} // namespace quorvane
