#include "app/LanguageOffset.h"

namespace quorvane {
namespace {

constexpr std::int16_t kOwnTable = 0;
constexpr std::int16_t kEnglishTable = 10000;

struct Row {
    std::string_view systemLanguageName;
    std::int16_t ownLanguage; ///< offset of mode 0
    std::int16_t english;     ///< offset of mode 1
};

constexpr Row kRows[] = {
    {"Japanese", kOwnTable, kEnglishTable},
    {"Chinese", kOwnTable, kEnglishTable},
    {"English", kOwnTable, kOwnTable}, // meant: the own table is an English one there
};
constexpr Row kElsewhere = {"", kEnglishTable, kEnglishTable};

const Row& RowOf(std::string_view systemLanguageName)
{
    for (const Row& row : kRows) {
        if (row.systemLanguageName == systemLanguageName)
            return row;
    }
    return kElsewhere;
}

} // namespace

std::int16_t LanguageOffsetFor(std::int16_t mode, std::string_view systemLanguageName, std::int16_t current)
{
    const Row& row = RowOf(systemLanguageName);
    switch (mode) {
    case kOwnLanguageMode:
        return row.ownLanguage;
    case kEnglishMode:
        return row.english;
    default:
        return current; // meant: a mode from a file of the future changes nothing
    }
}

TableLanguage TableLanguageFor(std::string_view systemLanguageName)
{
    return systemLanguageName == "Japanese" ? TableLanguage::Japanese : TableLanguage::English;
}

} // namespace quorvane
