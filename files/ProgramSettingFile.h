#pragma once

#include "app/ApplicationState.h"
#include "app/ProgramVersion.h"
#include "files/PrivateProfile.h"

#include <optional>
#include <string>

namespace quorvane {

/// The file in which an operator keeps a measuring program of the instrument: a private-profile file.
class ProgramSettingFile {
public:
    ProgramSettingFile(InstrumentProgram& program, PrivateProfile& profile, ProgramVersion version)
        : program_(program), profile_(profile), version_(version)
    {
    }

    /// Writes the program's version and the seven values. Stops at the first failure; what was written by
    /// then stays.
    /// @return why it failed, or nothing
    [[nodiscard]] std::optional<FileFault> SaveProgramSetting(const std::string& path);

    /// Whether the file has a text for any of the seven values.
    [[nodiscard]] bool HoldsProgram(const std::string& path) const;

    /// Reads the seven values. A key that is missing, or all of them, gives 0 or an empty text; nothing is
    /// checked, and the version is not compared. The minutes of the two times are not in the file and stay
    /// what they are.
    void OpenProgramSetting(const std::string& path);

    /// The version text of the file that was opened last; whoever wants to know may look.
    [[nodiscard]] const std::string& OpenedVersion() const { return openedVersion_; }

private:
    InstrumentProgram& program_;
    PrivateProfile& profile_;
    ProgramVersion version_;
    std::string openedVersion_;
};

} // namespace quorvane
