#include "platform/windows/WindowsDeviceWatch.h"

#include <algorithm>
#include <array>
#include <dbt.h>
#include <gtest/gtest.h>
#include <string_view>
#include <vector>

namespace quorvane {
namespace {

HWND WindowOfThisThread()
{
    HWND window = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND found, LPARAM result) -> BOOL {
            std::array<wchar_t, 100> name{};
            ::GetClassNameW(found, name.data(), static_cast<int>(name.size()));
            if (std::wstring_view(name.data()) != L"QuorvaneDeviceWatch")
                return TRUE;
            *reinterpret_cast<HWND*>(result) = found;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&window));
    return window;
}

void Tell(HWND window, WPARAM event, DWORD kind, std::wstring_view name)
{
    std::vector<std::byte> bytes(sizeof(DEV_BROADCAST_PORT_W) + name.size() * sizeof(wchar_t));
    auto* const port = reinterpret_cast<DEV_BROADCAST_PORT_W*>(bytes.data());
    port->dbcp_size = static_cast<DWORD>(bytes.size());
    port->dbcp_devicetype = kind;
    std::copy(name.begin(), name.end(), port->dbcp_name);
    ::SendMessageW(window, WM_DEVICECHANGE, event, reinterpret_cast<LPARAM>(port));
}

TEST(WindowsDeviceWatch, TellsOnceOfAComPortThatComesOrGoes)
{
    struct Row {
        std::string_view what;
        WPARAM event;
        DWORD kind;
        std::wstring_view name;
        bool told;
    };
    const Row rows[] = {
        {"a port comes", DBT_DEVICEARRIVAL, DBT_DEVTYP_PORT, L"COM5", true},
        {"a port goes", DBT_DEVICEREMOVECOMPLETE, DBT_DEVTYP_PORT, L"COM12", true},
        {"a port may go", DBT_DEVICEQUERYREMOVE, DBT_DEVTYP_PORT, L"COM5", false},
        {"a printer's port", DBT_DEVICEARRIVAL, DBT_DEVTYP_PORT, L"LPT1", false},
        {"a disk", DBT_DEVICEARRIVAL, DBT_DEVTYP_VOLUME, L"COM5", false},
    };
    EXPECT_EQ(WindowOfThisThread(), nullptr);
    {
        WindowsDeviceWatch watch;
        EXPECT_EQ(WindowOfThisThread(), nullptr) << "nobody has asked yet";
        EXPECT_FALSE(watch.TakeChange());
        const HWND window = WindowOfThisThread();
        ASSERT_NE(window, nullptr);
        EXPECT_FALSE(::IsWindowVisible(window));
        EXPECT_EQ(::GetAncestor(window, GA_PARENT), ::GetDesktopWindow())
            << "only such a window hears of devices";
        for (const Row& row : rows) {
            Tell(window, row.event, row.kind, row.name);
            EXPECT_EQ(watch.TakeChange(), row.told) << row.what;
            EXPECT_FALSE(watch.TakeChange()) << row.what;
        }
        ::SendMessageW(window, WM_DEVICECHANGE, DBT_DEVNODES_CHANGED, 0);
        ::SendMessageW(window, WM_DEVICECHANGE, DBT_DEVICEARRIVAL, 0);
        EXPECT_FALSE(watch.TakeChange());
    }
    EXPECT_EQ(WindowOfThisThread(), nullptr);
}

} // namespace
} // namespace quorvane
