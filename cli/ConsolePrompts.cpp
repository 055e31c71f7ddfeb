#include "cli/ConsolePrompts.h"

#include <algorithm>

namespace quorvane {

Answer ConsolePrompts::Show(const Message& message)
{
    std::string line = message.text;
    for (std::size_t at = line.find("\r\n"); at != std::string::npos; at = line.find("\r\n", at))
        line.replace(at, 2, " ");
    line.erase(std::unique(line.begin(), line.end(), [](char a, char b) { return a == ' ' && b == ' '; }),
               line.end());
    console_.Say(line);
    return message.buttons == Buttons::Ok ? Answer::Ok : Answer::No;
}

std::optional<std::string> ConsolePrompts::AskSaveName(const SaveQuestion&)
{
    return saveName_;
}

} // namespace quorvane
