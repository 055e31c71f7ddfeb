#include "platform/windows/ReadAll.h"

#include "platform/windows/SystemFault.h"

#include <array>

namespace quorvane {

std::optional<FileFault> ReadAll(const Handle& file, std::string& bytes)
{
    bytes.clear();
    LARGE_INTEGER size{};
    if (!::GetFileSizeEx(file.Get(), &size))
        return LastFault();
    if (static_cast<std::uint64_t>(size.QuadPart) > kLargestFile)
        return FaultOf(ERROR_FILE_TOO_LARGE);
    std::array<char, 65536> block;
    for (;;) {
        DWORD count = 0;
        if (!::ReadFile(file.Get(), block.data(), static_cast<DWORD>(block.size()), &count, nullptr)) {
            const DWORD error = ::GetLastError();
            bytes.clear();
            return FaultOf(error);
        }
        if (count == 0)
            return std::nullopt;
        bytes.append(block.data(), count);
    }
}

} // namespace quorvane
