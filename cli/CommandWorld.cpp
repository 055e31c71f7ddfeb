#include "cli/CommandWorld.h"

#include "app/LanguageOffset.h"
#include "files/ProgramFiles.h"
#include "options/LanguageFile.h"

namespace quorvane {

CommandWorld::CommandWorld(bool progress)
    : platform(MakePlatform()),
      table(TableLanguageFor(platform.locale->SystemLanguageName())),
      texts(table, state),
      console(progress && StandardErrorIsTerminal())
{
    const ProgramFiles files =
        FindProgramFiles({EnvironmentText("QUORVANE_HOME"), ProgramFolder(), UserDataFolder()},
                         *platform.folders, *platform.files);
    state.AppPath = files.folder;
    state.SystemLanguageName = platform.locale->SystemLanguageName();
    LoadLanguageMode(*platform.files, state.AppPath, state.LanguageMode);
    state.LanguageOffset =
        LanguageOffsetFor(state.LanguageMode, state.SystemLanguageName, state.LanguageOffset);
    if (const std::string notice = PlaceNotice(files, texts); !notice.empty())
        console.Say(notice);
}

} // namespace quorvane
