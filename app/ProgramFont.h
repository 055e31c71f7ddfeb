#pragma once

#include "app/Texts.h"

#include <QFont>
#include <QStringList>
#include <functional>

class QWidget;

namespace quorvane {

/// The families that texts in `language` are set in, the first one with a letter's shape taken: `usual` and
/// the Japanese ones that are installed. Japanese texts are set in a proportional Gothic family for screens
/// throughout; others keep `usual` and take a Japanese family for what it lacks, names of files for instance.
[[nodiscard]] QStringList FontFamilies(TableLanguage language, const QString& usual,
                                       const std::function<bool(const QString&)>& installed);

/// The font of the program's texts in `language`, in the application's size.
[[nodiscard]] QFont ProgramFont(TableLanguage language);

/// `font`, so many times larger.
[[nodiscard]] QFont Enlarged(QFont font, double factor);

/// The first half of every window's font routine: sets the window, and with it all controls that have no font
/// of their own, in the font of the language that its texts are in. What is larger than that is made from
/// this font afterwards, so that the routine can run again.
void SetWindowFont(QWidget& window, const Texts& texts);

} // namespace quorvane
