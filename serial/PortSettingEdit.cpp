#include "serial/PortSettingEdit.h"

#include "resources/OwnTexts.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

namespace quorvane {
namespace {

constexpr std::string_view kBaudRates[] = {"4800", "9600", "19200", "38400"};
constexpr std::string_view kDataBits[] = {"7", "8"};
constexpr std::string_view kStopBitEntries[] = {"1", "1.5", "2"};
constexpr int kFlows[] = {kNoneText, kXonXoffText, kRtsCtsText, kXonRtsText}; // RsFlow is the place from 1

struct ParityEntry {
    int text;
    char letter;
};
constexpr ParityEntry kParityEntries[] = {{kEvenText, 'e'}, {kOddText, 'o'}, {kNoneText, 'n'}};

/// A list whose entries are the settings themselves.
struct PlainList {
    std::span<const std::string_view> entries;
    std::string PortSettings::*setting;
};

std::optional<PlainList> PlainListOf(LineField field)
{
    switch (field) {
    case LineField::BaudRate:
        return PlainList{kBaudRates, &PortSettings::RsSpeed};
    case LineField::DataBits:
        return PlainList{kDataBits, &PortSettings::RsDataBit};
    case LineField::StopBits:
        return PlainList{kStopBitEntries, &PortSettings::RsStopBit};
    case LineField::Parity:
    case LineField::Flow:
        break;
    }
    return std::nullopt;
}

/// @return -1 for the end
template <typename Range, typename Place>
int IndexOf(const Range& range, Place place)
{
    return place == std::ranges::end(range) ? -1 : static_cast<int>(place - std::ranges::begin(range));
}

int ParityIndex(const std::string& letter)
{
    const char small = letter.size() == 1 ? static_cast<char>(letter[0] | 0x20) : '\0';
    return IndexOf(kParityEntries, std::ranges::find(kParityEntries, small, &ParityEntry::letter));
}

} // namespace

std::vector<std::string> LineEntries(LineField field, const Texts& texts)
{
    std::vector<std::string> entries;
    if (const auto plain = PlainListOf(field))
        entries.assign(plain->entries.begin(), plain->entries.end());
    else if (field == LineField::Parity)
        for (const ParityEntry& parity : kParityEntries)
            entries.push_back(texts[parity.text]);
    else
        for (const int flow : kFlows)
            entries.push_back(texts[flow]);
    return entries;
}

int PortSettingEdit::Selected(LineField field) const
{
    if (const auto plain = PlainListOf(field))
        return IndexOf(plain->entries, std::ranges::find(plain->entries, port_.*plain->setting));
    if (field == LineField::Parity)
        return ParityIndex(port_.RsParity);
    const bool known = port_.RsFlow >= 1 && port_.RsFlow <= static_cast<int>(std::size(kFlows));
    return known ? port_.RsFlow - 1 : -1;
}

void PortSettingEdit::Pick(LineField field, int index)
{
    const auto plain = PlainListOf(field);
    const auto at = static_cast<std::size_t>(index);
    if (plain && at < plain->entries.size())
        port_.*plain->setting = plain->entries[at];
    else if (field == LineField::Parity && at < std::size(kParityEntries))
        port_.RsParity = kParityEntries[at].letter;
    else if (field == LineField::Flow && at < std::size(kFlows))
        port_.RsFlow = static_cast<std::int16_t>(index + 1);
}

std::optional<Message> PortOverlap(const std::string& chosen, const std::string& secondChannelPort,
                                   const Texts& texts)
{
    if (secondChannelPort.empty() || chosen != secondChannelPort)
        return std::nullopt;
    // The title is that of another dialog, and has always been.
    return Message{.text = texts[kPortOverlapText], .titleId = kFolderSetupText};
}

Message NoPortMessage(const Texts& texts)
{
    return {.text = texts[kNoPortText], .icon = Icon::Exclamation};
}

} // namespace quorvane
