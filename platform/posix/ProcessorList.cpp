#include "platform/posix/ProcessorList.h"

#include "files/NumberText.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace quorvane {
namespace {

struct Entry {
    std::string_view key;
    std::string_view value;
};
using Entries = std::vector<Entry>;

/// What is said of each processor, and what of all of them.
struct CpuInfo {
    std::vector<Entries> processors;
    Entries common;
};

constexpr std::string_view kNumberKey = "processor";

struct Word {
    std::string_view key;
    std::string_view word;
};

/// How a description calls the numbers of a processor: first as on PCs, then as on ARM.
constexpr Word kDescription[] = {
    {"cpu family", "Family"},     {"model", "Model"},
    {"stepping", "Stepping"},     {"CPU architecture", "Architecture"},
    {"CPU variant", "Variant"},   {"CPU part", "Part"},
    {"CPU revision", "Revision"},
};

/// Who is behind the codes by which ARM processors name their maker.
constexpr Word kImplementers[] = {
    {"0x41", "ARM"},       {"0x42", "Broadcom"}, {"0x43", "Cavium"},   {"0x46", "Fujitsu"},
    {"0x48", "HiSilicon"}, {"0x4e", "NVIDIA"},   {"0x51", "Qualcomm"}, {"0x53", "Samsung"},
    {"0x56", "Marvell"},   {"0x61", "Apple"},    {"0xc0", "Ampere"},
};

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

/// Lines of key, colon and value. A processor's lines begin with its number and end with an empty line.
CpuInfo ParseCpuInfo(std::string_view text)
{
    CpuInfo info;
    bool inProcessor = false;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const std::size_t colon = line.find(':');
        if (colon == std::string_view::npos) {
            inProcessor = inProcessor && !Trimmed(line).empty();
            continue;
        }
        const Entry entry{Trimmed(line.substr(0, colon)), Trimmed(line.substr(colon + 1))};
        if (entry.key == kNumberKey) {
            info.processors.emplace_back();
            inProcessor = true;
        }
        (inProcessor ? info.processors.back() : info.common).push_back(entry);
    }
    return info;
}

/// The value of the first of `keys` that is there and says something.
std::string Find(const Entries& entries, std::initializer_list<std::string_view> keys)
{
    for (const std::string_view key : keys) {
        const auto isIt = [key](const Entry& entry) { return entry.key == key && !entry.value.empty(); };
        const auto entry = std::ranges::find_if(entries, isIt);
        if (entry != entries.end())
            return std::string(entry->value);
    }
    return {};
}

std::string Description(const Entries& processor)
{
    std::string description;
    for (const auto& [key, word] : kDescription) {
        const std::string value = Find(processor, {key});
        if (value.empty())
            continue;
        if (!description.empty())
            description += ' ';
        description.append(word).append(1, ' ').append(value);
    }
    return description;
}

std::string Name(const Entries& processor, const Entries& common)
{
    const std::string own = Find(processor, {"model name", "cpu model", "cpu"});
    return own.empty() ? Find(common, {"model name", "Processor", "Hardware", "Model"}) : own;
}

std::string Manufacturer(const Entries& processor)
{
    const std::string code = Find(processor, {"CPU implementer"});
    const auto* const known = std::ranges::find(kImplementers, code, &Word::key);
    if (known != std::ranges::end(kImplementers))
        return std::string(known->word);
    return code.empty() ? Find(processor, {"vendor_id"}) : code;
}

constexpr double kKHzPerMHz = 1000;

/// Size of the second-level cache, KB.
std::optional<double> L2CacheSize(const std::string& folder, const ReadText& read)
{
    constexpr int kMostCaches = 10;
    constexpr double kKbPerMb = 1024;
    for (int index = 0; index < kMostCaches; ++index) {
        const std::string cache = folder + "/cache/index" + std::to_string(index);
        if (Trimmed(read(cache + "/level")) != "2")
            continue;
        const std::string size = read(cache + "/size"); // "512K"
        const double number = LeadingNumber(size);
        if (number > 0)
            return size.find('M') == std::string::npos ? number : number * kKbPerMb;
    }
    return std::nullopt;
}

ProcessorRecord Record(const Entries& processor, const Entries& common, const ReadText& read)
{
    ProcessorRecord record;
    record.description = Description(processor);
    record.name = Name(processor, common);
    record.manufacturer = Manufacturer(processor);
    record.currentClockSpeed = LeadingNumber(Find(processor, {"cpu MHz"}));

    const std::string folder = "/sys/devices/system/cpu/cpu" + Find(processor, {kNumberKey});
    record.maxClockSpeed = LeadingNumber(read(folder + "/cpufreq/cpuinfo_max_freq")) / kKHzPerMHz;
    if (record.currentClockSpeed <= 0)
        record.currentClockSpeed = LeadingNumber(read(folder + "/cpufreq/scaling_cur_freq")) / kKHzPerMHz;
    record.l2CacheSize = L2CacheSize(folder, read);
    return record;
}

} // namespace

std::vector<ProcessorRecord> ListProcessors(const ReadText& read)
{
    const std::string text = read("/proc/cpuinfo");
    const CpuInfo info = ParseCpuInfo(text);
    std::vector<ProcessorRecord> records;
    for (const Entries& processor : info.processors)
        records.push_back(Record(processor, info.common, read));
    return records;
}

} // namespace quorvane
