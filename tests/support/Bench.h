#pragma once

#include "tests/support/ChildProgram.h"
#include "tests/support/CommandLine.h"

#include <string>
#include <utility>
#include <vector>

namespace quorvane {

/// A simulated instrument and a folder for the command line's files, as on an operator's bench.
class Bench {
public:
    /// @param instrument  arguments of the simulated instrument
    explicit Bench(const std::vector<std::string>& instrument)
        : instrument_(QUORVANE_INSTRUMENT, WithLink(instrument), folder_.Path("instrument.txt")),
          device_(instrument_.NextLine())
    {
    }

    /// Starts a measurement from the instrument into `Output()`.
    [[nodiscard]] ChildProgram Measure(const std::vector<std::string>& more) const
    {
        std::vector<std::string> arguments{"measure", "--port", Port(), "--output", Output()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Start(arguments, "errors.txt");
    }
    [[nodiscard]] ChildProgram Start(const std::vector<std::string>& arguments,
                                     const std::string& errors) const
    {
        const std::vector<std::string>& start = TriedCommandLine().start;
        std::vector<std::string> words(start.begin() + 1, start.end());
        words.insert(words.end(), arguments.begin(), arguments.end());
        return {start.front(), words, folder_.Path(errors), Environment()};
    }
    /// The command line's environment. Where COM names are given to devices, COM15 is the instrument's.
    [[nodiscard]] std::map<std::string, std::string> Environment() const
    {
        return {{"QUORVANE_HOME", folder_.Path()},
                {"QUORVANE_COM15", device_},
                {"LC_ALL", TriedCommandLine().locale}};
    }

    [[nodiscard]] const std::string& Device() const { return device_; }
    /// What --port calls the instrument's line.
    [[nodiscard]] const std::string& Port() const
    {
        return TriedCommandLine().port.empty() ? device_ : TriedCommandLine().port;
    }
    [[nodiscard]] std::string Output() const { return folder_.Path("測定 1.csv"); }
    /// What the command line has said so far.
    [[nodiscard]] std::string Said() const { return FileBytes(folder_.Path("errors.txt")); }
    [[nodiscard]] std::string ErrorLog() const { return FileBytes(folder_.Path("RSErr.log")); }
    [[nodiscard]] const ScratchFolder& Folder() const { return folder_; }
    /// The data rows of the saved file.
    [[nodiscard]] std::vector<std::string> Rows() const
    {
        std::vector<std::string> lines;
        std::string bytes = FileBytes(Output());
        for (std::size_t end = 0; (end = bytes.find("\r\n")) != std::string::npos; bytes.erase(0, end + 2))
            lines.push_back(bytes.substr(0, end));
        constexpr std::ptrdiff_t kHeading = 5;
        if (lines.size() < kHeading)
            return {};
        return {lines.begin() + kHeading, lines.end()};
    }

private:
    static std::vector<std::string> WithLink(std::vector<std::string> instrument)
    {
        if (const std::string& link = TriedCommandLine().link; !link.empty())
            instrument.insert(instrument.end(), {"--link", link});
        return instrument;
    }

    ScratchFolder folder_;
    ChildProgram instrument_;
    std::string device_;
};

} // namespace quorvane
