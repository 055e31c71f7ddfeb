#include "tests/fuzz/Hold.h"
#include "tests/fuzz/Targets.h"
#include "tests/support/RunWorld.h"

#include <algorithm>
#include <cmath>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr int kPlanned = 40;
constexpr std::size_t kMostBytes = 4096;

/// How the bytes come: pieces of 1 to 63 bytes with pauses of up to 60 ms, after the digits of `rhythm`.
class Rhythm {
public:
    explicit Rhythm(std::string_view rhythm) : rhythm_(rhythm) {}
    [[nodiscard]] std::size_t Piece() { return 1 + Next() % 63; }
    [[nodiscard]] World::Time Pause()
    {
        constexpr World::Time kPauses[] = {300us, 0us, 1ms, 16ms, 5ms, 60ms, 700us, 40ms};
        return kPauses[Next() % std::size(kPauses)];
    }

private:
    [[nodiscard]] std::size_t Next()
    {
        return rhythm_.empty() ? 62 : static_cast<unsigned char>(rhythm_[next_++ % rhythm_.size()]);
    }
    std::string_view rhythm_;
    std::size_t next_ = 0;
};

/// The instrument: acknowledges at once what is asked, and sends `bytes` in pieces after "D".
void SendInPieces(RunWorld& w, const std::string& bytes, std::string_view rhythmText, World::Time thenStop)
{
    w.port.onOutput = [&w, &bytes, rhythmText, thenStop](const std::string& text) {
        if (text == "N\r\n")
            w.port.Deliver(20ms, "AN\r\n");
        if (text != "D\r\n")
            return;
        Rhythm rhythm(rhythmText);
        World::Time at = 20ms;
        for (std::size_t sent = 0; sent < bytes.size();) {
            const std::string piece = bytes.substr(sent, rhythm.Piece());
            w.port.Deliver(at, piece);
            sent += piece.size();
            at += rhythm.Pause();
        }
        w.world.After(at + thenStop, [&w] { w.run.Stop(); });
    };
}

void HoldReadings(const RunWorld& w, const std::string& bytes)
{
    const auto count = static_cast<std::size_t>(w.state.SampleCount);
    Hold(count == w.listener.samples.size(), "as many readings as were told of");
    std::size_t from = 0;
    for (std::size_t i = 1; i <= count; ++i) {
        const std::string& line = w.arrays.ReplyLine[i];
        Hold(w.listener.samples[i - 1] == static_cast<int>(i), "one after the other");
        Hold(line.size() >= kShortestLine && line.ends_with("\r\n"), "whole lines only");
        const std::size_t at = bytes.find(line, from);
        Hold(at != std::string::npos, "each reading was sent, in this order, and none is taken twice");
        from = at + line.size();
        Hold(i == 1 || w.arrays.Moment[i] >= w.arrays.Moment[i - 1], "dates never run backwards");
        Hold(w.arrays.IntegratedCount[i] == w.arrays.IntegratedCount[i - 1] + w.arrays.CountValue[i],
             "the sums are of the readings");
        for (const double value :
             {w.arrays.IntegratedConc[i], w.arrays.DerivedValueA[i], w.arrays.DerivedValueB[i]})
            Hold(value >= 0 && !std::isnan(value), "sums and averages are numbers");
    }
}

std::string GoodLines(int count)
{
    std::string bytes;
    for (int second = 1; second <= count; ++second)
        bytes += InstrumentWorld::Line(second);
    return bytes;
}

} // namespace

/// The first line is the rhythm. Behind it stands what is sent; when that is nothing, good lines are sent,
/// and every one of them has to be a reading.
void TryLines(std::string_view input)
{
    input = input.substr(0, kMostBytes);
    const std::string rhythm = CutTo(input, '\n');
    RunWorld w;
    w.world.pumpLimit = 200'000;
    w.state.TotalSamples = kPlanned;
    const bool good = input.empty();
    const std::string bytes = good ? "AD\r\n" + GoodLines(kPlanned) : std::string(input);
    SendInPieces(w, bytes, rhythm, good ? 2s * kPlanned : 5s);

    w.run.Start();
    HoldReadings(w, bytes);
    if (good)
        Hold(w.state.SampleCount == kPlanned, "no pause and no seam costs a line");
    Hold(!w.timer1.Enabled() && !w.timer2.Enabled() && !w.timer3.Enabled() && !w.port.IsOpen(),
         "nothing runs on when the run has ended");
}

} // namespace quorvane
