#include "cli/ConsolePrompts.h"

namespace quorvane {
namespace {

std::optional<std::string> Named(const std::string& file)
{
    return file.empty() ? std::nullopt : std::optional(file);
}

std::string OnOneLine(std::string_view text)
{
    std::string line;
    for (const char c : text) {
        const bool blank = c == ' ' || c == '\r' || c == '\n';
        if (!blank)
            line += c;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    return line;
}

} // namespace

Answer ConsolePrompts::Show(const Message& message)
{
    console_.Say(OnOneLine(message.text));
    if (!message.detail.empty())
        console_.Say(OnOneLine(message.detail));
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
