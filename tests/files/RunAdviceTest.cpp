#include "files/RunAdvice.h"

#include "resources/OwnTexts.h"
#include "resources/StringTable.h"
#include "tests/support/MemoryFolders.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

constexpr std::uintmax_t kMegabyte = 1024 * 1024;

TEST(RunAdvice, TellsOfEachFolderWhatIsAmiss)
{
    struct Row {
        const char* what;
        RunPlaces places;
        std::set<std::string> writable;
        std::optional<std::uintmax_t> freeSpace;
        std::vector<std::pair<int, std::string>> tells; ///< text and folder, in order
    };
    const Row rows[] = {
        {"all is well", {"/p", "/d"}, {"/p", "/d"}, 1000 * kMegabyte, {}},
        {"nobody knows the room", {"/p", "/d"}, {"/p", "/d"}, {}, {}},
        {"no journal", {"/p", "/d"}, {"/d"}, 1000 * kMegabyte, {{kJournalUnwritableText, "/p"}}},
        {"no data folder", {"/p", "/d"}, {"/p"}, 1000 * kMegabyte, {{kDataFolderUnwritableText, "/d"}}},
        {"neither",
         {"/p", "/d"},
         {},
         {},
         {{kJournalUnwritableText, "/p"}, {kDataFolderUnwritableText, "/d"}}},
        {"little room",
         {"/p", "/d"},
         {"/p", "/d"},
         115 * kMegabyte,
         {{kLittleSpaceText, "/p"}, {kLittleSpaceText, "/d"}}},
        {"the same folder is told once", {"/p", "/p"}, {}, {}, {{kJournalUnwritableText, "/p"}}},
        {"the data folder is not known yet", {"/p", ""}, {"/p"}, 1000 * kMegabyte, {}},
    };
    const StringTable table(TableLanguage::English);
    const ProgramPlace place;
    const Texts texts(table, place);
    for (const Row& row : rows) {
        MemoryFolders folders;
        folders.writable = row.writable;
        folders.freeSpace = row.freeSpace;
        std::string expected;
        for (const auto& [id, folder] : row.tells) {
            expected += expected.empty() ? "" : "\r\n\r\n";
            const std::string text = id == kLittleSpaceText ? FilledIn(texts[id], "115") : texts[id];
            expected.append(text).append("\r\n").append(folder);
        }
        EXPECT_EQ(RunAdvice(row.places, 65500, folders, texts), expected) << row.what;
    }
}

} // namespace
} // namespace quorvane
