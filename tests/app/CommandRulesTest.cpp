#include "app/CommandRules.h"

#include <gtest/gtest.h>
#include <string>

namespace quorvane {
namespace {

TEST(CommandRulesTest, FollowTheRun)
{
    struct Row {
        RunState state;
        std::int16_t dataPresent;
        std::string enabled; ///< b: start/stop button, s: start, e: end, l: limit inputs, w: save
    };
    const Row rows[] = {
        {RunState::Idle, 0, "bsl"},    {RunState::Idle, 1, "bslw"},    {RunState::Preparing, 1, ""},
        {RunState::Starting, 1, "be"}, {RunState::Measuring, 0, "be"}, {RunState::Stopping, 0, "be"},
    };
    for (const Row& row : rows) {
        const EnabledCommands commands = CommandsIn(row.state, row.dataPresent);
        const std::string enabled = std::string(commands.command1 ? "b" : "") +
                                    (commands.measureStart ? "s" : "") + (commands.measureEnd ? "e" : "") +
                                    (commands.limitInputs ? "l" : "") + (commands.save ? "w" : "");
        EXPECT_EQ(enabled, row.enabled) << static_cast<int>(row.state);
    }
}

} // namespace
} // namespace quorvane
