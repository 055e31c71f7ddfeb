#pragma once

#include "app/Prompts.h"
#include "app/Texts.h"
#include "files/FileStore.h"
#include "files/ProgramSettingFile.h"

#include <optional>
#include <string>

namespace quorvane {

/// The operator's way of keeping a measuring program in a file and of getting it back: asks for the name,
/// does it, and tells a failure.
class ProgramFileCommand {
public:
    struct Parts {
        FileStore& files;
        PrivateProfile& profile;
        Prompts& prompts;
        const Texts& texts;
        ProgramVersion version;
    };
    ProgramFileCommand(ApplicationState& state, const Parts& parts);

    /// @return whether the program is in the file that was chosen
    bool SaveProgram();
    /// A file that cannot be read is told and changes nothing. For one that holds no measuring program the
    /// operator is asked, because loading it empties the fields.
    /// @return whether the fields were loaded
    bool OpenProgram();

private:
    /// @return why the file cannot be used, for the operator
    [[nodiscard]] std::optional<std::string> Read(const std::string& path, std::string& bytes) const;
    /// @return why the program is not in the file, for the operator
    [[nodiscard]] std::optional<std::string> Save(const std::string& path);
    [[nodiscard]] bool IsLoadedAllTheSame();
    void TellFailure(int textId, const std::string& reason);

    ApplicationState& state_;
    FileStore& files_;
    Prompts& prompts_;
    const Texts& texts_;
    ProgramSettingFile file_;
};

} // namespace quorvane
