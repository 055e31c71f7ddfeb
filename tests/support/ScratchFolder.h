#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>

namespace quorvane {

/// A folder that is removed with the object.
class ScratchFolder {
public:
    ScratchFolder()
        : path_((std::filesystem::temp_directory_path() /
                 ("quorvane-test-" + std::to_string(std::random_device()())))
                    .string())
    {
        if (!std::filesystem::create_directory(path_))
            throw std::runtime_error("no scratch folder");
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
    }
    ~ScratchFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    [[nodiscard]] std::string Path(const std::string& name = {}) const { return path_ + "/" + name; }

private:
    std::string path_;
};

/// The bytes of a file; empty when there is none.
[[nodiscard]] inline std::string FileBytes(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace quorvane
