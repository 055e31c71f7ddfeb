#include "files/SaveName.h"

#include <optional>

namespace quorvane {
namespace {

/// Takes off what stands before the first `separator`, and the separator. @return nothing without one
std::optional<std::string_view> Take(std::string_view& text, char separator)
{
    const std::size_t end = text.find(separator);
    if (end == std::string_view::npos)
        return std::nullopt;
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end + 1);
    return taken;
}

std::vector<std::string> Patterns(std::string_view joined)
{
    std::vector<std::string> patterns;
    const auto add = [&](std::string_view pattern) {
        if (!pattern.empty())
            patterns.emplace_back(pattern == "*.*" ? "*" : pattern);
    };
    while (const auto pattern = Take(joined, ';'))
        add(*pattern);
    add(joined);
    return patterns;
}

} // namespace

std::vector<FileFilter> FileFilters(std::string_view text)
{
    std::vector<FileFilter> filters;
    for (;;) {
        const auto description = Take(text, '|');
        const auto patterns = Take(text, '|');
        if (!description || !patterns)
            return filters;
        filters.push_back({std::string(*description), Patterns(*patterns)});
    }
}

std::string WithExtension(std::string path, std::string_view extension)
{
    if (extension.empty())
        return path;
    const std::size_t name = path.rfind('/') + 1; // 0 without a folder: npos + 1
    const std::size_t begin = path.find_first_not_of('.', name);
    const std::size_t dot = begin == std::string::npos ? begin : path.find('.', begin);
    if (dot == std::string::npos)
        return path.append(".").append(extension);
    if (path.back() == '.')
        return path.append(extension);
    return path;
}

} // namespace quorvane
