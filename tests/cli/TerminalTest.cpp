#include "tests/support/Bench.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <thread>
#include <unistd.h>

namespace quorvane {
namespace {

using testing::HasSubstr;

/// A terminal on which the command line runs, with nobody reading it but the test.
class TerminalTest : public testing::Test {
protected:
    TerminalTest()
    {
        char name[128];
        EXPECT_EQ(openpty(&screen_, &held_, name, nullptr, nullptr), 0);
        fcntl(screen_, F_SETFL, O_NONBLOCK);
        path_ = name;
    }
    ~TerminalTest() override
    {
        close(screen_);
        close(held_);
    }

    /// Measures made-up readings with both output streams on the terminal.
    [[nodiscard]] ChildProgram Measure(const std::string& options) const
    {
        const std::string command = std::string("exec ") + QUORVANE_CLI +
                                    " measure --simulate --interval 1 " + options + " --output '" +
                                    bench_.Output() + "' >" + path_ + " 2>&1";
        return {"/bin/sh",
                {"-c", command},
                bench_.Folder().Path("errors.txt"),
                {{"QUORVANE_HOME", bench_.Folder().Path()}, {"LC_ALL", "C"}}};
    }
    [[nodiscard]] std::string Shown() const
    {
        std::string text(65536, ' ');
        const ssize_t length = read(screen_, text.data(), text.size());
        text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
        return text;
    }

    Bench bench_{{}};
    int screen_ = -1;
    int held_ = -1;
    std::string path_;
};

TEST_F(TerminalTest, ShowsTheProgressBelowTheRows)
{
    ChildProgram program = Measure("--samples 3 --speed 4");
    EXPECT_EQ(program.Wait(), 0);
    std::string shown = Shown();
    EXPECT_THAT(shown, HasSubstr("1/3  -00:00"));
    const std::string erase = "\r\x1b[K";
    std::vector<std::string> lines;
    for (std::size_t end = 0; (end = shown.find("\r\n")) != std::string::npos; shown.erase(0, end + 2)) {
        const std::size_t progress = shown.substr(0, end).rfind(erase);
        lines.push_back(progress == std::string::npos
                            ? shown.substr(0, end)
                            : shown.substr(progress + erase.size(), end - progress - erase.size()));
    }
    using testing::StartsWith;
    EXPECT_THAT(lines, testing::ElementsAre(StartsWith("        No."), StartsWith("          1   "),
                                            StartsWith("          2   "), StartsWith("          3   "),
                                            "Saved: " + bench_.Output() + " (3)"));
    EXPECT_EQ(shown, "") << "no progress is left behind";
}

TEST_F(TerminalTest, ATerminalThatTakesNothingHoldsNothingUp)
{
    ChildProgram program = Measure("--samples 2000 --speed 5000");
    while (bench_.Rows().size() < 2000) // more than the terminal holds
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    program.Signal(SIGINT); // or it would wait for somebody who reads
    EXPECT_EQ(program.Wait(), 0);
}

} // namespace
} // namespace quorvane
