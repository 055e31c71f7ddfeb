#include "platform/posix/StrftimePattern.h"

#include <algorithm>
#include <optional>
#include <span>
#include <vector>

namespace quorvane {
namespace {

struct Replacement {
    std::string_view conversion; ///< without the "%"
    std::string_view text;
};

constexpr Replacement kDateShorthands[] = {{"%F", "%Y-%m-%d"}, {"%D", "%m/%d/%y"}};
constexpr Replacement kTimeShorthands[] = {{"%T", "%H:%M:%S"}, {"%R", "%H:%M"}, {"%r", "%I:%M:%S %p"}};

constexpr Replacement kDateFields[] = {
    {"Y", "yyyy"}, {"y", "yy"}, {"m", "MM"}, {"-m", "M"}, {"d", "dd"}, {"-d", "d"}, {"e", "d"}, {"-e", "d"},
};
constexpr Replacement kTimeFields[] = {
    {"H", "HH"}, {"-H", "H"}, {"k", "H"},  {"I", "hh"}, {"-I", "h"}, {"l", "h"},
    {"M", "mm"}, {"-M", "m"}, {"S", "ss"}, {"-S", "s"}, {"p", "tt"}, {"P", "tt"},
};

/// A field of the format and the text that follows it.
struct Field {
    std::string_view letters;
    std::string text;
};

bool IsSeparatorText(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) {
        return c > ' ' ? std::string_view("/.-:,'").find(c) != std::string_view::npos : c == ' ';
    });
}

std::string Expanded(std::string_view format, std::span<const Replacement> shorthands)
{
    std::string text(format);
    for (const Replacement& shorthand : shorthands) {
        const std::size_t at = text.find(shorthand.conversion);
        if (at != std::string::npos)
            text.replace(at, shorthand.conversion.size(), shorthand.text);
    }
    return text;
}

/// The fields of a format that begins with one; nothing when it holds an unknown field or another text.
std::optional<std::vector<Field>> FieldsOf(std::string_view format, std::span<const Replacement> known)
{
    std::vector<Field> fields;
    while (!format.empty()) {
        if (format.front() != '%')
            return std::nullopt;
        const std::size_t length = format.size() > 1 && format[1] == '-' ? 2 : 1;
        const std::string_view conversion = format.substr(1, length);
        const auto match = std::find_if(known.begin(), known.end(),
                                        [&](const Replacement& row) { return row.conversion == conversion; });
        if (match == known.end())
            return std::nullopt;
        format.remove_prefix(std::min(format.size(), 1 + length));
        const std::string_view text = format.substr(0, format.find('%'));
        if (!IsSeparatorText(text))
            return std::nullopt;
        fields.push_back({match->text, std::string(text)});
        format.remove_prefix(text.size());
    }
    return fields;
}

std::string WithoutBlanks(std::string text)
{
    const bool onlyBlanks = !text.empty() && text.find_first_not_of(' ') == std::string::npos;
    if (onlyBlanks)
        return " ";
    std::erase(text, ' ');
    return text;
}

} // namespace

std::string DatePattern(std::string_view strftimeFormat)
{
    constexpr const char* kFallback = "yyyy/MM/dd";
    const auto fields = FieldsOf(Expanded(strftimeFormat, kDateShorthands), kDateFields);
    if (!fields || fields->size() != 3)
        return kFallback;
    std::string kinds;
    for (const Field& field : *fields)
        kinds += field.letters.front();
    std::sort(kinds.begin(), kinds.end());
    const std::string separator = WithoutBlanks((*fields)[0].text);
    if (kinds != "Mdy" || separator.size() != 1 || WithoutBlanks((*fields)[1].text) != separator)
        return kFallback;
    std::string pattern;
    for (const Field& field : *fields)
        pattern.append(pattern.empty() ? "" : separator).append(field.letters);
    return pattern;
}

std::string TimePattern(std::string_view strftimeFormat)
{
    constexpr const char* kFallback = "HH:mm:ss";
    const auto fields = FieldsOf(Expanded(strftimeFormat, kTimeShorthands), kTimeFields);
    if (!fields)
        return kFallback;
    std::string kinds;
    std::string pattern;
    for (const Field& field : *fields) {
        kinds += field.letters.front();
        pattern.append(field.letters).append(field.text);
    }
    std::sort(kinds.begin(), kinds.end());
    const bool known = kinds == "Hms" || kinds == "Hm" || kinds == "hmst" || kinds == "hmt";
    return known ? pattern : kFallback;
}

} // namespace quorvane
