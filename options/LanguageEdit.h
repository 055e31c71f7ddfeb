#pragma once

#include "app/ApplicationState.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "files/FileStore.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quorvane {

/// The language choice being edited. It changes at once and can be put back to what it was.
class LanguageEdit {
public:
    explicit LanguageEdit(LanguageSettings& settings) : settings_(settings), before_(settings.LanguageMode) {}

    [[nodiscard]] bool Changed() const { return settings_.LanguageMode != before_; }
    /// Writes the choice, changed or not, to its file in `folder`. It stays what it is in either case.
    /// @return what the operator is told when it could not be written
    [[nodiscard]] std::optional<Message> Save(FileStore& files, const std::string& folder,
                                              const Texts& texts) const;
    void Restore() { settings_.LanguageMode = before_; }

private:
    LanguageSettings& settings_;
    const std::int16_t before_;
};

} // namespace quorvane
