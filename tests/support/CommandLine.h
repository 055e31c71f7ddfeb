#pragma once

#include <string>
#include <vector>

namespace quorvane {

/// The command line that the tests try, and what its system has of its own. It is the one of this build, or,
/// when the environment names one, a Windows program: QUORVANE_WINDOWS_CLI (its file),
/// QUORVANE_WINDOWS_RUNNER (what runs it), QUORVANE_WINE (the runner's folder) and QUORVANE_WINDOWS_PORT (the
/// number of the COM port that it is to use).
struct CommandLine {
    std::vector<std::string> start;           ///< the words before its arguments
    std::string link;                         ///< where it looks for the instrument; empty: at any device
    std::string port;                         ///< --port of the instrument; empty: the device itself
    std::string comName;                      ///< the COM name of the instrument's port
    std::string locale;                       ///< in which it takes UTF-8 for the names of files
    std::string absentFile;                   ///< what the system says of a file that is not there
    std::string absentFolder;                 ///< and of a folder
    std::vector<std::string> impossibleNames; ///< that no file can have
};

[[nodiscard]] const CommandLine& TriedCommandLine();

} // namespace quorvane
