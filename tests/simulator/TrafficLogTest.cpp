#include "simulator/TrafficLog.h"

#include <gtest/gtest.h>
#include <sstream>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using namespace std::string_view_literals;

TEST(TrafficLog, ShowsEveryByte)
{
    EXPECT_EQ(VisibleText("AN\r\n"), "AN\\r\\n");
    EXPECT_EQ(VisibleText(" ~\x7F\x80\xFF\x1F\0\t\\"sv), " ~\\x7F\\x80\\xFF\\x1F\\x00\\x09\\\\");
}

TEST(TrafficLog, ALineForEachNote)
{
    std::ostringstream out;
    TrafficLog log(&out);
    log.Note(0s, "a client came");
    log.Note(1234567us, "sent", "AN\r\n");
    EXPECT_EQ(out.str(), "0.000  a client came\n1.235  sent  AN\\r\\n\n");
    TrafficLog(nullptr).Note(0s, "nowhere");
}

} // namespace
} // namespace quorvane
