#pragma once

#include "app/Prompts.h"
#include "cli/Console.h"

#include <string>

namespace quorvane {

/// Messages on the terminal. Nothing is asked: the file to save to was named on
/// the command line.
class ConsolePrompts : public Prompts {
public:
    ConsolePrompts(Console& console, std::string saveName) : console_(console), saveName_(std::move(saveName))
    {
    }

    /// Prints the message, its line ends as one blank. @return Ok, or a question's unattended answer
    Answer Show(const Message& message) override;
    [[nodiscard]] std::optional<std::string> AskSaveName(const SaveQuestion& question) override;
    /// Nothing is opened on the command line.
    [[nodiscard]] std::optional<std::string> AskOpenName(const OpenQuestion& question) override;

private:
    Console& console_;
    std::string saveName_;
};

} // namespace quorvane
