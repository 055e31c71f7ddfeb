#include "options/OptionEdit.h"

#include "app/LanguageOffset.h"
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
    if (!language_.Changed())
        return messages;
    if (const std::optional<Message> failure = language_.Save(files, state_.AppPath, texts)) {
        messages.push_back(*failure);
        language_.Restore();
    } else {
        messages.push_back({.text = texts[kLanguageNextStartText]});
    }
    return messages;
}

void OptionEdit::Restore()
{
    static_cast<ComputerSettings&>(state_) = before_;
    language_.Restore();
}

std::string SystemLanguageCaption(const LanguageSettings& settings, const Texts& texts)
{
    const bool japanese = TableLanguageFor(settings.SystemLanguageName) == TableLanguage::Japanese;
    return FilledIn(texts[kSystemLanguageText], texts[japanese ? kJapaneseText : kEnglishText]);
}

} // namespace quorvane
