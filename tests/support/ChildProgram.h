#pragma once

#include "tests/support/ScratchFolder.h"

#include <map>
#include <string>
#include <vector>

namespace quorvane {

/// A program of this build, run as a process of its own. Its standard output is read through a pipe, its
/// standard error is kept in a file. Ended, if need be, with the object.
class ChildProgram {
public:
    /// @param path       of the program
    /// @param errorFile  where its standard error goes
    ChildProgram(const std::string& path, const std::vector<std::string>& arguments,
                 const std::string& errorFile, const std::map<std::string, std::string>& environment = {});
    ~ChildProgram();
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    /// The next line of its output without line end; waits for it. Empty at the end of the output.
    [[nodiscard]] std::string NextLine();
    /// All that is left of its output; waits for its end.
    [[nodiscard]] std::string RestOfOutput();
    void Signal(int number) const;
    /// Waits for its end. @return its exit status, or 128 and the number of the signal that ended it
    int Wait();

private:
    int process_ = -1;
    int output_ = -1;
    int status_ = 0;
};

} // namespace quorvane
