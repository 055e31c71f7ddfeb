#include "simulator/InstrumentFaults.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace quorvane {
namespace {

/// One argument of a fault: a command letter, or a whole number for `number`.
struct Parameter {
    enum class Kind { None, Letter, Number } kind = Kind::None;
    int InstrumentFault::*number = nullptr;
    int least = 0;
    int most = 0;
    std::optional<int> standard =
        std::nullopt; ///< what holds without the argument; nothing: it must be there
};

struct FaultRule {
    std::string_view name;
    FaultKind kind;
    std::array<Parameter, 2> parameters;
    std::string_view form;
    std::string_view help;
};

constexpr Parameter kNone;
constexpr Parameter kLetter{Parameter::Kind::Letter, nullptr, 0, 0, 0};

constexpr Parameter Number(int InstrumentFault::*number, int least, int most,
                           std::optional<int> standard = std::nullopt)
{
    return {Parameter::Kind::Number, number, least, most, standard};
}

constexpr int kLongestLine = 30; ///< bytes of a data line with four fields
constexpr int kMostMs = 60000;
constexpr int kMostLines = 1000000;

// clang-format off
constexpr FaultRule kRules[] = {
    {"silent", FaultKind::Silent, {kLetter, kNone}, "silent[:LETTER]",
     "no answer to any command, or to this one, which is not carried out either"},
    {"no-ack", FaultKind::NoAck, {kLetter, kNone}, "no-ack[:LETTER]",
     "no acknowledgement; the data lines of D and the clock of M come all the same"},
    {"late-ack", FaultKind::LateAck, {Number(&InstrumentFault::timeMs, 1, kMostMs, 600), kLetter}, "late-ack[:MS[,LETTER]]",
     "acknowledgements that late (600 ms), and what follows behind them"},
    {"wrong-ack", FaultKind::WrongAck, {kLetter, kNone}, "wrong-ack[:LETTER]",
     "\"AX\" instead of the acknowledgement"},
    {"split", FaultKind::Split, {Number(&InstrumentFault::byte, 1, kLongestLine - 1), Number(&InstrumentFault::timeMs, 1, kMostMs, 40)},
     "split:BYTE[,MS]", "a pause (40 ms) after this byte of every answer and data line that is longer"},
    {"garbage", FaultKind::Garbage, {Number(&InstrumentFault::count, 1, 100000, 16), kNone}, "garbage[:BYTES]",
     "random bytes (16) before the first data line after D"},
    {"no-line-end", FaultKind::NoLineEnd, {Number(&InstrumentFault::every, 1, kMostLines, 3), kNone}, "no-line-end[:EVERY]",
     "one data line in EVERY (3) lacks its line end"},
    {"dropped-byte", FaultKind::DroppedByte, {Number(&InstrumentFault::byte, 1, kLongestLine, 12), Number(&InstrumentFault::every, 1, kMostLines, 5)},
     "dropped-byte[:POS[,EVERY]]", "byte POS (12) is missing from one data line in EVERY (5)"},
    {"chatter", FaultKind::Chatter, {kNone, kNone}, "chatter",
     "bytes without pause from power-on, whatever else is said"},
    {"hang-up", FaultKind::HangUp, {Number(&InstrumentFault::count, 1, kMostLines), kNone}, "hang-up:LINES",
     "the device goes away after so many data lines"},
    {"unplug", FaultKind::Unplug, {Number(&InstrumentFault::count, 1, kMostLines), Number(&InstrumentFault::timeMs, 1, kMostMs, 2000)},
     "unplug:LINES[,MS]", "the device is away for a while (2000 ms) after so many data lines, again and again"},
};
// clang-format on

/// Puts one argument where its parameter says. @return whether it is one
bool TakeArgument(std::string_view text, const Parameter& parameter, InstrumentFault& fault)
{
    if (parameter.kind == Parameter::Kind::Letter) {
        if (text.size() != 1 || text[0] < 'A' || text[0] > 'Z')
            return false;
        fault.letter = text[0];
        return true;
    }
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stopped != end || number < parameter.least || number > parameter.most)
        return false;
    fault.*parameter.number = number;
    return true;
}

std::vector<std::string_view> SplitAtCommas(std::string_view text)
{
    std::vector<std::string_view> parts;
    for (std::size_t comma = 0; comma != std::string_view::npos;) {
        comma = text.find(',');
        parts.push_back(text.substr(0, comma));
        text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
    }
    return parts;
}

std::string Expectation(const FaultRule& rule)
{
    std::string text = "; it is written ";
    text.append(rule.form);
    for (const Parameter& parameter : rule.parameters)
        if (parameter.kind == Parameter::Kind::Number)
            text.append(", ")
                .append(std::to_string(parameter.least))
                .append(" to ")
                .append(std::to_string(parameter.most));
    return text;
}

} // namespace

std::optional<UsageFault> ReadFault(std::string_view text, InstrumentFault& fault)
{
    const std::size_t colon = text.find(':');
    const std::string_view name = text.substr(0, colon);
    const auto rule = std::find_if(std::begin(kRules), std::end(kRules),
                                   [name](const FaultRule& candidate) { return candidate.name == name; });
    if (rule == std::end(kRules))
        return UsageFault{"unknown fault " + Quoted(name)};

    const auto wrong = [&] { return UsageFault{"wrong fault " + Quoted(text) + Expectation(*rule)}; };
    std::vector<std::string_view> arguments;
    if (colon != std::string_view::npos)
        arguments = SplitAtCommas(text.substr(colon + 1));
    fault = InstrumentFault{};
    fault.kind = rule->kind;
    std::size_t taken = 0;
    for (const Parameter& parameter : rule->parameters) {
        if (parameter.kind == Parameter::Kind::None)
            break;
        if (taken < arguments.size()) {
            if (!TakeArgument(arguments[taken++], parameter, fault))
                return wrong();
        } else if (!parameter.standard) {
            return wrong();
        } else if (parameter.kind == Parameter::Kind::Number) {
            fault.*parameter.number = *parameter.standard;
        }
    }
    return taken == arguments.size() ? std::nullopt : std::optional(wrong());
}

const InstrumentFault* FindFault(const std::vector<InstrumentFault>& faults, FaultKind kind, char letter)
{
    const auto found =
        std::find_if(faults.begin(), faults.end(), [kind, letter](const InstrumentFault& fault) {
            return fault.kind == kind &&
                   (fault.letter == InstrumentFault::kAnyCommand || fault.letter == letter);
        });
    return found != faults.end() ? &*found : nullptr;
}

std::string FaultHelp()
{
    std::vector<std::pair<std::string, std::string>> rows;
    for (const FaultRule& rule : kRules)
        rows.emplace_back(rule.form, rule.help);
    return TwoColumns(rows);
}

} // namespace quorvane
