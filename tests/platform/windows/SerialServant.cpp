// Does with the serial control of this system what another program asks for, line by line on the standard
// input, and answers each with a line: the other program holds the far end of the line, which no Windows
// program can.

#include "platform/windows/WindowsPortProbe.h"
#include "platform/windows/WindowsSerialControl.h"
#include "tests/platform/HexText.h"

#include <iostream>
#include <map>
#include <sstream>

namespace quorvane {
namespace {

std::string Answer(const std::optional<PortFault>& fault)
{
    return fault ? std::to_string(static_cast<int>(fault->kind)) + ' ' + HexText(fault->systemReason)
                 : "open";
}

std::string TakeHex(std::istream& words)
{
    std::string word;
    words >> word;
    return BytesOfHex(word);
}

LineSettings TakeSettings(std::istream& words)
{
    LineSettings line;
    int parity = 0;
    int stopBits = 0;
    int handshaking = 0;
    words >> line.speed >> parity >> line.dataBits >> stopBits >> handshaking >> line.inBufferSize;
    line.parity = static_cast<Parity>(parity);
    line.stopBits = static_cast<StopBits>(stopBits);
    line.handshaking = static_cast<Handshaking>(handshaking);
    return line;
}

std::string Obey(SerialControl& control, const std::string& verb, std::istream& words)
{
    if (verb == "open") {
        const PortDevice device{TakeHex(words)};
        return Answer(control.Open(device, TakeSettings(words)));
    }
    if (verb == "probe")
        return Answer(WindowsPortProbe().Probe({TakeHex(words)}));
    if (verb == "is-open")
        return std::to_string(static_cast<int>(control.IsOpen()));
    if (verb == "count")
        return std::to_string(control.InBufferCount());
    if (verb == "input")
        return HexText(control.Input());
    if (verb == "output")
        return std::to_string(static_cast<int>(control.Output(TakeHex(words))));
    if (verb == "close") {
        control.Close();
    } else if (verb == "clear") {
        control.ClearInBuffer();
    } else if (verb == "length") {
        int length = 0;
        words >> length;
        control.SetInputLen(length);
    }
    return "done";
}

void Serve()
{
    std::map<int, WindowsSerialControl> controls;
    std::string line;
    while (std::getline(std::cin, line)) {
        std::istringstream words(line);
        int number = 0;
        std::string verb;
        words >> number >> verb;
        std::cout << Obey(controls[number], verb, words) << std::endl;
        if (verb == "end")
            controls.erase(number);
    }
}

} // namespace
} // namespace quorvane

int main()
{
    quorvane::Serve();
}
