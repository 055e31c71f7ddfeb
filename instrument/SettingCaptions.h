#pragma once

#include "app/Texts.h"

namespace Ui {
class FrmQuorvaneSetting;
}

namespace quorvane {

/// The pages of the instrument settings, from the left.
enum SettingPage : int { kProgramPage = 0, kClockPage = 1, kKFactorPage = 2 };

/// What the controls of the instrument settings say, in the program's language: captions, tooltips, names for
/// a screen reader.
void SetSettingCaptions(const Ui::FrmQuorvaneSetting& ui, const Texts& texts);

/// Makes the boxes wide enough for their longest texts, in whatever size letters have here.
void MakeSettingRoom(const Ui::FrmQuorvaneSetting& ui);

} // namespace quorvane
