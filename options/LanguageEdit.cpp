#include "options/LanguageEdit.h"

#include "files/FileFaultText.h"
#include "options/LanguageFile.h"
#include "resources/OwnTexts.h"

namespace quorvane {

std::optional<Message> LanguageEdit::Save(FileStore& files, const std::string& folder,
                                          const Texts& texts) const
{
    const auto fault = SaveLanguageMode(files, folder, settings_.LanguageMode);
    if (!fault)
        return std::nullopt;
    return Message{.text = texts[kLanguageNotSavedText] + "\r\n" + FaultReason(*fault, texts),
                   .icon = Icon::Critical};
}

} // namespace quorvane
