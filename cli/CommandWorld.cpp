#include "cli/CommandWorld.h"

#include "app/LanguageOffset.h"
#include "files/AppFiles.h"
#include "serial/PortFaultText.h"

namespace quorvane {

CommandWorld::CommandWorld(bool progress)
    : platform(MakePlatform()),
      table(TableLanguageFor(platform.locale->SystemLanguageName())),
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
