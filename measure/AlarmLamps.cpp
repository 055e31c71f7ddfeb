#include "measure/AlarmLamps.h"

namespace quorvane {

void AlarmLamps::Light(const LampsLit& lit)
{
    Set(Lamp::Ceiling, lit_.ceiling, lit_.ceiling || lit.ceiling);
    Set(Lamp::Stel, lit_.stel, lit_.stel || lit.stel);
    Set(Lamp::Twa, lit_.twa, lit_.twa || lit.twa);
}

void AlarmLamps::Clear()
{
    Set(Lamp::Ceiling, lit_.ceiling, false);
    Set(Lamp::Stel, lit_.stel, false);
    Set(Lamp::Twa, lit_.twa, false);
}

void AlarmLamps::Set(Lamp lamp, bool& current, bool lit)
{
    if (current == lit)
        return;
    current = lit;
    observer_.LampChanged(lamp, lit);
}

} // namespace quorvane
