#include "platform/windows/Handle.h"
#include "platform/windows/WidePath.h"
#include "tests/platform/FileStoreFixture.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using WindowsFileStoreTest = FileStoreFixture;

TEST_F(WindowsFileStoreTest, AFileThatAnotherProgramHoldsStaysAsItIs)
{
    Put("old.csv", "old");
    constexpr DWORD kSpreadsheet = FILE_SHARE_READ;
    constexpr DWORD kScanner = FILE_SHARE_READ | FILE_SHARE_WRITE; // may be written, not replaced
    for (const DWORD share : {kSpreadsheet, kScanner}) {
        const Handle held(::CreateFileW(WidePath(In("old.csv")).c_str(), GENERIC_READ, share, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(held.IsOpen());
        for (const auto& fault : {store_.CheckReplace(In("old.csv")), store_.Replace(In("old.csv"), "new")}) {
            EXPECT_EQ(fault.value().kind, FileFaultKind::InUse);
            EXPECT_FALSE(fault->systemReason.empty());
        }
        EXPECT_EQ(store_.Append(In("old.csv"), "").has_value(), share == kSpreadsheet);
    }
    EXPECT_EQ(Get("old.csv"), "old");
    EXPECT_THAT(Names(), ElementsAre("old.csv")) << "nothing is left beside it";
}

TEST_F(WindowsFileStoreTest, ADeviceIsNoFile)
{
    EXPECT_EQ(store_.Append("NUL", "x").value().kind, FileFaultKind::NotAFile);
    EXPECT_EQ(store_.Replace("NUL", "x").value().kind, FileFaultKind::NotAFile);
}

} // namespace
} // namespace quorvane
