#include "files/NumberText.h"
#include "tests/soak/Soak.h"
#include "tests/support/RunWorld.h"
#include "tests/support/ScriptedPorts.h"

#include <algorithm>
#include <cstdio>
#include <random>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

/// The readings' texts and the records of the gaps.
constexpr double kMostPerThousand = 250;
constexpr LocalMoment kEvening = std::chrono::local_days(std::chrono::year(2024) / 5 / 1) + 20h;
const PortDescription kAdapter{"FTDI", "FT232R", "A1", "1-2", "1.0"};

/// An instrument that streams whoever listens, behind an adapter that comes and goes.
class PluggedLine {
public:
    PluggedLine(InstrumentWorld& w, ScriptedPorts& ports, unsigned seed) : w_(w), ports_(ports), random_(seed)
    {
        ports_.plugged[1].description = kAdapter;
    }

    /// From the request for readings on.
    void Begin()
    {
        opened_ = w_.port.opened;
        w_.port.Arrive("AD\r\n");
        SendLine();
        w_.world.After(Below(3600) * 1s, [this] { PullOut(); });
    }
    /// What a listener has to have taken who drops the first line after each return.
    [[nodiscard]] std::vector<std::string> Expected()
    {
        EndEpoch();
        return expected_;
    }
    [[nodiscard]] int Pulls() const { return pulls_; }
    [[nodiscard]] int Sent() const { return sent_; }

private:
    [[nodiscard]] int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }

    void SendLine()
    {
        const LocalMoment now = kEvening + std::chrono::seconds(++sent_);
        const std::chrono::hh_mm_ss time(now - std::chrono::floor<std::chrono::days>(now));
        const auto two = [](std::chrono::seconds::rep n) { return (n < 10 ? "0" : "") + std::to_string(n); };
        waiting_ += two(time.hours().count()) + ":" + two(time.minutes().count()) + ":" +
                    two(time.seconds().count()) + ";" + PatternText(sent_, {7, 0, 0}) + ";001.250;1.2\r\n";
        if (Below(8) != 0) // else it comes with the next one
            SendWaiting();
        w_.world.After(1s, [this] { SendLine(); });
    }
    void SendWaiting()
    {
        World::Time at{};
        while (!waiting_.empty()) {
            const std::string piece = waiting_.substr(0, static_cast<std::size_t>(1 + Below(30)));
            waiting_.erase(0, piece.size());
            w_.world.After(at, [this, piece] { Deliver(piece); });
            at += 300us + Below(60'000) * 1us;
        }
    }
    void Deliver(const std::string& piece)
    {
        if (w_.port.opened != opened_) {
            opened_ = w_.port.opened;
            gone_ = false;
        }
        if (gone_ || !w_.port.IsOpen())
            return;
        w_.port.Arrive(piece);
        heard_ += piece;
    }

    void PullOut()
    {
        ++pulls_;
        EndEpoch();
        gone_ = true;
        w_.port.Vanish();
        ports_.plugged.clear();
        const auto away = Below(120'000) * 1ms;
        w_.world.After(away, [this] { ports_.plugged[1].description = kAdapter; });
        w_.world.After(1h, [this] { PullOut(); });
    }
    /// The part of a line that the pull has cut off is nobody's.
    void EndEpoch()
    {
        bool first = pulls_ > 1; // and is dropped, for nobody knows where it began
        for (std::size_t end = 0; (end = heard_.find("\r\n")) != std::string::npos;
             heard_.erase(0, end + 2)) {
            if (!first)
                expected_.push_back(heard_.substr(0, end + 2));
            first = false;
        }
        heard_.clear();
    }

    InstrumentWorld& w_;
    ScriptedPorts& ports_;
    std::mt19937 random_;
    std::string waiting_;
    std::string heard_;
    std::vector<std::string> expected_;
    int opened_ = 0;
    int sent_ = 0;
    int pulls_ = 0;
    bool gone_ = false;
};

} // namespace

bool SoakPlug(int hours, unsigned seed)
{
    InstrumentWorld w(kEvening);
    w.world.pumpLimit = 2'000'000'000;
    w.state.TotalSamples = 3600.0 * hours;
    w.prompts.answers = {Answer::Yes}; // to the question about a long table
    ScriptedPorts ports;
    PortReturn portReturn{{w.port, w.names, ports}};
    RunServices services = w.Services([] { return 0.5; });
    services.portReturn = &portReturn;
    RunListener listener;
    MeasurementRun run(
        w.state, w.arrays, services, [] {}, listener);
    PluggedLine line(w, ports, seed);
    w.port.onOutput = [&](const std::string& text) {
        if (text == "N\r\n")
            w.port.Deliver(20ms, "AN\r\n");
        if (text != "D\r\n")
            return;
        w.world.After(20ms, [&] { line.Begin(); });
        w.world.After(hours * 1h, [&] { run.Stop(); });
    };
    Consumption consumption;
    listener.onSample = [&](int sample) {
        if (sample % 1000 == 0)
            consumption.Look(sample);
    };
    run.Start();

    const std::vector<std::string> expected = line.Expected();
    const auto taken = static_cast<std::size_t>(w.state.SampleCount);
    const auto same = std::ranges::mismatch(expected.begin(), expected.end(), w.arrays.ReplyLine.begin() + 1,
                                            w.arrays.ReplyLine.begin() + 1 + w.state.SampleCount);
    const bool prefix = same.in2 == w.arrays.ReplyLine.begin() + 1 + w.state.SampleCount;
    const std::size_t unread = expected.size() - std::min(expected.size(), taken);
    std::printf("%d simulated hours, %d lines sent, the plug pulled %d times, seed %u\n", hours, line.Sent(),
                line.Pulls(), seed);
    std::printf(
        "  %zu readings, %zu lines not yet read at the stop, %zu gaps marked, missing or doubled: %s\n",
        taken, unread, w.arrays.Gaps.size(), prefix ? "none" : "YES");
    const bool gaps = static_cast<int>(w.arrays.Gaps.size()) == line.Pulls();
    return consumption.Judge(kMostPerThousand) && prefix && unread < 10240 / 30 && gaps;
}

} // namespace quorvane
