#include "files/SettingsFile.h"
#include "tests/fuzz/Hold.h"
#include "tests/fuzz/Targets.h"
#include "tests/support/FakeCodePage.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FixedLocale.h"
#include "tests/support/MemoryFileStore.h"

#include <algorithm>
#include <cmath>

namespace quorvane {
namespace {

struct SettingsWorld {
    MemoryFileStore store;
    FakeCodePage codePage;
    FixedClock clock;
    FixedLocale locale;

    /// What a program that starts with these files has, and the file as it writes it.
    std::string WrittenAgain()
    {
        ApplicationState state;
        SettingsFile settings(state, store, codePage, clock, locale, {2, 0, 2});
        settings.ApplyDefaultSettings();
        settings.LoadSettings();
        Hold(state.SamplingSeconds >= 1 && state.SamplingSeconds <= kMaxSamplingSeconds, "1 to 900 seconds");
        for (const double value : {state.TotalSamples, state.TotalHours, state.TwaAlarm, state.KFactor})
            Hold(std::isfinite(value), "settings are numbers");
        settings.SaveSettings();
        Hold(store.files.size() == 1, "one settings file");
        return store.files.begin()->second;
    }
};

/// The largest double is written with 15 digits, rounded up, and then none can hold it: the defaults replace
/// everything.
bool HoldsLargestNumbers(const std::string& file)
{
    return file.find("E+308") != std::string::npos;
}

} // namespace

void TrySettings(std::string_view input)
{
    SettingsWorld w;
    w.WrittenAgain();
    w.store.files.begin()->second = input;
    const std::string written = w.WrittenAgain();
    Hold(std::count(written.begin(), written.end(), '\n') >= 51, "every setting has its line");
    if (!HoldsLargestNumbers(written))
        Hold(w.WrittenAgain() == written, "what was read and written reads the same");
}

} // namespace quorvane
