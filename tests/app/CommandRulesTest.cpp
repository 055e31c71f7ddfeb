#include "app/CommandRules.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace quorvane {
namespace {

TEST(CommandRulesTest, FollowTheRun)
{
    struct Row {
        RunState state;
        std::int16_t dataPresent;
        std::string enabled; ///< b: start/stop button, s: start, e: end, l: limit inputs, t: settings, o:
                             ///< open, w: save, 3 and 4: Command3, Command4, p: the chart's picture
    };
    const Row rows[] = {
        {RunState::Idle, 0, "bslto34"}, {RunState::Idle, 1, "bsltow34p"}, {RunState::Preparing, 1, ""},
        {RunState::Starting, 1, "be"},  {RunState::Measuring, 0, "bep"},  {RunState::Stopping, 0, "bep"},
    };
    for (const Row& row : rows) {
        const EnabledCommands commands = CommandsIn(row.state, row.dataPresent);
        const std::pair<bool, char> letters[] = {
            {commands.command1, 'b'},    {commands.measureStart, 's'}, {commands.measureEnd, 'e'},
            {commands.limitInputs, 'l'}, {commands.settings, 't'},     {commands.open, 'o'},
            {commands.save, 'w'},        {commands.command3, '3'},     {commands.command4, '4'},
            {commands.picture, 'p'},
        };
        std::string enabled;
        for (const auto& [usable, letter] : letters)
            if (usable)
                enabled += letter;
        EXPECT_EQ(enabled, row.enabled) << static_cast<int>(row.state);
    }
}

} // namespace
} // namespace quorvane
