#include "measure/MeasurementArrays.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(MeasurementArrays, EveryRunStartsWithEmptyReadings)
{
    MeasurementArrays arrays;
    arrays.Create(3);
    for (auto* numbers : {&arrays.CountValue, &arrays.ConcValue, &arrays.DerivedValueA, &arrays.DerivedValueB,
                          &arrays.IntegratedCount, &arrays.IntegratedConc})
        (*numbers)[3] = 7;
    for (auto* texts : {&arrays.MeasureTime, &arrays.ExtraField, &arrays.ReplyLine})
        (*texts)[3] = "x";
    arrays.Moment[3] = LocalMoment(std::chrono::seconds(7));

    arrays.Create(4);

    const std::vector<double> zeros(5, 0.0);
    const std::vector<std::string> empty(5);
    for (auto* numbers : {&arrays.CountValue, &arrays.ConcValue, &arrays.DerivedValueA, &arrays.DerivedValueB,
                          &arrays.IntegratedCount, &arrays.IntegratedConc})
        EXPECT_EQ(*numbers, zeros);
    for (auto* texts : {&arrays.MeasureTime, &arrays.ExtraField, &arrays.ReplyLine})
        EXPECT_EQ(*texts, empty);
    EXPECT_EQ(arrays.Moment, std::vector<LocalMoment>(5));
}

} // namespace
} // namespace quorvane
