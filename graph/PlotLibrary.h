#pragma once

// The plotting library, for the sources of this folder alone: it takes seconds to compile. Its header is
// written in the toolkit's keywords, which this program switches off.

// clang-format off
#define signals Q_SIGNALS
#define slots Q_SLOTS
#define foreach Q_FOREACH
#include <qcustomplot.h>
#undef foreach
#undef slots
#undef signals
// clang-format on
