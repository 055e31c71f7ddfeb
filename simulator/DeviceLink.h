#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

namespace quorvane {

/// A symbolic link under which clients find the device. It is removed at the end, unless it points elsewhere
/// by then.
class DeviceLink {
public:
    explicit DeviceLink(std::filesystem::path path) : path_(std::move(path)) {}
    ~DeviceLink() { Remove(); }
    DeviceLink(const DeviceLink&) = delete;
    DeviceLink& operator=(const DeviceLink&) = delete;

    /// Makes the link, in place of an earlier symbolic link but of nothing else. @return why it could not be
    /// made
    [[nodiscard]] std::optional<std::string> PointTo(const std::string& device);
    /// Removes it, if it is there and points to the device.
    void Remove();

private:
    std::filesystem::path path_;
    std::filesystem::path device_;
};

} // namespace quorvane
