#pragma once

#include "app/Texts.h"

#include <QFont>

class QWidget;

namespace quorvane {

/// The font of the program's texts in `language`, in the system's size: Japanese in a proportional Gothic
/// family for screens where one is installed.
[[nodiscard]] QFont ProgramFont(TableLanguage language);

/// The first half of every window's font routine: sets the window, and with it all controls that have no font
/// of their own, in the font of the language that its texts are in. What is larger than that is made from
/// this font afterwards, so that the routine can run again.
void SetWindowFont(QWidget& window, const Texts& texts);

} // namespace quorvane
