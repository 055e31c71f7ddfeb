#pragma once

#include "serial/PortNames.h"

namespace quorvane {

/// Opens a line as the serial control does and closes it again; its settings stay as they are.
class PosixPortProbe final : public PortProbe {
public:
    [[nodiscard]] std::optional<PortFault> Probe(const PortDevice& device) const override;
};

} // namespace quorvane
