#include "serial/CommandSet.h"

#include "serial/LineSettingsText.h"
#include "tests/support/InstrumentVectors.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(CommandSet, MakesRecordedRequestsAndTakesTheirAcknowledgements)
{
    for (const Exchange& exchange : RecordedExchanges()) {
        SCOPED_TRACE(exchange.what);
        const std::string_view acknowledgement = exchange.answer.substr(0, 4);
        EXPECT_EQ(Request(exchange.letter, exchange.parameters), exchange.request);
        EXPECT_EQ(BareAcknowledgement(exchange.letter), acknowledgement);
        EXPECT_TRUE(IsAcknowledgement(acknowledgement, exchange.letter));
    }
}

TEST(CommandSet, NamesFailures)
{
    EXPECT_EQ(CommandName('T'), "T Command");
    EXPECT_EQ(DataReadName('D'), "D Command Data Read");
}

TEST(CommandSet, TakesAnAcknowledgementByItsTwoEnds)
{
    struct Row {
        std::string_view what;
        std::string_view reply;
        bool accepted;
    };
    const Row rows[] = {
        {"bare", "AP\r\n", true},
        {"with data between", "AP0012\r\n", true},
        {"of another command", "AN\r\n", false},
        {"without line end", "AP", false},
        {"with half a line end", "AP\r", false},
        {"line end the wrong way round", "AP\n\r", false},
        {"something in front", " AP\r\n", false},
        {"lower case", "ap\r\n", false},
        {"nothing", "", false},
        {"line end alone", "\r\n", false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(IsAcknowledgement(row.reply, 'P'), row.accepted) << row.what;
}

TEST(LineSettingsText, TakesThePortNumberFromTheFourthCharacterOn)
{
    EXPECT_EQ(PortNumber("COM1"), 1);
    EXPECT_EQ(PortNumber("COM10"), 10);
    EXPECT_EQ(PortNumber("COM12"), 12);
    EXPECT_EQ(PortNumber("COM"), 0);
    EXPECT_EQ(PortNumber(""), 0);
    EXPECT_EQ(PortNumber("COM99999"), 0);
}

PortSettings Usual()
{
    return {.RsPort = "COM1",
            .RsSpeed = "38400",
            .RsDataBit = "8",
            .RsParity = "N",
            .RsStopBit = "1",
            .RsFlow = 3};
}

TEST(LineSettingsText, JoinsAndReadsTheSettings)
{
    EXPECT_EQ(LineSettingsText(Usual()), "38400,N,8,1");
    const auto usual = ReadLineSettings(Usual());
    ASSERT_TRUE(usual);
    EXPECT_EQ(usual->speed, 38400U);
    EXPECT_EQ(usual->dataBits, 8U);
    EXPECT_EQ(usual->parity, Parity::None);
    EXPECT_EQ(usual->stopBits, StopBits::One);
    EXPECT_EQ(usual->handshaking, Handshaking::RtsCts);
    EXPECT_EQ(usual->inBufferSize, 10240U);

    PortSettings other{"COM2", " 9600", "7", "e", "1.5", 4};
    const auto read = ReadLineSettings(other);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->speed, 9600U);
    EXPECT_EQ(read->parity, Parity::Even);
    EXPECT_EQ(read->stopBits, StopBits::OneAndHalf);
    EXPECT_EQ(read->handshaking, Handshaking::RtsCtsXonXoff);
    other.RsFlow = 1;
    EXPECT_EQ(ReadLineSettings(other)->handshaking, Handshaking::None);
}

TEST(LineSettingsText, RefusesWhatNoLineCanBeSetTo)
{
    const auto refused = [](auto change) {
        PortSettings port = Usual();
        change(port);
        return !ReadLineSettings(port);
    };
    EXPECT_TRUE(refused([](PortSettings& port) { port.RsSpeed = "fast"; }));
    EXPECT_TRUE(refused([](PortSettings& port) { port.RsSpeed = "38400x"; }));
    EXPECT_TRUE(refused([](PortSettings& port) { port.RsSpeed = ""; }));
    EXPECT_TRUE(refused([](PortSettings& port) { port.RsParity = "None"; }));
    EXPECT_TRUE(refused([](PortSettings& port) { port.RsStopBit = "3"; }));
    EXPECT_TRUE(refused([](PortSettings& port) { port.RsFlow = 0; }));
    EXPECT_TRUE(refused([](PortSettings& port) { port.RsFlow = 5; }));
}

} // namespace
} // namespace quorvane
