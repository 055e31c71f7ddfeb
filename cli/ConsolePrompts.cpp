#include "cli/ConsolePrompts.h"

namespace quorvane {
namespace {

std::optional<std::string> Named(const std::string& file)
{
    return file.empty() ? std::nullopt : std::optional(file);
}

} // namespace

Answer ConsolePrompts::Show(const Message& message)
{
    std::string line;
    for (const char c : message.text) {
        const bool blank = c == ' ' || c == '\r' || c == '\n';
        if (!blank)
            line += c;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    console_.Say(line);
    return message.buttons == Buttons::Ok ? Answer::Ok : message.unattended;
}

std::optional<std::string> ConsolePrompts::AskSaveName(const SaveQuestion&)
{
    return Named(files_.save);
}

std::optional<std::string> ConsolePrompts::AskOpenName(const OpenQuestion&)
{
    return Named(files_.open);
}

} // namespace quorvane
