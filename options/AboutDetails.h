#pragma once

#include "app/ApplicationState.h"
#include "app/Texts.h"

#include <string>
#include <vector>

namespace quorvane {

/// What is known outside the state.
struct AboutSurroundings {
    struct Library {
        std::string name;
        std::string version;
        std::string licence; ///< short identifier: "GPL-3.0-or-later"
    };
    std::vector<Library> libraries; ///< that the program is made with
    std::string system;             ///< the operating system's own name, and its kernel
};

struct AboutRow {
    std::string caption; ///< ends in a colon
    std::string value;
};

/// What support asks for first: version, libraries, processor and system as start-up recorded them, and last
/// the folder of the program's files. The processor's name is always told, be it as unknown or as not
/// answered yet; what else the system did not tell is left out.
[[nodiscard]] std::vector<AboutRow> AboutRows(const ApplicationState& state, const Texts& texts,
                                              const AboutSurroundings& surroundings);

/// The rows as text for a mail, a line "caption: value" for each.
[[nodiscard]] std::string MailText(const std::vector<AboutRow>& rows);

} // namespace quorvane
