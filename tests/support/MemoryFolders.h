#pragma once

#include "files/Folders.h"

#include <set>
#include <vector>

namespace quorvane {

/// Folders in memory. One that is made can be written.
class MemoryFolders : public Folders {
public:
    std::set<std::string> writable;
    std::vector<std::string> made; ///< so far, in order
    bool makingFails = false;
    std::optional<std::uintmax_t> freeSpace; ///< everywhere

    bool CanWrite(const std::string& folder) const override { return writable.contains(folder); }

    std::optional<std::uintmax_t> FreeSpace(const std::string&) const override { return freeSpace; }

    bool Make(const std::string& folder) override
    {
        if (makingFails)
            return false;
        made.push_back(folder);
        writable.insert(folder);
        return true;
    }
};

} // namespace quorvane
