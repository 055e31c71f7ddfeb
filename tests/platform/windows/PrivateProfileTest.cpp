#include "platform/windows/WindowsFolders.h"
#include "platform/windows/WindowsPrivateProfile.h"
#include "tests/files/HoldProfileRows.h"
#include "tests/support/ScratchFolder.h"

#include <array>
#include <windows.h>

namespace quorvane {
namespace {

struct WindowsPrivateProfileTest : testing::Test {
    void Put(const std::string& bytes) const { std::ofstream(path, std::ios::binary) << bytes; }

    const ScratchFolder folder;
    const std::string path = folder.Path("program.ini");
    WindowsPrivateProfile profile;
};

TEST_F(WindowsPrivateProfileTest, KeepsTheRowsThatTheProgramsOwnRulesKeep)
{
    HoldProfileRows(
        profile, path, [this](const std::string& bytes) { Put(bytes); }, [this] { return FileBytes(path); });
    EXPECT_EQ(profile.ReadIniValue("S", "k", folder.Path("missing")), "");
    EXPECT_EQ(profile.WriteIniValue("S", "k", "v", folder.Path("missing/f")).value().kind,
              FileFaultKind::NotFound);
}

TEST_F(WindowsPrivateProfileTest, TheRowsAreTrueOfTheCallsForBytesToo)
{
    for (const ProfileReadRow& row : ProfileReadRows()) {
        Put(row.bytes);
        std::array<char, 1024> value{};
        const DWORD length = ::GetPrivateProfileStringA("S", "k", "", value.data(),
                                                        static_cast<DWORD>(value.size()), path.c_str());
        EXPECT_EQ(std::string(value.data(), length), row.value) << row.what;
    }
}

TEST_F(WindowsPrivateProfileTest, ABareNameIsInTheCurrentFolder)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    EXPECT_FALSE(profile.WriteIniValue("S", "k", "v", "program.ini")) << "not in the system's";
    EXPECT_EQ(profile.ReadIniValue("S", "k", "program.ini"), "v");
    std::filesystem::current_path(before);
    EXPECT_NE(FileBytes(path), "");
}

TEST_F(WindowsPrivateProfileTest, FilesAreInTheUsersCodePage)
{
    EXPECT_FALSE(profile.WriteIniValue("S", "k", "M\u00e4r", path));
    EXPECT_NE(FileBytes(path).find("k=" + WindowsCodePage().FromUtf8("M\u00e4r")), std::string::npos);
    EXPECT_EQ(profile.ReadIniValue("S", "k", path), "M\u00e4r");
}

} // namespace
} // namespace quorvane
