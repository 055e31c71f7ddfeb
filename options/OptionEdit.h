#pragma once

#include "app/ApplicationState.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "files/FileStore.h"
#include "files/SettingsFile.h"
#include "options/LanguageEdit.h"
#include "stored/DriveFolders.h"

#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// The options being edited: data folder, run mode, language choice. They change at once and go back to what
/// they were unless they are kept. The language itself does not change before the program's next start.
class OptionEdit {
public:
    explicit OptionEdit(ApplicationState& state)
        : state_(state), before_(static_cast<const ComputerSettings&>(state)), language_(state)
    {
    }

    /// Why OK is refused: a folder that was not there before and does not exist. One that was is not looked
    /// at, for its network drive may be away.
    [[nodiscard]] std::optional<Message> Refusal(const DriveFolders& drives, const Texts& texts) const;

    /// OK: writes the language choice when it is another one; what cannot be written is again what it was.
    /// @return what the operator is told, in this order
    [[nodiscard]] std::vector<Message> Keep(FileStore& files, const SettingsFile& settings,
                                            const Texts& texts);

    /// Everything is again what it was.
    void Restore();

private:
    [[nodiscard]] bool FolderChanged() const { return state_.DefaultFolder != before_.DefaultFolder; }

    ApplicationState& state_;
    const ComputerSettings before_;
    LanguageEdit language_;
};

/// "System's own language (Japanese)": with the language that the texts have then.
[[nodiscard]] std::string SystemLanguageCaption(const LanguageSettings& settings, const Texts& texts);

} // namespace quorvane
