#include "simulator/TrafficLog.h"

#include "files/NumberText.h"

namespace quorvane {

std::string VisibleText(std::string_view bytes)
{
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (byte == '\r')
            text += "\\r";
        else if (byte == '\n')
            text += "\\n";
        else if (byte == '\\')
            text += "\\\\";
        else if (code < 0x20 || code > 0x7E)
            text.append("\\x").append(1, kHex[code >> 4U]).append(1, kHex[code & 15U]);
        else
            text += byte;
    }
    return text;
}

void TrafficLog::Note(SimulatedInstrument::Time now, std::string_view what, std::string_view bytes)
{
    if (out_ == nullptr)
        return;
    const double seconds = std::chrono::duration<double>(now).count();
    *out_ << PatternText(seconds, {1, 3, 3}) << "  " << what;
    if (!bytes.empty())
        *out_ << "  " << VisibleText(bytes);
    *out_ << std::endl;
}

} // namespace quorvane
