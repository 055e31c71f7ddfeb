#pragma once

#include "app/ApplicationState.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "resources/SystemTexts.h"

#include <array>
#include <cstdint>
#include <string>

namespace quorvane {

enum class GraphGroup { Relative, Mass, Alarm };

/// One box of the graph settings: what it says, what it sets, where it belongs.
struct GraphChoice {
    bool GraphFlags::*flag;
    GraphGroup group;
    int name;
    int addition = 0; ///< text behind the name, or none
    int unit = 0;     ///< text behind both and a blank, or none
};

/// The boxes `Check1` to `Check9`.
inline constexpr std::array<GraphChoice, 9> kGraphChoices = {{
    {&GraphFlags::RelativeCFlg, GraphGroup::Relative, kRelativeText},
    {&GraphFlags::RelativeIntegratedFlg, GraphGroup::Relative, kRelativeIntegratedText},
    {&GraphFlags::MassCFlg, GraphGroup::Mass, kMassCeilingText},
    {&GraphFlags::MassIntegratedFlg, GraphGroup::Mass, kMassText, kIntegratedText, kMassUnitText},
    {&GraphFlags::MassTWAFlg, GraphGroup::Mass, kMassTwaText},
    {&GraphFlags::MassSTELFlg, GraphGroup::Mass, kMassStelText},
    {&GraphFlags::AlarmCFlg, GraphGroup::Alarm, kCeilingLimitText},
    {&GraphFlags::AlarmTWAFlg, GraphGroup::Alarm, kTwaLimitText},
    {&GraphFlags::AlarmSTELFlg, GraphGroup::Alarm, kStelLimitText},
}};

[[nodiscard]] std::string CaptionOf(const GraphChoice& choice, const Texts& texts);

/// The choice of curves and alarm lines being edited: the flags change at once and go back to what they were
/// unless OK was pressed. Relative and mass curves exclude each other: once a curve of the one is chosen, the
/// other cannot be changed, and keeps what was chosen there.
class GraphSelection {
public:
    explicit GraphSelection(GraphFlags& flags) : flags_(flags), before_(flags) { Count(); }

    [[nodiscard]] bool IsChecked(const GraphChoice& choice) const { return flags_.*choice.flag; }
    void SetChecked(const GraphChoice& choice, bool checked) { flags_.*choice.flag = checked; }

    /// Counts the chosen curves anew; what can be changed follows from it.
    void Count();
    /// Whether the box can be changed, by the last count. Alarm lines belong to the mass curves.
    [[nodiscard]] bool IsEnabled(const GraphChoice& choice) const;

    /// The dialog is about to close: without a curve it must not, not even by Cancel, and an OK has come to
    /// nothing. Otherwise the flags are again what they were, unless OK was pressed.
    /// @return whether it closes
    [[nodiscard]] bool Close();

    bool OkPressed = false;

private:
    [[nodiscard]] std::int16_t CountOf(GraphGroup group) const;

    GraphFlags& flags_;
    const GraphFlags before_;
    std::int16_t relativeCount_ = 0;
    std::int16_t massCount_ = 0;
};

/// What the operator is told when no curve is chosen.
[[nodiscard]] Message NoGraphMessage(const Texts& texts);

} // namespace quorvane
