#include "measure/LineReader.h"

#include "serial/CommandSet.h"

#include <utility>

namespace quorvane {

using namespace std::chrono_literals;

namespace {

constexpr int kMaxAcknowledgementReads = 1000;
constexpr int kMaxEmptyReads = 100;
/// No line is that long: of an endless one only the latest part is kept.
constexpr std::size_t kLongestLine = 65536;
/// A device that never pauses would keep the window from its events; after so many characters in a row they
/// are served, without a wait.
constexpr int kCharactersPerLook = 1024;

} // namespace

bool IsWholeLine(const std::string& text)
{
    return text.size() >= kShortestLine && text.ends_with(kLineEnd);
}

LineReader::LineReader(SerialControl& control, RunServe serve) : control_(control), serve_(std::move(serve))
{
}

LineReader::Look LineReader::ReadCharacter(std::string& text)
{
    const std::string character = control_.Input();
    text += character;
    if (!character.empty() && ++charactersInARow_ < kCharactersPerLook)
        return Look::Character;
    charactersInARow_ = 0;
    if (character.empty() && !control_.IsOpen())
        return Look::PortLost;
    if (!serve_(character.empty() ? 1ms : 0ms))
        return Look::Stopped;
    return character.empty() ? Look::Nothing : Look::Character;
}

LineRead LineReader::ReadAcknowledgement()
{
    LineRead read;
    control_.SetInputLen(1);
    while (!IsAcknowledgement(read.text, kStreamLetter)) {
        const Look look = ReadCharacter(read.text);
        if (look == Look::PortLost || look == Look::Stopped) {
            read.outcome = look == Look::PortLost ? ReadOutcome::PortLost : ReadOutcome::Stopped;
            return read;
        }
        if (++read.reads > kMaxAcknowledgementReads)
            return read;
    }
    read.outcome = ReadOutcome::Complete;
    return read;
}

LineRead LineReader::ReadDataLine()
{
    LineRead read;
    const std::string acknowledgement = BareAcknowledgement(kStreamLetter);
    control_.SetInputLen(1);
    while (!IsWholeLine(read.text)) {
        switch (ReadCharacter(read.text)) {
        case Look::PortLost:
            read.outcome = ReadOutcome::PortLost;
            return read;
        case Look::Stopped:
            read.outcome = ReadOutcome::Stopped;
            return read;
        case Look::Nothing:
            if (++read.reads > kMaxEmptyReads)
                return read;
            break;
        case Look::Character:
            read.reads = 0;
            if (read.text.size() > kLongestLine)
                read.text.erase(0, kLongestLine / 2);
            if (read.text == acknowledgement)
                read.text.clear();
            break;
        }
    }
    read.outcome = ReadOutcome::Complete;
    return read;
}

} // namespace quorvane
