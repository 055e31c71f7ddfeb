#include "files/IniText.h"

#include "files/CodePage.h"

#include <algorithm>

namespace quorvane {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kBlanks = " \t\v\f\x1A"; // the last one closes files of old editors
constexpr std::string_view kUtf16Marks[] = {"\xFF\xFE", "\xFE\xFF"};

std::string_view Trimmed(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

char LowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameName(std::string_view one, std::string_view other)
{
    return std::ranges::equal(Trimmed(one), Trimmed(other), {}, LowerAscii, LowerAscii);
}

/// @return nothing when the line is no heading of a section
std::optional<std::string_view> SectionName(std::string_view trimmedLine)
{
    const std::size_t end = trimmedLine.rfind(']');
    if (!trimmedLine.starts_with('[') || end == std::string_view::npos)
        return std::nullopt;
    return trimmedLine.substr(1, end - 1);
}

/// Positions in the text.
struct Line {
    std::size_t begin = 0;
    std::size_t end = 0;  ///< of what stands in it
    std::size_t next = 0; ///< where the next line begins
};

/// Where the text begins: behind the mark that some editors put in front of UTF-8.
std::size_t BeginOf(std::string_view bytes)
{
    return bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0;
}

Line LineAt(std::string_view bytes, std::size_t begin)
{
    const std::size_t end = std::min(bytes.find_first_of(kLineEnd, begin), bytes.size());
    const std::size_t length = bytes.substr(end).starts_with(kLineEnd) ? 2 : 1;
    return {begin, end, std::min(end + length, bytes.size())};
}

/// What was found of a section and a key.
struct Place {
    bool section = false;
    std::optional<Line> entry;
    std::size_t sectionEnd = 0; ///< behind its last line that is not blank
};

Place Find(std::string_view bytes, std::string_view section, std::string_view key)
{
    Place place;
    Line line;
    for (std::size_t at = BeginOf(bytes); at < bytes.size(); at = line.next) {
        line = LineAt(bytes, at);
        const std::string_view text = Trimmed(bytes.substr(line.begin, line.end - line.begin));
        if (const auto name = SectionName(text)) {
            if (place.section)
                return place;
            place.section = SameName(*name, section);
        } else if (place.section && SameName(text.substr(0, text.find('=')), key)) {
            place.entry = line;
            return place;
        }
        if (place.section && !text.empty())
            place.sectionEnd = line.next;
    }
    return place;
}

std::string_view Unquoted(std::string_view value)
{
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

/// The text with whole new lines at a position where a line begins or the text ends.
std::string WithLines(std::string_view bytes, std::size_t at, std::string_view lines)
{
    std::string text(bytes.substr(0, at));
    const bool lineIsOpen = at > BeginOf(bytes) && !text.ends_with('\n') && !text.ends_with('\r');
    if (lineIsOpen)
        text.append(kLineEnd);
    return text.append(lines).append(bytes.substr(at));
}

std::string WithNewValue(std::string_view bytes, const Line& entry, std::string_view value)
{
    const std::size_t sign = bytes.substr(0, entry.end).find('=', entry.begin);
    const bool bareKey = sign == std::string_view::npos;
    std::string text(bytes.substr(0, bareKey ? entry.end : sign));
    return text.append("=").append(value).append(bytes.substr(entry.end));
}

} // namespace

std::optional<std::string_view> IniValue(std::string_view bytes, std::string_view section,
                                         std::string_view key)
{
    const Place place = Find(bytes, section, key);
    if (!place.entry)
        return std::nullopt;
    const std::string_view line = bytes.substr(place.entry->begin, place.entry->end - place.entry->begin);
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos)
        return std::string_view();
    const std::string_view value = line.substr(sign + 1);
    return Unquoted(Trimmed(value.substr(0, value.find('\0'))));
}

std::string WithIniValue(std::string_view bytes, std::string_view section, std::string_view key,
                         std::string_view value)
{
    value = value.substr(0, value.find_first_of("\r\n\0"sv));
    const Place place = Find(bytes, section, key);
    if (place.entry)
        return WithNewValue(bytes, *place.entry, value);
    std::string line(key);
    line.append("=").append(value).append(kLineEnd);
    if (place.section)
        return WithLines(bytes, place.sectionEnd, line);
    std::string heading = "[";
    heading.append(section).append("]").append(kLineEnd);
    return WithLines(bytes, bytes.size(), heading.append(line));
}

bool IsPlainText(std::string_view bytes)
{
    const bool utf16 =
        std::ranges::any_of(kUtf16Marks, [&](std::string_view mark) { return bytes.starts_with(mark); });
    return !utf16 && bytes.find('\0') == std::string_view::npos;
}

} // namespace quorvane
