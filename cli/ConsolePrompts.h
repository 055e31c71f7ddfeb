#pragma once

#include "app/Prompts.h"
#include "cli/Console.h"

#include <optional>
#include <string>
#include <utility>

namespace quorvane {

/// The files that were named on the command line; an empty name is none.
struct NamedFiles {
    std::string save;
    std::string open;
};

/// Messages on the terminal. Nothing is asked: the files were named on the command line.
class ConsolePrompts : public Prompts {
public:
    ConsolePrompts(Console& console, NamedFiles files) : console_(console), files_(std::move(files)) {}

    /// Prints the message, its line ends as one blank, and its detail below. @return Ok, or a question's
    /// unattended answer
    Answer Show(const Message& message) override;
    [[nodiscard]] std::optional<std::string> AskSaveName(const SaveQuestion& question) override;
    [[nodiscard]] std::optional<std::string> AskOpenName(const OpenQuestion& question) override;

private:
    Console& console_;
    NamedFiles files_;
};

} // namespace quorvane
