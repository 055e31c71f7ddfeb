#pragma once

#include "measure/MeasurementRun.h"
#include "tests/support/LinkWorld.h"

#include <string>
#include <utility>
#include <vector>

namespace quorvane {

/// A program in the discrete-event world with an instrument on its line. The instrument is a script: it
/// answers "N", ends its stream at any command, and on "D" sends the given lines, one each interval.
struct InstrumentWorld : LinkWorld {
    explicit InstrumentWorld(LocalMoment start = std::chrono::local_days(std::chrono::year(2024) / 5 / 1) +
                                                 std::chrono::hours(9) + std::chrono::minutes(30))
        : LinkWorld(start)
    {
        state.TotalSamples = 3;
        state.SamplingSeconds = 1;
        state.TwaAlarm = state.StelAlarm = state.CAlarm = 10;
        port.onOutput = [this](const std::string& text) { Respond(text); };
    }

    // What a run works with.
    MeasurementArrays arrays;
    WorldTimer timer2{world};
    WorldTimer timer3{world};
    [[nodiscard]] RunServices Services(RandomSource random)
    {
        return {.link = link,
                .control = port,
                .pump = world,
                .timer1 = timer1,
                .timer2 = timer2,
                .timer3 = timer3,
                .clock = world,
                .prompts = prompts,
                .log = log,
                .texts = texts,
                .random = std::move(random)};
    }

    // The instrument's script.
    std::vector<std::string> lines; ///< behind the last one there is silence
    std::chrono::milliseconds interval{1000};
    std::string acknowledgement = "AD\r\n";
    bool answersLinkChecks = true;
    std::string linkAnswer = "AN\r\n";
    World::Time lastAnswer{}; ///< when "N" was answered last

    /// A four-field line, taken so many seconds after 09:30.
    static std::string Line(int second, const std::string& conc = "001.250")
    {
        const auto two = [](int n) { return (n < 10 ? "0" : "") + std::to_string(n); };
        return "09:" + two(30 + second / 60) + ":" + two(second % 60) + ";0000012;" + conc + ";1.2\r\n";
    }
    void GiveLines(int count)
    {
        for (int second = 1; second <= count; ++second)
            lines.push_back(Line(second));
    }

    [[nodiscard]] std::vector<std::string> Messages() const
    {
        std::vector<std::string> shown;
        for (const Message& message : prompts.messages)
            shown.push_back(message.text);
        return shown;
    }

private:
    void Respond(const std::string& text)
    {
        ++stream_; // any command ends the stream that runs
        if (text == "N\r\n" && answersLinkChecks)
            world.After(std::chrono::milliseconds(20), [this] {
                port.Arrive(linkAnswer);
                lastAnswer = world.Elapsed();
            });
        if (text == "D\r\n") {
            port.Deliver(std::chrono::milliseconds(20), acknowledgement);
            SendLine(0, stream_);
        }
    }
    void SendLine(std::size_t index, int stream)
    {
        world.After(interval, [this, index, stream] {
            if (stream != stream_ || index >= lines.size())
                return;
            port.Arrive(lines[index]);
            SendLine(index + 1, stream);
        });
    }

    int stream_ = 0;
};

} // namespace quorvane
