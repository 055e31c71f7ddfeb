#pragma once

#include "app/SystemInfo.h"

namespace quorvane {

/// A machine that a test describes.
class FixedSystemInfo : public SystemInfo {
public:
    std::optional<BasicVersion> version;
    std::optional<ExtendedVersion> versionWithProduct;
    std::vector<ProcessorRecord> processors;

    std::optional<BasicVersion> Version() const override { return version; }
    std::optional<ExtendedVersion> VersionWithProduct() const override { return versionWithProduct; }
    std::vector<ProcessorRecord> Processors() const override { return processors; }
};

} // namespace quorvane
