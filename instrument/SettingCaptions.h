#pragma once

#include "app/Texts.h"

class QFont;

namespace Ui {
class FrmQuorvaneSetting;
}

namespace quorvane {

/// The pages of the instrument settings, from the left.
enum SettingPage : int { kProgramPage = 0, kClockPage = 1, kKFactorPage = 2 };

/// The font routine of the instrument settings below their window's own font: the clocks are larger, and
/// boxes wide enough for their longest texts.
void SetSettingFonts(const Ui::FrmQuorvaneSetting& ui, const QFont& font);

/// What the controls of the instrument settings say, in the program's language: captions, tooltips, names for
/// a screen reader.
void SetSettingCaptions(const Ui::FrmQuorvaneSetting& ui, const Texts& texts);

} // namespace quorvane
