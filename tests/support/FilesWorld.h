#pragma once

#include "app/ApplicationState.h"
#include "app/Texts.h"
#include "measure/MeasurementArrays.h"
#include "resources/StringTable.h"
#include "tests/support/FakeCodePage.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FixedLocale.h"
#include "tests/support/MemoryFileStore.h"
#include "tests/support/ScriptedPrompts.h"

namespace quorvane {

/// What saving and opening work with.
struct FilesWorld {
    ApplicationState state;
    MeasurementArrays arrays;
    MemoryFileStore store;
    FakeCodePage codePage;
    FixedLocale locale;
    FixedClock clock;
    ScriptedPrompts prompts;
    StringTable table{TableLanguage::Japanese};
    Texts texts{table, state};
};

} // namespace quorvane
