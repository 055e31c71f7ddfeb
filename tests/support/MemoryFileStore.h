#pragma once

#include "files/FileStore.h"

#include <map>

namespace quorvane {

/// Files in memory. A fault that is set meets every operation of its kind until it is reset; the files are
/// untouched then.
class MemoryFileStore : public FileStore {
public:
    std::map<std::string, std::string> files;
    std::optional<FileFault> readFault;
    std::optional<FileFault> appendFault;
    std::optional<FileFault> replaceFault;
    int replaceCalls = 0;

    bool Exists(const std::string& path) const override { return files.contains(path); }

    std::optional<std::uintmax_t> Size(const std::string& path) const override
    {
        const auto file = files.find(path);
        return file == files.end() ? std::nullopt : std::optional<std::uintmax_t>(file->second.size());
    }

    std::optional<FileFault> ReadWhole(const std::string& path, std::string& bytes) const override
    {
        if (readFault)
            return readFault;
        const auto file = files.find(path);
        if (file == files.end())
            return FileFault{FileFaultKind::NotFound, "no such file"};
        bytes = file->second;
        return std::nullopt;
    }

    std::optional<FileFault> Append(const std::string& path, std::string_view bytes) override
    {
        if (!appendFault)
            files[path].append(bytes);
        return appendFault;
    }

    std::optional<FileFault> CheckReplace(const std::string&) const override { return replaceFault; }

    std::optional<FileFault> Replace(const std::string& path, std::string_view bytes) override
    {
        ++replaceCalls;
        if (!replaceFault)
            files[path] = bytes;
        return replaceFault;
    }
};

} // namespace quorvane
