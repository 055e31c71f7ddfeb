#include "instrument/InstrumentClock.h"

#include "instrument/DateNormaliser.h"
#include "instrument/DateTimeText.h"
#include "instrument/TimeNormaliser.h"
#include "serial/CommandSet.h"

#include <algorithm>

namespace quorvane {

using namespace std::chrono_literals;

namespace {

constexpr char kSetClockLetter = 'T';
constexpr char kReadClockLetter = 'M';
constexpr int kRecordLength = 21; // "yyyy/MM/dd hh:mm:ss", CR LF
constexpr std::size_t kShortestRecord = 16;
constexpr int kMaxRecordReads = 100;
constexpr int kWholeAnswer = 4 + kRecordLength; // with the acknowledgement in front
constexpr int kLateRounds = 4;                  // as many waits as an unanswered read has

/// Characters from `position` (from 1) on; fewer, or none, where the text ends before.
std::string Part(std::string_view text, std::size_t position, std::size_t length)
{
    return std::string(text.substr(std::min(position - 1, text.size()), length));
}

} // namespace

ClockTexts ComputerClock(LocaleDescription& description, const LocaleItems& locale, const Texts& texts,
                         LocalMoment now)
{
    return {.date = NormalisedDate(SystemDateText(now, locale), description, locale, now),
            .time = NormalisedTime(description, locale, texts, now)};
}

InstrumentCommand ClockCommand(const ClockTexts& clock)
{
    std::string parameters = Part(clock.date, 1, 4);
    for (const std::string& part : {Part(clock.date, 6, 2), Part(clock.date, 9, 2), Part(clock.time, 1, 2),
                                    Part(clock.time, 4, 2), Part(clock.time, 7, 2)})
        parameters += ';' + part;
    return {.letter = kSetClockLetter, .parameters = parameters, .clearInputFirst = true};
}

ClockTexts CutClockRecord(std::string_view record)
{
    return {.date = Part(record, 1, 10), .time = Part(record, 12, 8)};
}

std::string InstrumentClock::ReadInstrumentClock(const ClockTexts& computer)
{
    if (!mode_.RunMode)
        return computer.date + ';' + computer.time;
    if (!control_.IsOpen())
        return {};

    asked_ = true;
    CommandReply answer =
        RequestAcknowledgement(link_, control_, {.letter = kReadClockLetter, .parameters = {}});
    if (IsInterrupted(answer.wait)) {
        answerMissing_ = true;
        return {};
    }
    if (answer.acknowledged && ReadRecord(answer))
        return answer.text;
    log_.LogSerialError(CommandName(kReadClockLetter), answer.text, answer.reads);
    control_.ClearInBuffer();
    return {};
}

/// No wait between the reads: record and acknowledgement come as one, and a record that comes late would be a
/// wrong clock.
bool InstrumentClock::ReadRecord(CommandReply& answer)
{
    control_.SetInputLen(kRecordLength);
    for (answer.reads = 1; answer.reads <= kMaxRecordReads; ++answer.reads) {
        answer.text = control_.Input();
        if (answer.text.size() >= kShortestRecord && answer.text.ends_with(kLineEnd))
            return true;
    }
    answer.reads = kMaxRecordReads;
    return false;
}

void InstrumentClock::DropLateAnswer()
{
    if (!asked_)
        return;
    const int rounds = answerMissing_ ? kLateRounds : 0;
    for (int round = 0; round < rounds && control_.InBufferCount() < kWholeAnswer; ++round) {
        if (!control_.IsOpen())
            break;
        if (IsInterrupted(link_.WaitTicks(3, 100ms)))
            return; // the answer is still to come
    }
    // Also behind a read that got an answer: it may have been an earlier one's, and its own came later.
    control_.ClearInBuffer();
    asked_ = answerMissing_ = false;
}

} // namespace quorvane
