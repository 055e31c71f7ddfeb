#pragma once

#include "serial/PortDescriptions.h"

#include <string>
#include <utility>

namespace quorvane {

/// Reads what a USB device told the kernel when it was plugged in. Of any other device nothing is known.
class PosixPortDescriptions final : public PortDescriptions {
public:
    /// @param folder  where the kernel shows its terminals
    explicit PosixPortDescriptions(std::string folder = "/sys/class/tty") : folder_(std::move(folder)) {}
    [[nodiscard]] PortDescription Describe(const PortDevice& device) const override;

private:
    std::string folder_;
};

} // namespace quorvane
