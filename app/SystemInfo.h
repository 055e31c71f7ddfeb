#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// What the operating system says of its version.
struct BasicVersion {
    std::uint32_t majorVersion = 0;
    std::uint32_t minorVersion = 0;
    std::uint32_t platformId = 0; ///< 2: the NT family
    std::string servicePack;      ///< may go on behind its first NUL
};

struct ExtendedVersion : BasicVersion {
    std::uint8_t productType = 0; ///< 1 workstation, 2 domain controller, 3 server
};

/// A processor. What the system does not tell is empty or 0.
struct ProcessorRecord {
    std::string description; ///< family, model and stepping, or the like
    std::string name;
    std::string manufacturer;
    double currentClockSpeed = 0;      ///< MHz
    double maxClockSpeed = 0;          ///< MHz
    std::optional<double> l2CacheSize; ///< KB
};

/// What the machine says of itself.
class SystemInfo {
public:
    virtual ~SystemInfo() = default;
    /// @return nothing when the system refuses or knows no such record
    [[nodiscard]] virtual std::optional<BasicVersion> Version() const = 0;
    [[nodiscard]] virtual std::optional<ExtendedVersion> VersionWithProduct() const = 0;
    /// Asks for the processors and returns at once: the system may take seconds to answer. Asked once.
    virtual void AskForProcessors() = 0;
    /// The answer, given out once: a record for each processor that the system lists, in its order; none when
    /// it refuses. @return nothing before the answer has come; it may never come
    [[nodiscard]] virtual std::optional<std::vector<ProcessorRecord>> TakeProcessors() = 0;
};

} // namespace quorvane
