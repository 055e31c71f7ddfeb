#include "files/FileProfile.h"

#include "tests/files/HoldProfileRows.h"
#include "tests/support/FakeCodePage.h"
#include "tests/support/MemoryFileStore.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

class FileProfileTest : public testing::Test {
protected:
    std::string Written(const std::string& bytes, std::string_view value)
    {
        store.files["f"] = bytes;
        EXPECT_FALSE(profile.WriteIniValue("S", "k", value, "f"));
        return store.files["f"];
    }

    MemoryFileStore store;
    FakeCodePage codePage;
    FileProfile profile{store, codePage};
};

TEST_F(FileProfileTest, ReadsAndWritesLikeTheSystem)
{
    HoldProfileRows(
        profile, "f", [this](const std::string& bytes) { store.files["f"] = bytes; },
        [this] { return store.files["f"]; });
    EXPECT_EQ(profile.ReadIniValue("S", "k", "missing"), "");
}

TEST_F(FileProfileTest, WritesInPlaceAndKeepsEveryOtherByte)
{
    struct Row {
        std::string_view what;
        std::string before;
        std::string after;
    };
    const Row rows[] = {
        {"no file", "", "[S]\r\nk= 2\r\n"},
        {"spelling, blanks and line ends stay", "\n[s]\n\tK  =  1  \nz\t= 3\n\r",
         "\n[s]\n\tK  = 2\nz\t= 3\n\r"},
        {"value at the end of the file", "[S]\nk=1", "[S]\nk= 2"},
        {"key without a value", "[S]\r\nk\r\n", "[S]\r\nk= 2\r\n"},
        {"before the blank lines", "[S]\na=1\n\n \t\n[T]\nb=1", "[S]\na=1\nk= 2\r\n\n \t\n[T]\nb=1"},
        {"behind remarks", "[S]\r\n\r\n;a\r\n\r\n", "[S]\r\n\r\n;a\r\nk= 2\r\n\r\n"},
        {"new section behind an open line", "[T]\nk=1", "[T]\nk=1\r\n[S]\r\nk= 2\r\n"},
        {"UTF-8 with its mark", "\xEF\xBB\xBF[S]\r\nk=1\r\n", "\xEF\xBB\xBF[S]\r\nk= 2\r\n"},
        {"nothing but the mark", "\xEF\xBB\xBF", "\xEF\xBB\xBF[S]\r\nk= 2\r\n"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Written(row.before, " 2"), row.after) << row.what;
    EXPECT_EQ(Written("", "a\r\nb=1"), "[S]\r\nk=a\r\n") << "a value is one line";
}

TEST_F(FileProfileTest, TextsAreInTheFilesCharacters)
{
    EXPECT_EQ(Written("", "M\u00e4r"), "[S]\r\nk=M\xE4r\r\n");
    EXPECT_EQ(profile.ReadIniValue("S", "k", "f"), "M\u00e4r");
    EXPECT_EQ(Written("\xEF\xBB\xBF", "M\u00e4r"), "\xEF\xBB\xBF[S]\r\nk=M\u00e4r\r\n");
    EXPECT_EQ(profile.ReadIniValue("S", "k", "f"), "M\u00e4r");

    store.files["f"] = "[S]\nk=" + std::string(1022, 'x') + "\xE4\xE4";
    EXPECT_EQ(profile.ReadIniValue("S", "k", "f"), std::string(1022, 'x') + "\u00e4") << "cut behind it";
    store.files["f"] = "\xEF\xBB\xBF[S]\nk=" + std::string(10000, '\x80');
    EXPECT_EQ(profile.ReadIniValue("S", "k", "f").size(), 4092U) << "bytes that are no characters end too";
}

TEST_F(FileProfileTest, LeavesAFileThatItCannotReadOrUnderstand)
{
    for (const std::string& bytes : {std::string("\xFF\xFE[\0S\0]\0", 8), std::string("[S]\nk=1\n\0", 9)}) {
        store.files["f"] = bytes;
        EXPECT_EQ(profile.WriteIniValue("S", "k", "2", "f").value().kind, FileFaultKind::Other);
    }
    store.readFault = FileFault{FileFaultKind::NoPermission, "denied"};
    EXPECT_EQ(profile.WriteIniValue("S", "k", "2", "f").value().systemReason, "denied");
    EXPECT_EQ(profile.ReadIniValue("S", "k", "f"), "");
    EXPECT_EQ(store.replaceCalls, 0);

    store.readFault.reset();
    store.replaceFault = FileFault{FileFaultKind::NoSpace, "full"};
    EXPECT_EQ(profile.WriteIniValue("S", "k", "2", "new").value().kind, FileFaultKind::NoSpace);
}

} // namespace
} // namespace quorvane
