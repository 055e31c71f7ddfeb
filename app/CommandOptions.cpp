#include "app/CommandOptions.h"

#include "app/FixedForm.h"
#include "files/NumberText.h"

#include <algorithm>
#include <charconv>

namespace quorvane {
namespace {

/// The number that the whole text is, or nothing. `format` goes to std::from_chars.
template <typename Number, typename... Format>
std::optional<Number> WholeTextNumber(std::string_view text, Format... format)
{
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, number, format...);
    if (error != std::errc{} || stopped != end)
        return std::nullopt;
    return number;
}

UsageFault OutOfRange(std::string_view name, std::string_view kind, const std::string& least,
                      const std::string& most, std::string_view text)
{
    return {std::string(name) + " takes a " + std::string(kind) + " from " + least + " to " + most +
            ", not " + Quoted(text)};
}

} // namespace

std::optional<UsageFault> CommandOptions::Read(std::span<const std::string> arguments)
{
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const std::size_t equals = argument->find('=');
        const std::string name = argument->substr(0, equals);
        if (!name.starts_with('-') || name.find_first_not_of('-') == std::string::npos) {
            const CommandOption* const unnamed = NextUnnamed();
            if (unnamed == nullptr)
                return UsageFault{"unexpected argument " + Quoted(*argument)};
            values_[std::string(unnamed->name)].push_back(*argument);
            continue;
        }
        const CommandOption* const option = Find(name);
        if (option == nullptr)
            return UsageFault{"unknown option " + Quoted(name)};
        if (Has(name) && !option->repeatable)
            return UsageFault{name + " is given twice"};

        std::string value;
        if (option->placeholder.empty()) {
            if (equals != std::string::npos)
                return UsageFault{name + " takes no value"};
        } else if (equals != std::string::npos) {
            value = argument->substr(equals + 1);
        } else if (std::next(argument) != arguments.end() && !std::next(argument)->starts_with("--")) {
            value = *++argument;
        }
        if (!option->placeholder.empty() && value.empty())
            return UsageFault{std::string(name)
                                  .append(" lacks its value: ")
                                  .append(name)
                                  .append(" ")
                                  .append(option->placeholder)};
        values_[name].push_back(std::move(value));
    }
    return std::nullopt;
}

std::string CommandOptions::Text(std::string_view name, std::string_view otherwise) const
{
    const std::string* const given = Given(name);
    return given != nullptr ? *given : std::string(otherwise);
}

std::vector<std::string> CommandOptions::Texts(std::string_view name) const
{
    const auto found = values_.find(name);
    return found != values_.end() ? found->second : std::vector<std::string>{};
}

std::optional<UsageFault> CommandOptions::ReadWhole(std::string_view name, std::int64_t least,
                                                    std::int64_t most, std::int64_t& value) const
{
    const std::string* const given = Given(name);
    if (given == nullptr)
        return std::nullopt;
    const auto number = WholeTextNumber<std::int64_t>(*given);
    if (!number || *number < least || *number > most)
        return OutOfRange(name, "whole number", std::to_string(least), std::to_string(most), *given);
    value = *number;
    return std::nullopt;
}

std::optional<UsageFault> CommandOptions::ReadDecimal(std::string_view name, double least, double most,
                                                      double& value) const
{
    const std::string* const given = Given(name);
    if (given == nullptr)
        return std::nullopt;
    const auto number = WholeTextNumber<double>(*given, std::chars_format::fixed);
    if (!number || !(*number >= least && *number <= most)) // written so that "nan" is refused too
        return OutOfRange(name, "number", GeneralText(least), GeneralText(most), *given);
    value = *number;
    return std::nullopt;
}

std::optional<UsageFault> CommandOptions::ReadChoice(std::string_view name,
                                                     std::span<const std::string_view> words,
                                                     std::size_t& index) const
{
    const std::string* const given = Given(name);
    if (given == nullptr)
        return std::nullopt;
    const auto found = std::find(words.begin(), words.end(), *given);
    if (found != words.end()) {
        index = static_cast<std::size_t>(found - words.begin());
        return std::nullopt;
    }
    std::string list;
    for (const std::string_view word : words)
        list.append(list.empty() ? "" : ", ").append(word);
    return UsageFault{std::string(name) + " takes one of " + list + ", not " + Quoted(*given)};
}

std::optional<UsageFault> CommandOptions::ReadMoment(std::string_view name,
                                                     std::optional<LocalMoment>& value) const
{
    const std::string* const given = Given(name);
    if (given == nullptr)
        return std::nullopt;
    value = MomentInForm(*given, "YYYY-MM-DD hh:mm:ss");
    if (value)
        return std::nullopt;
    return UsageFault{std::string(name)
                          .append(" takes a date and time as \"2026-07-31 09:30:00\", not ")
                          .append(Quoted(*given))};
}

std::string CommandOptions::Help() const
{
    std::vector<std::pair<std::string, std::string>> rows;
    for (const CommandOption& option : known_) {
        std::string form(option.name);
        if (!option.placeholder.empty())
            form.append(" ").append(option.placeholder);
        rows.emplace_back(std::move(form), option.help);
    }
    return TwoColumns(rows);
}

const CommandOption* CommandOptions::Find(std::string_view name) const
{
    const auto found = std::find_if(known_.begin(), known_.end(),
                                    [name](const CommandOption& option) { return option.name == name; });
    return found != known_.end() ? &*found : nullptr;
}

/// The first argument without a name that is not given yet.
const CommandOption* CommandOptions::NextUnnamed() const
{
    const auto found = std::find_if(known_.begin(), known_.end(), [this](const CommandOption& option) {
        return !option.name.starts_with('-') && !Has(option.name);
    });
    return found != known_.end() ? &*found : nullptr;
}

const std::string* CommandOptions::Given(std::string_view name) const
{
    const auto found = values_.find(name);
    return found != values_.end() ? &found->second.front() : nullptr;
}

std::string Quoted(std::string_view text)
{
    std::string quoted = "\"";
    for (const char character : text)
        quoted += static_cast<unsigned char>(character) < 0x20 || character == 0x7F ? '?' : character;
    return quoted + '"';
}

std::string TwoColumns(std::span<const std::pair<std::string, std::string>> rows)
{
    std::size_t width = 0;
    for (const auto& [left, right] : rows)
        width = std::max(width, left.size());
    std::string text;
    for (const auto& [left, right] : rows)
        text.append("  ").append(left).append(width - left.size() + 2, ' ').append(right).append("\n");
    return text;
}

} // namespace quorvane
