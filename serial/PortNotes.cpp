#include "serial/PortNotes.h"

#include "resources/OwnTexts.h"
#include "serial/LineSettingsText.h"
#include "serial/PortFaultText.h"

#include <algorithm>
#include <string_view>

namespace quorvane {
namespace {

/// A device may say anything, line ends included.
std::string OnOneLine(std::string text)
{
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, ' ');
    return text;
}

void Append(std::string& list, const std::string& part)
{
    if (!list.empty() && !part.empty())
        list += ", ";
    list += part;
}

std::string Note(const std::string& name, const std::string& device, const std::string& usability)
{
    std::string note = name;
    if (!device.empty())
        note += " (" + OnOneLine(device) + ")";
    return note + ": " + usability;
}

std::string NoteOf(const FoundPort& port, const std::string& name, const Texts& texts)
{
    return Note(name, DeviceText(port, texts),
                port.fault ? FaultText(*port.fault, texts) : texts[kPortUsableText]);
}

bool IsToldOf(const FoundPort& port)
{
    return port.fault &&
           (port.fault->kind == PortFaultKind::Busy || port.fault->kind == PortFaultKind::NoPermission);
}

} // namespace

std::string DescriptionText(const PortDescription& description, const Texts& texts)
{
    std::string text = OnOneLine(description.maker);
    Append(text, OnOneLine(description.product));
    if (!description.serialNumber.empty())
        Append(text, FilledIn(texts[kSerialNumberText], OnOneLine(description.serialNumber)));
    return text;
}

std::string DeviceText(const FoundPort& port, const Texts& texts)
{
    const bool isPortsOwnName = port.device.path.ends_with(port.name);
    std::string text = isPortsOwnName ? std::string() : port.device.path;
    Append(text, DescriptionText(port.description, texts));
    return text;
}

std::vector<std::string> PortNotes(const std::vector<FoundPort>& ports, const std::string& rsPort,
                                   const Texts& texts)
{
    const auto chosen = std::ranges::find(ports, PortNumber(rsPort), &FoundPort::number);
    std::vector<std::string> notes;
    if (chosen != ports.end())
        notes.push_back(NoteOf(*chosen, rsPort, texts));
    else if (rsPort.empty())
        notes.push_back(texts[kNoPortChosenText]);
    else
        notes.push_back(Note(rsPort, {}, texts[kPortAbsentText]));

    for (auto port = ports.begin(); port != ports.end(); ++port)
        if (port != chosen && IsToldOf(*port))
            notes.push_back(NoteOf(*port, port->name, texts));
    return notes;
}

} // namespace quorvane
