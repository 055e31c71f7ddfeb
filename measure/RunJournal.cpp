#include "measure/RunJournal.h"

namespace quorvane {

RunJournal::RunJournal(const ProgramPlace& place, const MeasureSettings& settings,
                       const MeasurementArrays& arrays, JournalStore& store)
    : place_(place), settings_(settings), arrays_(arrays), store_(store)
{
}
void RunJournal::Begin(LocalMoment /*start*/, bool /*simulated*/) {}
void RunJournal::Taken(std::int32_t /*sample*/) {}
void RunJournal::Look() {}
void RunJournal::End() {}
void RunJournal::Settle() {}
JournalHealth RunJournal::Health() const
{
    return store_.Health();
}

} // namespace quorvane
