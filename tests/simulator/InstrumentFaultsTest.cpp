#include "simulator/InstrumentFaults.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(InstrumentFaults, NamesAndArguments)
{
    constexpr char kAny = InstrumentFault::kAnyCommand;
    const struct {
        std::string_view text;
        InstrumentFault fault;
    } rows[] = {
        {"silent", {FaultKind::Silent, kAny, 0, 0, 0, 0}},
        {"silent:D", {FaultKind::Silent, 'D', 0, 0, 0, 0}},
        {"no-ack:N", {FaultKind::NoAck, 'N', 0, 0, 0, 0}},
        {"late-ack", {FaultKind::LateAck, kAny, 600, 0, 0, 0}},
        {"late-ack:1500", {FaultKind::LateAck, kAny, 1500, 0, 0, 0}},
        {"late-ack:1500,D", {FaultKind::LateAck, 'D', 1500, 0, 0, 0}},
        {"wrong-ack", {FaultKind::WrongAck, kAny, 0, 0, 0, 0}},
        {"split:8", {FaultKind::Split, kAny, 40, 8, 0, 0}},
        {"split:29,100", {FaultKind::Split, kAny, 100, 29, 0, 0}},
        {"garbage", {FaultKind::Garbage, kAny, 0, 0, 0, 16}},
        {"garbage:3", {FaultKind::Garbage, kAny, 0, 0, 0, 3}},
        {"no-line-end", {FaultKind::NoLineEnd, kAny, 0, 0, 3, 0}},
        {"no-line-end:1", {FaultKind::NoLineEnd, kAny, 0, 0, 1, 0}},
        {"dropped-byte", {FaultKind::DroppedByte, kAny, 0, 12, 5, 0}},
        {"dropped-byte:30", {FaultKind::DroppedByte, kAny, 0, 30, 5, 0}},
        {"dropped-byte:1,2", {FaultKind::DroppedByte, kAny, 0, 1, 2, 0}},
        {"chatter", {FaultKind::Chatter, kAny, 0, 0, 0, 0}},
        {"hang-up:20", {FaultKind::HangUp, kAny, 0, 0, 0, 20}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        InstrumentFault fault{FaultKind::Chatter, 'Q', -1, -1, -1, -1};
        ASSERT_FALSE(ReadFault(row.text, fault));
        EXPECT_EQ(fault.kind, row.fault.kind);
        EXPECT_EQ(fault.letter, row.fault.letter);
        EXPECT_EQ(fault.timeMs, row.fault.timeMs);
        EXPECT_EQ(fault.byte, row.fault.byte);
        EXPECT_EQ(fault.every, row.fault.every);
        EXPECT_EQ(fault.count, row.fault.count);
    }
}

TEST(InstrumentFaults, WrongNamesAndArgumentsAreRefused)
{
    const std::string_view rows[] = {
        "",
        "loud",
        "Silent",
        "silent:",
        "silent:n",
        "silent:NN",
        "silent:N,D",
        "late-ack:",
        "late-ack:0",
        "late-ack:1.5",
        "late-ack:N",
        "late-ack:10,",
        "late-ack:1,N,",
        "split",
        "split:0",
        "split:30",
        "split:8,0",
        "split:,40",
        "garbage:-1",
        "garbage:16x",
        "no-line-end:0",
        "chatter:1",
        "dropped-byte:31",
        "hang-up",
        "hang-up:0",
        "hang-up:5,5",
        "chatter:",
    };
    for (const std::string_view row : rows) {
        InstrumentFault fault;
        EXPECT_TRUE(ReadFault(row, fault)) << row;
    }
}

TEST(InstrumentFaults, TheMessageSaysHowItIsWritten)
{
    InstrumentFault fault;
    EXPECT_EQ(ReadFault("loud:3", fault).value().text, "unknown fault \"loud\"");
    EXPECT_EQ(ReadFault("split:99", fault).value().text,
              "wrong fault \"split:99\"; it is written split:BYTE[,MS], 1 to 29, 1 to 60000");
}

TEST(InstrumentFaults, HelpHasALineForEach)
{
    const std::string help = "\n" + FaultHelp();
    for (const std::string_view name : {"silent", "no-ack", "late-ack", "wrong-ack", "split:", "garbage",
                                        "no-line-end", "dropped-byte", "chatter", "hang-up:"})
        EXPECT_NE(help.find("\n  " + std::string(name)), std::string::npos) << name;
}

} // namespace
} // namespace quorvane
