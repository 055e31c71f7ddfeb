#pragma once

#include "resources/StringTable.h"

class QApplication;

namespace quorvane {

/// Makes what the toolkit itself says (file dialogs, context menus) and its choice of fonts follow the
/// program's language, whatever the system's is. A translation or a font that is not installed is no fault:
/// the toolkit then speaks English and takes what there is. May be called again.
void UseToolkitLanguage(QApplication& application, TableLanguage language);

} // namespace quorvane
