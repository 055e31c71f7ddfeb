#include "graph/ReadingHint.h"

#include "tests/support/FakeChart.h"
#include "tests/support/FixedLocale.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(ReadingHint, TellsTimeAndCurvesOfTheView)
{
    using F = GraphFlags;
    ChartWorld with;
    with.Give(0, 5);
    with.Give(1, 12.5);
    with.arrays.MeasureTime[2] = "09:30:01";
    const StringTable english(TableLanguage::English);
    const Texts texts(english, with.state);
    const auto hint = [&](int sample) { return ReadingHint(with.arrays, with.state, sample, texts, ","); };

    EXPECT_EQ(hint(2), "") << "no curve";
    with.Choose({&F::RelativeCFlg, &F::RelativeIntegratedFlg, &F::MassCFlg});
    EXPECT_EQ(hint(2), "09:30:01\nRelative [CPM]: 12,5\nRelative, integrated [CPM]: 17,5");
    with.Choose({&F::MassTWAFlg, &F::MassCFlg, &F::MassSTELFlg, &F::MassIntegratedFlg});
    EXPECT_EQ(hint(2), "09:30:01\nMass [mg/m3]: 1,25\nTWA [mg/m3]: 0,625\nSTEL [mg/m3]: 0,3125\n"
                       "Mass, integrated [mg/m3]: 1,75");
    with.arrays.Averages = false;
    EXPECT_EQ(hint(2), "09:30:01\nMass [mg/m3]: 1,25\nMass, integrated [mg/m3]: 1,75");
    EXPECT_EQ(hint(0), "") << "no reading";
    EXPECT_EQ(hint(101), "");
}

TEST(ReadingHint, TellsTheGapsAroundIt)
{
    ChartWorld with;
    for (const int seconds : {0, 100, 101})
        with.Give(seconds, 1);
    with.arrays.Gaps = {{2, GapKind::PortLost, ChartWorld::At(0), ChartWorld::At(99)},
                        {2, GapKind::ClockSet, ChartWorld::At(99), ChartWorld::At(90)},
                        {4, GapKind::Standstill, ChartWorld::At(86390), ChartWorld::At(2 * 86400)}};
    const StringTable english(TableLanguage::English);
    const Texts texts(english, with.state);
    const FixedLocale locale;
    const auto hint = [&](int sample, int seconds) {
        return GapHint(with.arrays, sample, ChartWorld::Days(seconds), texts, locale);
    };
    const std::string lost =
        "\nGap: the port was lost, readings are missing\n2024/05/01 00:00:00 - 00:01:39 (01:39)"
        "\nThe computer's clock was set; no reading is missing\n"
        "2024/05/01 00:01:39 -> 00:01:30";
    EXPECT_EQ(hint(1, -5), "");
    EXPECT_EQ(hint(1, 5), lost) << "the reading before is the nearest one";
    EXPECT_EQ(hint(2, 95), lost);
    EXPECT_EQ(hint(3, 101), "");
    EXPECT_EQ(hint(3, 102), "\nGap: the computer stood still, readings may be missing\n"
                            "2024/05/01 23:59:50 - 2024/05/03 00:00:00 (24:00:10)");
    EXPECT_EQ(hint(0, 5), "");
}

} // namespace
} // namespace quorvane
