#include "platform/JournalWriter.h"
#include "platform/Platform.h"
#include "platform/windows/StreamWriter.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsCodePage.h"
#include "platform/windows/WindowsDeviceWatch.h"
#include "platform/windows/WindowsFileStore.h"
#include "platform/windows/WindowsFolders.h"
#include "platform/windows/WindowsInstanceLock.h"
#include "platform/windows/WindowsKeepAwake.h"
#include "platform/windows/WindowsLocalClock.h"
#include "platform/windows/WindowsLocaleItems.h"
#include "platform/windows/WindowsPortDescriptions.h"
#include "platform/windows/WindowsPortNames.h"
#include "platform/windows/WindowsPortProbe.h"
#include "platform/windows/WindowsPrivateProfile.h"
#include "platform/windows/WindowsSerialControl.h"
#include "platform/windows/WindowsSystemInfo.h"
#include "platform/windows/WindowsWindowOrder.h"

#include <cstdio>
#include <shellapi.h>
#include <shlobj.h>
#include <windows.h>

namespace quorvane {
namespace {

bool IsConsole(DWORD standardHandle)
{
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(standardHandle), &mode) != FALSE;
}

/// A console obeys the sequence that erases a line from here on. Its code page stays the user's, for the
/// programs that come after this one.
void PrepareConsole()
{
    const HANDLE error = ::GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    if (::GetConsoleMode(error, &mode))
        ::SetConsoleMode(error, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

} // namespace

Platform MakePlatform()
{
    PrepareConsole();
    return {
        .serial = std::make_unique<WindowsSerialControl>(),
        .portNames = std::make_unique<WindowsPortNames>(),
        .portProbe = std::make_unique<WindowsPortProbe>(),
        .portDescriptions = std::make_unique<WindowsPortDescriptions>(),
        .devices = std::make_unique<WindowsDeviceWatch>(),
        .files = std::make_unique<WindowsFileStore>(),
        .folders = std::make_unique<WindowsFolders>(),
        .journals = std::make_unique<JournalWriter>(SystemJournalFiles()),
        .codePage = std::make_unique<WindowsCodePage>(),
        .profile = std::make_unique<WindowsPrivateProfile>(),
        .locale = std::make_unique<WindowsLocaleItems>(),
        .clock = std::make_unique<WindowsLocalClock>(),
        .systemInfo = std::make_unique<WindowsSystemInfo>(),
        .instanceLock = std::make_unique<WindowsInstanceLock>(),
        .windowOrder = std::make_unique<WindowsWindowOrder>(),
        .keepAwake = std::make_unique<WindowsKeepAwake>(),
    };
}

std::vector<std::string> ProgramArguments(int, char**)
{
    // main's own arguments have gone through the code page, which cannot hold every name.
    int count = 0;
    wchar_t** const words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; words != nullptr && i < count; ++i)
        arguments.push_back(Utf8(words[i]));
    ::LocalFree(words);
    return arguments;
}

std::string ProgramFolder()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0)
            return ".";
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2); // it was cut off
    }
    const std::size_t end = path.find_last_of(L'\\');
    return end == std::wstring::npos ? "." : Utf8(path.substr(0, end));
}

std::string UserDataFolder()
{
    PWSTR path = nullptr;
    // Asked, not read from LOCALAPPDATA: the variable can be missing or changed.
    const HRESULT result = ::SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_DEFAULT, nullptr, &path);
    const std::string folder = SUCCEEDED(result) ? Utf8(path) + "\\Quorvane" : "";
    ::CoTaskMemFree(path);
    return folder;
}

std::string TemporaryFolder()
{
    std::wstring path(MAX_PATH + 1, L'\0');
    path.resize(
        ::GetTempPathW(static_cast<DWORD>(path.size()), path.data())); // never longer, says the system
    return Utf8(path);
}

std::optional<std::string> EnvironmentText(const std::string& name)
{
    const std::wstring wideName = Wide(name);
    ::SetLastError(ERROR_SUCCESS);
    const DWORD size = ::GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
    if (size == 0)
        return ::GetLastError() == ERROR_ENVVAR_NOT_FOUND ? std::nullopt : std::optional<std::string>("");
    std::wstring text(size, L'\0');
    text.resize(::GetEnvironmentVariableW(wideName.c_str(), text.data(), size));
    return Utf8(text);
}

std::size_t WriteWithoutWaiting(StandardStream stream, std::string_view text)
{
    // Never destroyed: a write that nobody takes is still under way when the program ends.
    static StreamWriter& output = *new StreamWriter(::GetStdHandle(STD_OUTPUT_HANDLE));
    static StreamWriter& error = *new StreamWriter(::GetStdHandle(STD_ERROR_HANDLE));
    return (stream == StandardStream::Output ? output : error).Write(text);
}

void WriteToStartersConsole()
{
    const bool outputLeadsNowhere = ::GetStdHandle(STD_OUTPUT_HANDLE) == nullptr;
    const bool errorLeadsNowhere = ::GetStdHandle(STD_ERROR_HANDLE) == nullptr;
    if ((!outputLeadsNowhere && !errorLeadsNowhere) || !::AttachConsole(ATTACH_PARENT_PROCESS))
        return;
    if (outputLeadsNowhere)
        static_cast<void>(std::freopen("CONOUT$", "w", stdout));
    if (errorLeadsNowhere)
        static_cast<void>(std::freopen("CONOUT$", "w", stderr));
    PrepareConsole();
}

bool StandardErrorIsTerminal()
{
    return IsConsole(STD_ERROR_HANDLE);
}

} // namespace quorvane
