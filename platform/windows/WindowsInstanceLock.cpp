#include "platform/windows/WindowsInstanceLock.h"

#include <sddl.h>
#include <string>
#include <vector>

namespace quorvane {
namespace {

/// The user's identity as text, "S-1-5-21-..."; empty when the system does not tell.
std::wstring UserIdentity()
{
    HANDLE opened = nullptr;
    if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &opened))
        return {};
    const Handle token(opened);
    DWORD size = 0;
    ::GetTokenInformation(token.Get(), TokenUser, nullptr, 0, &size);
    std::vector<unsigned char> bytes(size);
    wchar_t* text = nullptr;
    if (size == 0 || !::GetTokenInformation(token.Get(), TokenUser, bytes.data(), size, &size) ||
        !::ConvertSidToStringSidW(reinterpret_cast<const TOKEN_USER*>(bytes.data())->User.Sid, &text))
        return {};
    const std::wstring identity = text;
    ::LocalFree(text);
    return identity;
}

} // namespace

bool WindowsInstanceLock::PreviousInstanceRunning()
{
    if (mutex_.IsOpen())
        return false;
    const std::wstring name = L"Quorvane-" + UserIdentity();
    // All sessions of the user, where the system lets a program ask that; else this one.
    for (const wchar_t* const scope : {L"Global\\", L"Local\\"}) {
        const std::wstring scoped = scope + name;
        Handle mutex(::CreateMutexW(nullptr, FALSE, scoped.c_str()));
        const DWORD error = ::GetLastError();
        if (mutex.IsOpen()) {
            if (error == ERROR_ALREADY_EXISTS)
                return true;
            mutex_ = std::move(mutex);
            return false;
        }
        // The same user's instance with higher rights lets nobody open its object, but shows that it is
        // there.
        const Handle other(::OpenMutexW(SYNCHRONIZE, FALSE, scoped.c_str()));
        if (other.IsOpen() || ::GetLastError() == ERROR_ACCESS_DENIED)
            return true;
    }
    return false;
}

} // namespace quorvane
