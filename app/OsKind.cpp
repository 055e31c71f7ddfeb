#include "app/OsKind.h"

namespace quorvane {
namespace {

constexpr std::uint32_t kNtFamily = 2;

std::int16_t KindOf4(const BasicVersion& version)
{
    switch (version.minorVersion) {
    case 0:
        if (version.servicePack.substr(0, version.servicePack.find('\0')) == "C")
            return 4;
        return version.platformId == kNtFamily ? 2 : 3;
    case 10:
    case 90:
        return 4;
    default:
        return kUnknownOsKind;
    }
}

std::int16_t KindOf5(const BasicVersion& version, const SystemInfo& system)
{
    if (!system.VersionWithProduct())
        return kUnknownOsKind;
    switch (version.minorVersion) {
    case 0:
        return kUnknownOsKind;
    case 1:
        return 0; // meant: whether it is a workstation or a server does not matter
    default:
        return 8;
    }
}

} // namespace

std::int16_t ClassifySystem(const SystemInfo& system)
{
    const auto version = system.Version();
    if (!version)
        return kUnknownOsKind;
    switch (version->majorVersion) {
    case 3:
        return 3;
    case 4:
        return KindOf4(*version);
    case 5:
        return KindOf5(*version, system);
    case 6:
        return 7;
    default:
        return 8;
    }
}

} // namespace quorvane
