#pragma once

#include "app/Texts.h"
#include "files/Folders.h"

#include <string>

namespace quorvane {

/// Where a run will write.
struct RunPlaces {
    std::string programFolder; ///< UTF-8; its journal
    std::string dataFolder;    ///< UTF-8; where it will be saved; empty: not known yet
};

/// What an operator should know of these folders before a run of `samples` readings: that nothing can be
/// written there, or that little room is left for journal and data file. May take as long as the system needs
/// to look.
/// @return a paragraph for each, between empty lines; empty when all is well
[[nodiscard]] std::string RunAdvice(const RunPlaces& places, double samples, const Folders& folders,
                                    const Texts& texts);

} // namespace quorvane
