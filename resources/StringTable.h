#pragma once

#include <string>
#include <string_view>

namespace quorvane {

enum class TableLanguage { English, Japanese };

/// The bilingual string table. Numbers 101 to 300 and the program's own texts from 1001 on exist in English
/// and in Japanese; the numbers 10000 above them hold the English texts again.
class StringTable {
public:
    explicit StringTable(TableLanguage language) : language_(language) {}
    /// The text of number `id` + `languageOffset`, UTF-8; empty for a number that the table does not have.
    [[nodiscard]] std::string Text(int id, int languageOffset) const;
    /// The language that the texts have at `languageOffset`.
    [[nodiscard]] TableLanguage Language(int languageOffset) const
    {
        return languageOffset == 0 ? language_ : TableLanguage::English;
    }

private:
    TableLanguage language_;
};

/// `text` with `value` in place of its first "%1", which marks where a value belongs.
[[nodiscard]] std::string FilledIn(std::string text, std::string_view value);

} // namespace quorvane
