#include "tests/support/CommandLine.h"

#include <cstdlib>
#include <stdexcept>

namespace quorvane {
namespace {

std::string Variable(const char* name)
{
    const char* const text = std::getenv(name);
    if (text == nullptr)
        throw std::runtime_error(std::string(name) + " is not set");
    return text;
}

CommandLine Named()
{
    const std::string tooLong(300, 'n');
    if (std::getenv("QUORVANE_WINDOWS_CLI") == nullptr)
        return {.start = {QUORVANE_CLI},
                .link = "",
                .port = "",
                .comName = "COM15",
                .locale = "C",
                .absentFile = "No such file",
                .absentFolder = "No such file",
                .impossibleNames = {tooLong}};
    const std::string number = Variable("QUORVANE_WINDOWS_PORT");
    return {.start = {Variable("QUORVANE_WINDOWS_RUNNER"), Variable("QUORVANE_WINDOWS_CLI")},
            .link = Variable("QUORVANE_WINE") + "/ports/com" + number,
            .port = "COM" + number,
            .comName = "COM" + number,
            .locale = "C.UTF-8",
            .absentFile = "File not found",
            .absentFolder = "Path not found",
            .impossibleNames = {tooLong, "10:30.csv", "what?.csv"}};
}

} // namespace

const CommandLine& TriedCommandLine()
{
    static const CommandLine named = Named();
    return named;
}

} // namespace quorvane
