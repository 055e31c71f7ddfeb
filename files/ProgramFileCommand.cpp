#include "files/ProgramFileCommand.h"

#include "files/FileFaultText.h"
#include "files/IniText.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <cstdint>

namespace quorvane {
namespace {

/// The file is read once for every key, and what the operator chose by mistake may be anything.
constexpr std::uintmax_t kLargestProgramFile = std::uintmax_t{1} << 20U;

constexpr int kProgramFilterIndex = 2;

std::string ProgramFileFilter(const Texts& texts)
{
    return texts[kAllFilesText] + " (*.*)|*.*|INI FILE (*.ini)|*.ini|";
}

} // namespace

ProgramFileCommand::ProgramFileCommand(ApplicationState& state, const Parts& parts)
    : state_(state),
      files_(parts.files),
      prompts_(parts.prompts),
      texts_(parts.texts),
      file_(state, parts.profile, parts.version)
{
}

bool ProgramFileCommand::SaveProgram()
{
    const auto path = prompts_.AskSaveName({.filter = ProgramFileFilter(texts_),
                                            .filterIndex = kProgramFilterIndex,
                                            .overwritePrompt = true,
                                            .defaultName = "",
                                            .folder = state_.DefaultFolder,
                                            .extensions = {"", "ini"}});
    if (!path)
        return false;
    if (const auto reason = Save(*path)) {
        TellFailure(kProgramNotSavedText, *reason);
        return false;
    }
    return true;
}

bool ProgramFileCommand::OpenProgram()
{
    const auto path = prompts_.AskOpenName({.filter = ProgramFileFilter(texts_),
                                            .filterIndex = kProgramFilterIndex,
                                            .folder = state_.DefaultFolder});
    if (!path)
        return false;
    std::string bytes;
    if (const auto reason = Read(*path, bytes)) {
        TellFailure(kProgramNotLoadedText, *reason);
        return false;
    }
    if (!file_.HoldsProgram(*path) && !IsLoadedAllTheSame())
        return false;
    file_.OpenProgramSetting(*path);
    return true;
}

std::optional<std::string> ProgramFileCommand::Read(const std::string& path, std::string& bytes) const
{
    if (files_.Size(path).value_or(0) > kLargestProgramFile)
        return texts_[kProgramFileTooLargeText];
    if (const auto fault = files_.ReadWhole(path, bytes))
        return FaultReason(*fault, texts_);
    return std::nullopt;
}

std::optional<std::string> ProgramFileCommand::Save(const std::string& path)
{
    // The keys go into the file that is there, and no system says of its own accord that it cannot take them.
    if (files_.Exists(path)) {
        std::string bytes;
        if (auto reason = Read(path, bytes))
            return reason;
        if (!IsPlainText(bytes))
            return texts_[kNotAPlainTextText];
    }
    if (const auto fault = file_.SaveProgramSetting(path))
        return FaultReason(*fault, texts_);
    return std::nullopt;
}

bool ProgramFileCommand::IsLoadedAllTheSame()
{
    return prompts_.Show({.text = texts_[kNoProgramInFileText],
                          .icon = Icon::Exclamation,
                          .buttons = Buttons::YesNo,
                          .unattended = Answer::No}) == Answer::Yes;
}

void ProgramFileCommand::TellFailure(int textId, const std::string& reason)
{
    prompts_.Show({.text = texts_[textId] + "\r\n" + reason, .icon = Icon::Critical});
}

} // namespace quorvane
