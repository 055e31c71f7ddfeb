#include "files/NumberText.h"
#include "tests/soak/Soak.h"
#include "tests/support/WindowWorld.h"

#include <cstdio>

namespace quorvane {
namespace {

/// The texts of a reading, its points of the curves and the share of what is made larger in steps.
constexpr double kMostPerThousand = 400;

int Wrong(const WindowWorld& w)
{
    int wrong = 0;
    for (int i = 1; i <= w.state.SampleCount; ++i)
        wrong += w.arrays.ReplyLine[static_cast<std::size_t>(i)] != w.lines[static_cast<std::size_t>(i - 1)];
    return wrong;
}

} // namespace

bool SoakWindow(int samples, int seconds)
{
    using std::chrono::steady_clock;
    WindowWorld w;
    w.world.pumpLimit = 2'000'000'000;
    w.Plan(samples, 1);
    w.state.MassCFlg = w.state.MassTWAFlg = w.state.MassSTELFlg = w.state.RelativeCFlg = true;
    for (int i = 0; i < samples; ++i) // the same length and the time of day, each line of its own
        w.lines.push_back(InstrumentWorld::Line(i % 1700, PatternText(0.001 * (i % 9973), {3, 3, 3})));
    w.prompts.answers = {Answer::Yes}; // to the question about a long table
    w.Open();

    Consumption consumption;
    const auto end =
        seconds > 0 ? steady_clock::now() + std::chrono::seconds(seconds) : steady_clock::time_point::max();
    int looked = -1;
    w.onPump = [&](long) {
        if (w.state.SampleCount / 200 == looked)
            return;
        looked = w.state.SampleCount / 200;
        consumption.Look(w.state.SampleCount);
        w.journals.files[w.journals.atHand] = {}; // as if on a disk
        if (steady_clock::now() > end)
            w.window->Run().Stop();
    };
    w.Pause();
    w.Click("Command1");
    const int taken = w.state.SampleCount;
    const int wrong = Wrong(w);
    std::printf("The main window, %d readings of %d planned\n", taken, samples);
    std::printf("  rows %d, readings missing or doubled %d\n", w.Rows(), wrong);
    const bool enough = taken == samples || steady_clock::now() > end;
    return consumption.Judge(kMostPerThousand) && wrong == 0 && w.Rows() == taken && enough;
}

} // namespace quorvane
