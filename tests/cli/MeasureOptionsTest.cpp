#include "cli/MeasureOptions.h"

#include <gtest/gtest.h>
#include <sstream>

namespace quorvane {
namespace {

std::vector<std::string> Words(const std::string& line)
{
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), {}};
}

TEST(MeasureOptions, RefusesWhatCannotBeRun)
{
    const std::string complete = "--samples 10 --interval 1 --output x.csv";
    const std::pair<std::string, std::string> rows[] = {
        {"", "give either --port or --simulate"},
        {complete, "give either --port or --simulate"},
        {"--simulate --port COM1 " + complete, "give either --port or --simulate"},
        {"--port COM1 --random-seed 7 " + complete, "--random-seed goes with --simulate"},
        {"--simulate --interval 1 --output x", "--samples is missing"},
        {"--simulate --samples 1 --output x", "--interval is missing"},
        {"--simulate --samples 1 --interval 1", "--output is missing"},
    };
    for (const auto& [line, fault] : rows) {
        MeasureOptions options;
        const auto found = ReadMeasureOptions(Words(line), options);
        ASSERT_TRUE(found) << line;
        EXPECT_EQ(found->text, fault) << line;
    }
    for (const std::string wrong : {"--samples 0", "--samples 65501", "--samples 1.5", "--samples x",
                                    "--interval 0", "--interval 901", "--twa 0.0009", "--twa 10.1",
                                    "--stel 1e0", "--ceiling -1", "--speed 0", "--give-up 0", "--sample 1"}) {
        MeasureOptions options;
        std::string line = "--simulate " + wrong;
        for (const std::string option : {"--samples 10", "--interval 1", "--output x"}) {
            if (!wrong.starts_with(option.substr(0, option.find(' '))))
                line += " " + option;
        }
        EXPECT_TRUE(ReadMeasureOptions(Words(line), options)) << line;
    }
}

TEST(MeasureOptions, LayThemselvesOverTheSettings)
{
    ApplicationState state;
    state.RsPort = "COM4";
    state.TwaAlarm = 1;
    state.StelAlarm = 2;
    state.CAlarm = 3;
    MeasureOptions options;
    ASSERT_FALSE(ReadMeasureOptions(Words("--port com7 --samples 65500 --interval 900 --output x --stel 2.5"),
                                    options));
    ApplyOptions(options, state);
    EXPECT_TRUE(state.RunMode);
    EXPECT_EQ(state.RsPort, "COM7");
    EXPECT_EQ(state.TotalSamples, 65500);
    EXPECT_EQ(state.SamplingSeconds, 900);
    EXPECT_EQ(state.TwaAlarm, 1) << "not given: from the settings";
    EXPECT_EQ(state.StelAlarm, 2.5);

    MeasureOptions device;
    ASSERT_FALSE(ReadMeasureOptions(Words("--port /dev/COM1 --samples 1 --interval 1 --output x"), device));
    ApplyOptions(device, state);
    EXPECT_EQ(state.RsPort, "/dev/COM1");

    MeasureOptions simulated;
    ASSERT_FALSE(ReadMeasureOptions(Words("--simulate --samples 1 --interval 1 --output x"), simulated));
    ApplyOptions(simulated, state);
    EXPECT_FALSE(state.RunMode);
}

} // namespace
} // namespace quorvane
