#include "platform/posix/PosixSystemInfo.h"
#include "platform/posix/ProcessorList.h"

#include <gtest/gtest.h>
#include <map>

namespace quorvane {
namespace {

/// Processors of a machine that has only these files.
std::vector<ProcessorRecord> List(const std::map<std::string, std::string>& files)
{
    return ListProcessors([&](const std::string& path) {
        const auto file = files.find(path);
        return file == files.end() ? std::string() : file->second;
    });
}

constexpr char kCpuInfo[] = "/proc/cpuinfo";
const std::string kCpu1 = "/sys/devices/system/cpu/cpu1";

TEST(ProcessorList, ReadsAPc)
{
    const auto processors = List({
        {kCpuInfo, "processor\t: 0\nvendor_id\t: GenuineA\n\n"
                   "processor\t: 1\nvendor_id\t: GenuineB\ncpu family\t: 6\nmodel\t\t: 158\n"
                   "model name\t: Fast Chip: CPU @ 2.60GHz\nstepping\t: 10\ncpu MHz\t\t: 2596.150\n"
                   "cache size\t: 12288 KB\npower management:\n\n"},
        {kCpu1 + "/cpufreq/cpuinfo_max_freq", "4500000\n"},
        {kCpu1 + "/cpufreq/scaling_cur_freq", "800000\n"},
        {kCpu1 + "/cache/index0/level", "1\n"},
        {kCpu1 + "/cache/index0/size", "32K\n"},
        {kCpu1 + "/cache/index2/level", "2\n"},
        {kCpu1 + "/cache/index2/size", "256K\n"},
        {kCpu1 + "/cache/index3/level", "3\n"},
        {kCpu1 + "/cache/index3/size", "12288K\n"},
    });
    ASSERT_EQ(processors.size(), 2U);
    EXPECT_EQ(processors[0].manufacturer, "GenuineA");
    EXPECT_EQ(processors[0].name, "");
    EXPECT_EQ(processors[0].maxClockSpeed, 0);
    EXPECT_FALSE(processors[0].l2CacheSize);
    EXPECT_EQ(processors[1].manufacturer, "GenuineB");
    EXPECT_EQ(processors[1].description, "Family 6 Model 158 Stepping 10");
    EXPECT_EQ(processors[1].name, "Fast Chip: CPU @ 2.60GHz");
    EXPECT_EQ(processors[1].currentClockSpeed, 2596.15);
    EXPECT_EQ(processors[1].maxClockSpeed, 4500);
    EXPECT_EQ(processors[1].l2CacheSize, 256);
}

TEST(ProcessorList, ReadsAnArmBoardWhereMuchIsMissing)
{
    const auto processors = List({
        {kCpuInfo, "processor\t: 0\nBogoMIPS\t: 108.00\n\n"
                   "processor\t: 1\nBogoMIPS\t: 108.00\nCPU implementer\t: 0x41\nCPU architecture: 8\n"
                   "CPU variant\t: 0x0\nCPU part\t: 0xd08\nCPU revision\t: 3\n\n"
                   "Hardware\t: \nRevision\t: c03111\nModel\t\t: Board 4 Rev 1.1\n"},
        {kCpu1 + "/cpufreq/cpuinfo_max_freq", "1500000"},
        {kCpu1 + "/cpufreq/scaling_cur_freq", "600000"},
        {kCpu1 + "/cache/index2/level", "2"},
        {kCpu1 + "/cache/index2/size", "1M"},
    });
    ASSERT_EQ(processors.size(), 2U);
    EXPECT_EQ(processors[0].description, "");
    EXPECT_EQ(processors[0].name, "Board 4 Rev 1.1");
    EXPECT_EQ(processors[1].description, "Architecture 8 Variant 0x0 Part 0xd08 Revision 3");
    EXPECT_EQ(processors[1].name, "Board 4 Rev 1.1");
    EXPECT_EQ(processors[1].manufacturer, "ARM");
    EXPECT_EQ(processors[1].currentClockSpeed, 600);
    EXPECT_EQ(processors[1].maxClockSpeed, 1500);
    EXPECT_EQ(processors[1].l2CacheSize, 1024);
}

TEST(ProcessorList, AnUnknownFormGivesEmptyFields)
{
    for (const std::string text : {"", "\n\n:::\n", "vendor_id: A", "\xFF\xFE"})
        EXPECT_TRUE(List({{kCpuInfo, text}}).empty()) << text;
    const auto processors = List({
        {kCpuInfo, "processor: x\ncpu MHz: fast\nCPU implementer: 0x99\nno colon\ncpu family\nmodel name\t:"},
        {"/sys/devices/system/cpu/cpux/cache/index0/level", "2"},
        {"/sys/devices/system/cpu/cpux/cache/index0/size", "large"},
    });
    ASSERT_EQ(processors.size(), 1U);
    EXPECT_EQ(processors[0].description, "");
    EXPECT_EQ(processors[0].name, "");
    EXPECT_EQ(processors[0].manufacturer, "0x99") << "an unknown maker keeps its code";
    EXPECT_EQ(processors[0].currentClockSpeed, 0);
    EXPECT_FALSE(processors[0].l2CacheSize);
}

TEST(SystemInfo, KnowsThisMachine)
{
    const PosixSystemInfo system;
    EXPECT_FALSE(system.Version());
    EXPECT_FALSE(system.VersionWithProduct());
    EXPECT_FALSE(system.Processors().empty());
}

} // namespace
} // namespace quorvane
