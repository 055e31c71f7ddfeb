#pragma once

#include "app/Texts.h"

namespace Ui {
class FrmMenu;
}

namespace quorvane {

/// The caption routine of the main window's menus, toolbar and buttons; what has a class of its own (chart,
/// exposure rows, table headings) sets its captions itself.
void SetMainCaptions(Ui::FrmMenu& ui, const Texts& texts);

/// Makes buttons and notice large enough for any of their texts; wants fonts and captions to be set.
void MakeMainRoom(Ui::FrmMenu& ui, const Texts& texts);

} // namespace quorvane
