#include "files/NumberText.h"
#include "platform/posix/PosixSystemInfo.h"
#include "platform/posix/ProcessorList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

namespace quorvane {
namespace {

using testing::ElementsAre;

/// Processors of a machine that has only these files, a line for each: description, name, maker, clocks,
/// cache.
std::vector<std::string> List(const std::map<std::string, std::string>& files)
{
    const auto processors = ListProcessors([&](const std::string& path) {
        const auto file = files.find(path);
        return file == files.end() ? std::string() : file->second;
    });
    std::vector<std::string> lines;
    for (const ProcessorRecord& record : processors) {
        const std::string cache = record.l2CacheSize ? GeneralText(*record.l2CacheSize) : "unknown";
        lines.push_back(record.description + "|" + record.name + "|" + record.manufacturer + "|" +
                        GeneralText(record.currentClockSpeed) + "|" + GeneralText(record.maxClockSpeed) +
                        "|" + cache);
    }
    return lines;
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
    EXPECT_THAT(processors, ElementsAre("||GenuineA|0|0|unknown",
                                        "Family 6 Model 158 Stepping 10|Fast Chip: CPU @ 2.60GHz|GenuineB|"
                                        "2596.15|4500|256"));
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
    EXPECT_THAT(processors[0], testing::StartsWith("|Board 4 Rev 1.1|"));
    EXPECT_EQ(processors[1],
              "Architecture 8 Variant 0x0 Part 0xd08 Revision 3|Board 4 Rev 1.1|ARM|600|1500|1024");
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
    EXPECT_THAT(processors, ElementsAre("||0x99|0|0|unknown")); // an unknown maker keeps its code
}

TEST(SystemInfo, KnowsThisMachine)
{
    PosixSystemInfo system;
    EXPECT_FALSE(system.Version());
    EXPECT_FALSE(system.VersionWithProduct());
    EXPECT_FALSE(system.TakeProcessors()) << "nobody asked";
    system.AskForProcessors();
    const auto processors = system.TakeProcessors();
    ASSERT_TRUE(processors);
    EXPECT_FALSE(processors->empty());
    EXPECT_FALSE(system.TakeProcessors()) << "taken";
}

} // namespace
} // namespace quorvane
