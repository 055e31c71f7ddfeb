#include "platform/posix/PosixPortDescriptions.h"
#include "platform/posix/PosixPortProbe.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/support/ScratchFolder.h"

#include <filesystem>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace quorvane {
namespace {

namespace fs = std::filesystem;

TEST(PortDescriptions, AreThoseOfTheUsbDeviceAboveThePort)
{
    const ScratchFolder folder; // the devices and the kernel's folders of them
    for (const char* path :
         {"dev/by-id", "class/ttyUSB0", "class/ttyS0", "usb/1-2/1-2:1.0/ttyUSB0", "board/serial0"})
        fs::create_directories(folder.Path(path));
    fs::create_symlink("../../usb/1-2/1-2:1.0/ttyUSB0", folder.Path("class/ttyUSB0/device"));
    fs::create_symlink("../../board/serial0", folder.Path("class/ttyS0/device"));
    const std::pair<const char*, const char*> files[] = {
        {"dev/ttyUSB0", ""},
        {"dev/ttyS0", ""},
        {"dev/ttyUSB7", ""},
        {"usb/idVendor", "1d6b\n"}, // the hub's
        {"usb/product", "Hub\n"},
        {"usb/1-2/idVendor", "0403\n"},
        {"usb/1-2/1-2:1.0/ttyUSB0/port_number", "3\n"},
        {"usb/1-2/manufacturer", "FTDI\n"},
        {"usb/1-2/product", "USB \xC2\xB5"
                            "C \n"},
    };
    for (const auto& [path, bytes] : files)
        std::ofstream(folder.Path(path)) << bytes;
    fs::create_symlink("../ttyUSB0", folder.Path("dev/by-id/meter"));

    const PosixPortDescriptions descriptions(folder.Path("class"));
    for (const char* path : {"dev/ttyUSB0", "dev/by-id/meter"}) {
        const PortDescription found = descriptions.Describe({folder.Path(path)});
        EXPECT_EQ(found.maker, "FTDI") << path;
        EXPECT_EQ(found.product, "USB \xC2\xB5"
                                 "C")
            << path;
        EXPECT_EQ(found.serialNumber, "") << path;
        EXPECT_EQ(found.place, "1-2") << path;
        EXPECT_EQ(found.channel, "1.0/3") << path;
    }
    for (const char* path : {"dev/ttyS0", "dev/ttyUSB7", "dev/gone"})
        EXPECT_EQ(descriptions.Describe({folder.Path(path)}), PortDescription{}) << path;
}

TEST(PortProbe, NamesTheGroupWhoseMembersMayUseTheDevice)
{
    const bool isRoot = ::geteuid() == 0;
    const gid_t ownGroup = isRoot ? 1 : ::getegid();
    struct Row {
        std::string_view what;
        mode_t mode;
        gid_t group;
        std::string named;
    };
    const Row rows[] = {
        {"read and write", 0060, ownGroup, ::getgrgid(ownGroup)->gr_name},
        {"read only", 0040, ownGroup, ""},
        {"root's group is none to join", 0060, 0, ""},
    };
    for (const Row& row : rows) {
        if (!isRoot && row.group == 0)
            continue; // only root can give a file to root
        const ScratchFolder folder;
        ::chmod(folder.Path().c_str(), 0755);
        const std::string device = folder.Path("device");
        std::ofstream(device) << "";
        ASSERT_EQ(::chown(device.c_str(), isRoot ? kOrdinaryUser : ::geteuid(), row.group), 0);
        ASSERT_EQ(::chmod(device.c_str(), row.mode), 0);
        AsOrdinaryUser([&] {
            const auto fault = PosixPortProbe().Probe({device});
            ASSERT_TRUE(fault) << row.what;
            EXPECT_EQ(fault->kind, PortFaultKind::NoPermission) << row.what;
            EXPECT_EQ(fault->group, row.named) << row.what;
        });
    }
}

} // namespace
} // namespace quorvane
