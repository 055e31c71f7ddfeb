#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace quorvane {

/// What has to hold whatever the input is; a program that tries inputs ends at the first that breaks it.
inline void Hold(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

/// Cuts the text up to the next `end` off `rest`; all of it when there is none.
inline std::string CutTo(std::string_view& rest, char end)
{
    const std::size_t at = rest.find(end);
    const std::string piece(rest.substr(0, at));
    rest = at == std::string_view::npos ? std::string_view() : rest.substr(at + 1);
    return piece;
}

} // namespace quorvane
