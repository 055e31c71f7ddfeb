#include "measure/JournalRecovery.h"

#include "measure/Gaps.h"
#include "measure/ReadingRecord.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quorvane {
namespace {

LeftOverRun Described(const std::string& path, const JournalContents& contents)
{
    return {.path = path,
            .start = contents.head.start,
            .last = contents.readings.back().moment,
            .readings = static_cast<std::int32_t>(contents.readings.size()),
            .damaged = contents.damaged,
            .gaps =
                static_cast<std::int32_t>(std::ranges::count_if(contents.gaps, LosesReadings, &RunGap::kind)),
            .simulated = contents.head.simulated};
}

} // namespace

JournalRecovery::JournalRecovery(ApplicationState& state, MeasurementArrays& arrays, JournalStore& store,
                                 RunJournal& journal)
    : state_(state), arrays_(arrays), store_(store), journal_(journal)
{
}

std::optional<LeftOverRun> JournalRecovery::Next()
{
    Leave();
    for (const std::string& path : store_.LeftOver(state_.AppPath)) {
        if (std::ranges::find(lookedAt_, path) != lookedAt_.end())
            continue;
        lookedAt_.push_back(path);
        JournalLook look = LookAt(path);
        if (look.run)
            return std::move(look.run);
        if (look.worthless)
            Discard();
        else if (!look.fault)
            SetAside(path, look.state);
    }
    return std::nullopt;
}

/// One that a newer version has written waits for that.
void JournalRecovery::SetAside(const std::string& path, JournalState state)
{
    std::string aside = path;
    if (state != JournalState::Newer) {
        std::string ignored;
        if (store_.Claim(path, ignored))
            return; // somebody has it by now
        aside += ".unreadable";
        store_.Retire(aside);
    }
    unreadable_.push_back({std::move(aside), state});
}

JournalLook JournalRecovery::LookAt(const std::string& path)
{
    Leave();
    JournalLook look;
    std::string bytes;
    look.fault = store_.Claim(path, bytes);
    if (look.fault)
        return look;
    contents_ = ReadJournal(bytes);
    look.state = contents_.state;
    const bool noReadings = contents_.readings.empty();
    const bool readable = look.state == JournalState::Readable || look.state == JournalState::Empty;
    look.worthless = readable && noReadings && contents_.damaged == 0;
    atHand_ = true;
    if (!noReadings)
        look.run = Described(path, contents_);
    else if (!look.worthless)
        Leave(); // somebody may want to see what is in it
    return look;
}

void JournalRecovery::Restore()
{
    if (!atHand_)
        return;
    const auto count = static_cast<std::int32_t>(contents_.readings.size());
    MeasureSettings settings;
    settings.TotalSamples = count;
    settings.SamplingSeconds = static_cast<std::int16_t>(contents_.head.sampling);
    state_.SampleCount = 0; // first, as when a run begins
    ReadingRecord record(settings, state_, arrays_);
    record.Begin(contents_.head.start);
    for (std::int32_t sample = 1; sample <= count; ++sample) {
        const auto i = static_cast<std::size_t>(sample);
        JournalReading& reading = contents_.readings[i - 1];
        arrays_.ReplyLine[i] = std::move(reading.line);
        static_cast<void>(record.Store(sample)); // lamps belong to a run that goes on
        arrays_.Moment[i] = reading.moment;
    }
    arrays_.Gaps = std::move(contents_.gaps);
    arrays_.Simulated = contents_.head.simulated;
    state_.SampleCount = count;
    state_.DataPresent = 1;
    state_.DataSaved = 0;
    journal_.Adopt();
    contents_ = {};
    atHand_ = false;
}

void JournalRecovery::Discard()
{
    if (!atHand_)
        return;
    const bool worthKeeping = !contents_.readings.empty(); // or it would replace one that is
    store_.Retire(worthKeeping ? KeptJournal(state_) : std::string());
    contents_ = {};
    atHand_ = false;
}

void JournalRecovery::Leave()
{
    if (!atHand_)
        return;
    store_.Release();
    contents_ = {};
    atHand_ = false;
}

} // namespace quorvane
