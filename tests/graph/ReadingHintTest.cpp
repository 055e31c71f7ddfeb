#include "graph/ReadingHint.h"

#include "tests/support/FakeChart.h"

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

} // namespace
} // namespace quorvane
