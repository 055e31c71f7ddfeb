#include "measure/RunJournal.h"

#include "app/ProgramVersion.h"
#include "files/AppFiles.h"

#include <algorithm>

namespace quorvane {
namespace {

std::string JournalName(LocalMoment start)
{
    std::string name = "Run " + JournalMomentText(start);
    std::ranges::replace(name, ':', '-'); // which no name of a file may have on Windows
    return name.append(kJournalEnding);
}

} // namespace

std::string KeptJournal(const ProgramPlace& place)
{
    return FileInFolder(place.AppPath, "Run.journal.old");
}

RunJournal::RunJournal(const ProgramPlace& place, const MeasureSettings& settings,
                       const MeasurementArrays& arrays, JournalStore& store)
    : place_(place), settings_(settings), arrays_(arrays), store_(store)
{
}

void RunJournal::Begin(LocalMoment start, bool simulated)
{
    Settle();
    pen_.emplace(JournalHead{.start = start,
                             .sampling = settings_.SamplingSeconds,
                             .totalSamples = static_cast<std::int32_t>(settings_.TotalSamples),
                             .simulated = simulated,
                             .version = VersionNumber(kProgramVersion)});
    start_ = start;
    taken_ = 0;
    ended_ = false;
    BeginFile();
    Look();
}

void RunJournal::BeginFile()
{
    headOffered_ = false;
    offered_ = 0;
    gapsOffered_ = 0;
    store_.Begin(FileInFolder(place_.AppPath, JournalName(start_)));
}

void RunJournal::Taken(std::int32_t sample)
{
    taken_ = sample;
    Look();
}

void RunJournal::Look()
{
    if (!pen_)
        return;
    if (store_.Vanished())
        BeginFile(); // all of it is still in the arrays
    if (!OfferHead())
        return;
    while (offered_ < taken_) {
        const std::int32_t next = offered_ + 1;
        const auto i = static_cast<std::size_t>(next);
        if (!OfferGaps(next) || !store_.Put(pen_->Reading(next, arrays_.Moment[i], arrays_.ReplyLine[i])))
            return;
        offered_ = next;
    }
    if (ended_)
        static_cast<void>(OfferGaps(taken_ + 1));
}

void RunJournal::End()
{
    ended_ = true;
    Look();
}

void RunJournal::Settle()
{
    // One without a reading must not replace the one that is kept.
    const bool worthKeeping = !pen_ || taken_ > 0;
    store_.Retire(worthKeeping ? KeptJournal(place_) : std::string());
    pen_.reset();
}

JournalHealth RunJournal::Health() const
{
    return store_.Health();
}

bool RunJournal::OfferHead()
{
    headOffered_ = headOffered_ || store_.Put(pen_->Head());
    return headOffered_;
}

/// The gaps up to that before reading `before`.
bool RunJournal::OfferGaps(std::int32_t before)
{
    const auto& gaps = arrays_.Gaps;
    for (; gapsOffered_ < gaps.size() && gaps[gapsOffered_].before <= before; ++gapsOffered_)
        if (!store_.Put(pen_->Gap(static_cast<std::int32_t>(gapsOffered_) + 1, gaps[gapsOffered_])))
            return false;
    return true;
}

} // namespace quorvane
