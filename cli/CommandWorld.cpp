#include "cli/CommandWorld.h"

#include "files/AppFiles.h"
#include "serial/PortFaultText.h"

namespace quorvane {
namespace {

TableLanguage LanguageOf(const LocaleItems& locale)
{
    return locale.SystemLanguageName() == "Japanese" ? TableLanguage::Japanese : TableLanguage::English;
}

} // namespace

CommandWorld::CommandWorld(bool progress)
    : platform(MakePlatform()),
      table(LanguageOf(*platform.locale)),
      texts(table, state),
      console(progress && StandardErrorIsTerminal())
{
    state.AppPath = ProgramFilesFolder(EnvironmentText("QUORVANE_HOME"), ProgramFolder());
}

std::string CommandWorld::Reason(const PortFault& fault) const
{
    std::string reason = texts[ReasonText(fault.kind)];
    if (!fault.systemReason.empty())
        reason += " (" + fault.systemReason + ")";
    return reason;
}

} // namespace quorvane
