#include "measure/JournalRecovery.h"

namespace quorvane {

JournalRecovery::JournalRecovery(ApplicationState& state, MeasurementArrays& arrays, JournalStore& store,
                                 RunJournal& journal)
    : state_(state), arrays_(arrays), store_(store), journal_(journal)
{
}
std::optional<LeftOverRun> JournalRecovery::Next()
{
    return std::nullopt;
}
void JournalRecovery::Restore() {}
void JournalRecovery::Discard() {}
void JournalRecovery::Leave() {}

} // namespace quorvane
