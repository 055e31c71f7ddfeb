#include "serial/LineSettingsText.h"

#include "files/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

namespace quorvane {
namespace {

template <typename Value, std::size_t count>
std::optional<Value> Find(const std::array<std::pair<std::string_view, Value>, count>& table,
                          std::string_view text)
{
    const auto found =
        std::find_if(table.begin(), table.end(), [text](const auto& row) { return row.first == text; });
    if (found == table.end())
        return std::nullopt;
    return found->second;
}

std::string_view WithoutBlanks(std::string_view text)
{
    while (text.starts_with(' '))
        text.remove_prefix(1);
    while (text.ends_with(' '))
        text.remove_suffix(1);
    return text;
}

std::optional<unsigned> WholeNumber(std::string_view text)
{
    unsigned value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

constexpr std::array<std::pair<std::string_view, Parity>, 6> kParities{{
    {"N", Parity::None},
    {"n", Parity::None},
    {"E", Parity::Even},
    {"e", Parity::Even},
    {"O", Parity::Odd},
    {"o", Parity::Odd},
}};
constexpr std::array<std::pair<std::string_view, StopBits>, 3> kStopBits{{
    {"1", StopBits::One},
    {"1.5", StopBits::OneAndHalf},
    {"2", StopBits::Two},
}};
constexpr std::array kHandshakings{Handshaking::None, Handshaking::XonXoff, Handshaking::RtsCts,
                                   Handshaking::RtsCtsXonXoff};

} // namespace

int PortNumber(const std::string& rsPort)
{
    constexpr std::size_t kPrefix = 3;
    if (rsPort.size() <= kPrefix)
        return 0;
    return RoundToInt16(LeadingNumber(std::string_view(rsPort).substr(kPrefix))).value_or(0);
}

std::string LineSettingsText(const PortSettings& port)
{
    return port.RsSpeed + "," + port.RsParity + "," + port.RsDataBit + "," + port.RsStopBit;
}

std::optional<LineSettings> ReadLineSettings(const PortSettings& port)
{
    const auto speed = WholeNumber(WithoutBlanks(port.RsSpeed));
    const auto parity = Find(kParities, WithoutBlanks(port.RsParity));
    const auto dataBits = WholeNumber(WithoutBlanks(port.RsDataBit));
    const auto stopBits = Find(kStopBits, WithoutBlanks(port.RsStopBit));
    const int handshaking = port.RsFlow - 1;
    if (!speed || !parity || !dataBits || !stopBits || handshaking < 0 || handshaking > 3)
        return std::nullopt;

    LineSettings line;
    line.speed = *speed;
    line.parity = *parity;
    line.dataBits = *dataBits;
    line.stopBits = *stopBits;
    line.handshaking = kHandshakings.at(static_cast<std::size_t>(handshaking));
    return line;
}

} // namespace quorvane
