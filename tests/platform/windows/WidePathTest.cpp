#include "platform/windows/WidePath.h"

#include "platform/windows/WideText.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace quorvane {
namespace {

TEST(WidePath, GetsTheSignForLongPathsWhenItIsLong)
{
    const std::string l60(60, 'l');
    const std::string deep = l60 + '\\' + l60 + '\\' + l60 + '\\' + l60;
    const std::string room = R"(C:\)" + std::string(197, 'f'); // for the name of a file behind it
    const std::string slanted = l60 + "/./" + l60 + "//x/../" + l60 + '/' + l60;
    struct Row {
        std::string_view what;
        std::string path;
        std::string wide;
    };
    const Row rows[] = {
        {"short", R"(C:\a/b\..\測定.csv)", R"(C:\a/b\..\測定.csv)"},
        {"short and relative", "測定.csv", "測定.csv"},
        {"empty", "", ""},
        {"a device", R"(\\.\COM10)", R"(\\.\COM10)"},
        {"a short share", R"(\\server\share\x)", R"(\\server\share\x)"},
        {"with room", room, room},
        {"without", room + "f", R"(\\?\)" + room + "f"},
        {"long", R"(C:\測定\)" + deep, R"(\\?\C:\測定\)" + deep},
        {"long, to be tidied", "C:/" + slanted, R"(\\?\C:\)" + deep},
        {"a long share", R"(\\server\share\)" + deep, R"(\\?\UNC\server\share\)" + deep},
        {"a long share, slanted", "//server/share/" + slanted, R"(\\?\UNC\server\share\)" + deep},
        {"long with its sign", R"(\\?\C:\)" + deep, R"(\\?\C:\)" + deep},
        {"short with its sign", R"(\\?\C:\a)", R"(\\?\C:\a)"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Utf8(WidePath(row.path)), row.wide) << row.what;
        EXPECT_EQ(HasLongSign(WidePath(row.path)), row.wide.starts_with(R"(\\?\)")) << row.what;
    }
    const std::wstring relative = WidePath(deep);
    EXPECT_TRUE(HasLongSign(relative)) << "where it is, is long";
    EXPECT_TRUE(relative.ends_with(L'\\' + Wide(deep)));
}

} // namespace
} // namespace quorvane
