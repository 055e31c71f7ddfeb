#include "app/ApplicationState.h"
#include "app/ProgramVersion.h"
#include "files/AppFiles.h"
#include "files/DataFile.h"
#include "files/OpenCommand.h"
#include "files/SettingsFile.h"
#include "instrument/DateTimeText.h"
#include "platform/Platform.h"
#include "resources/StringTable.h"
#include "tests/support/ScriptedPrompts.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>
#include <random>

namespace quorvane {
namespace {

constexpr std::int32_t kReadings = 65500; // the longest run
constexpr std::size_t kShortWindow = 900;
constexpr double kFactor = 1.3 / 1000;
const DataFormat kFormat = {.decimalSign = ".", .version = kProgramVersion};

/// A run of the longest length whose numbers have as many digits as real ones: concentrations of three
/// decimals, counts from the factor, averages and sums as they come out of the computation.
MeasurementArrays LongestRun()
{
    MeasurementArrays arrays;
    arrays.Create(kReadings);
    std::mt19937 random(1);
    double windowSum = 0;
    for (std::size_t i = 1; i <= kReadings; ++i) {
        arrays.MeasureTime[i] = "12:34:56";
        arrays.ExtraField[i] = "1.3";
        arrays.ConcValue[i] = static_cast<double>(random() % 400) / 1000;
        arrays.CountValue[i] = static_cast<double>(static_cast<int>(arrays.ConcValue[i] / kFactor));
        arrays.IntegratedCount[i] = arrays.IntegratedCount[i - 1] + arrays.CountValue[i];
        arrays.IntegratedConc[i] = arrays.IntegratedConc[i - 1] + arrays.ConcValue[i];
        arrays.DerivedValueA[i] = arrays.IntegratedConc[i] / static_cast<double>(i);
        windowSum += arrays.ConcValue[i] - (i > kShortWindow ? arrays.ConcValue[i - kShortWindow] : 0);
        arrays.DerivedValueB[i] = windowSum / static_cast<double>(std::min(i, kShortWindow));
    }
    return arrays;
}

const MeasurementArrays& Run()
{
    static const MeasurementArrays run = LongestRun();
    return run;
}

/// As the system that the benchmark runs on writes it.
std::string Today()
{
    const Platform platform = MakePlatform();
    return SystemDateText(platform.clock->Now(), *platform.locale);
}

std::string RunText()
{
    return DataFileText(Run(), Today(), "1.3", kReadings, kFullLayout, kFormat);
}

/// A folder of its own in the working folder, so that the disk is the one the benchmark is started on.
class BenchFolder {
public:
    BenchFolder() { std::filesystem::create_directory(kName); }
    ~BenchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(kName, ignored);
    }
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    static std::string File(std::string_view name) { return FileInFolder(kName, name); }

    static constexpr const char* kName = "quorvane-bench-files";
};

void CountBytes(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

void FormatLongestRun(benchmark::State& state)
{
    const std::size_t size = RunText().size();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(RunText());
    CountBytes(state, size);
}
BENCHMARK(FormatLongestRun)->Unit(benchmark::kMillisecond);

/// Formats, writes beside, flushes to the disk, renames.
void SaveLongestRun(benchmark::State& state)
{
    const BenchFolder folder;
    const Platform platform = MakePlatform();
    const DataFileContext context = {*platform.files, *platform.codePage, Run(), kFormat};
    for ([[maybe_unused]] auto _ : state)
        if (WriteDataFile(BenchFolder::File("run.csv"), "2024/02/29", "1.3", kReadings, kFullLayout, context))
            state.SkipWithError("not saved");
    CountBytes(state, RunText().size());
}
BENCHMARK(SaveLongestRun)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The store's share of that.
void ReplaceSameBytes(benchmark::State& state)
{
    const BenchFolder folder;
    const Platform platform = MakePlatform();
    const std::string text = RunText();
    for ([[maybe_unused]] auto _ : state)
        if (platform.files->Replace(BenchFolder::File("run.csv"), text))
            state.SkipWithError("not written");
    CountBytes(state, text.size());
}
BENCHMARK(ReplaceSameBytes)->Unit(benchmark::kMillisecond)->UseRealTime();

/// One plain write over the old file, nothing flushed to the disk: what the machine can do at most.
void WriteSameBytes(benchmark::State& state)
{
    const BenchFolder folder;
    const std::string text = RunText();
    for ([[maybe_unused]] auto _ : state) {
        std::ofstream file(PathFromUtf8(BenchFolder::File("plain.csv")), std::ios::binary);
        file.write(text.data(), static_cast<std::streamsize>(text.size())).flush();
        if (!file)
            state.SkipWithError("not written");
    }
    CountBytes(state, text.size());
}
BENCHMARK(WriteSameBytes)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Reads the file, takes it apart, dates the readings, puts them in place.
void OpenLongestRun(benchmark::State& state, const std::string& text)
{
    const BenchFolder folder;
    const Platform platform = MakePlatform();
    const std::string path = BenchFolder::File("run.csv");
    ApplicationState program;
    MeasurementArrays arrays;
    ScriptedPrompts prompts;
    const StringTable table(TableLanguage::English);
    const Texts texts(table, program);
    OpenCommand command(
        program, arrays,
        {*platform.files, *platform.codePage, *platform.locale, *platform.clock, prompts, texts});
    if (platform.files->Replace(path, text))
        state.SkipWithError("not written");
    for ([[maybe_unused]] auto _ : state)
        if (command.OpenPath(path, [](const std::string&) {}) != OpenResult::Opened)
            state.SkipWithError("not opened");
    CountBytes(state, text.size());
}

std::string CommaText()
{
    return DataFileText(Run(), Today(), "1.3", kReadings, kFullLayout,
                        {.decimalSign = ",", .version = kProgramVersion});
}
BENCHMARK_CAPTURE(OpenLongestRun, point, RunText())->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(OpenLongestRun, comma, CommaText())->Unit(benchmark::kMillisecond)->UseRealTime();

/// As large as a file may be, and only its last row is bad.
void RefuseLargeFile(benchmark::State& state)
{
    std::string text = RunText();
    text.resize(text.size() - 4);
    text.append(kLargestDataFile - text.size(), ',');
    DataFileContents contents;
    for ([[maybe_unused]] auto _ : state)
        if (!ReadDataFile(text, contents))
            state.SkipWithError("taken");
    CountBytes(state, text.size());
}
BENCHMARK(RefuseLargeFile)->Unit(benchmark::kMillisecond);

void LoadSettingsFile(benchmark::State& state)
{
    const BenchFolder folder;
    const Platform platform = MakePlatform();
    ApplicationState settings;
    settings.AppPath = BenchFolder::kName;
    SettingsFile file(settings, *platform.files, *platform.codePage, *platform.clock, *platform.locale,
                      kProgramVersion);
    file.ApplyDefaultSettings();
    settings.RsPort = "COM7";
    file.SaveSettings();
    settings.RsPort.clear();
    for ([[maybe_unused]] auto _ : state)
        file.LoadSettings();
    if (settings.RsPort != "COM7")
        state.SkipWithError("not loaded");
}
BENCHMARK(LoadSettingsFile)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace
} // namespace quorvane
