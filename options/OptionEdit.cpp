#include "options/OptionEdit.h"

#include "app/LanguageOffset.h"
#include "files/FileFaultText.h"
#include "options/LanguageFile.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

namespace quorvane {

std::optional<Message> OptionEdit::Refusal(const DriveFolders& drives, const Texts& texts) const
{
    if (!FolderChanged() || drives.IsFolder(state_.DefaultFolder))
        return std::nullopt;
    return Message{.text = texts[kFolderMissingText], .icon = Icon::Exclamation};
}

std::vector<Message> OptionEdit::Keep(FileStore& files, const SettingsFile& settings, const Texts& texts)
{
    std::vector<Message> messages;
    if (FolderChanged() && !settings.CanHold(state_.DefaultFolder))
        messages.push_back({.text = texts[kFolderThisSessionText], .icon = Icon::Exclamation});
    if (state_.LanguageMode == languageModeBefore_)
        return messages;
    if (const auto fault = SaveLanguageMode(files, state_.AppPath, state_.LanguageMode)) {
        messages.push_back(LanguageNotSavedMessage(*fault, texts));
        state_.LanguageMode = languageModeBefore_;
    } else {
        messages.push_back({.text = texts[kLanguageNextStartText]});
    }
    return messages;
}

void OptionEdit::Restore()
{
    static_cast<ComputerSettings&>(state_) = before_;
    state_.LanguageMode = languageModeBefore_;
}

Message LanguageNotSavedMessage(const FileFault& fault, const Texts& texts)
{
    return {.text = texts[kLanguageNotSavedText] + "\r\n" + FaultReason(fault, texts),
            .icon = Icon::Critical};
}

std::string SystemLanguageCaption(const LanguageSettings& settings, const Texts& texts)
{
    const bool japanese = TableLanguageFor(settings.SystemLanguageName) == TableLanguage::Japanese;
    return FilledIn(texts[kSystemLanguageText], texts[japanese ? kJapaneseText : kEnglishText]);
}

} // namespace quorvane
