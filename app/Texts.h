#pragma once

#include "app/ApplicationState.h"
#include "resources/StringTable.h"

namespace quorvane {

/// The string table with the program's current language offset.
class Texts {
public:
    Texts(const StringTable& table, const ProgramPlace& place) : table_(table), place_(place) {}
    [[nodiscard]] std::string operator[](int id) const { return table_.Text(id, place_.LanguageOffset); }
    [[nodiscard]] TableLanguage Language() const { return table_.Language(place_.LanguageOffset); }

private:
    const StringTable& table_;
    const ProgramPlace& place_;
};

} // namespace quorvane
