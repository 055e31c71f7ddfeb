#include "tests/support/LinkWorld.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(SerialLog, KeepsOneRecordForEachFailure)
{
    LinkWorld with;
    with.log.LogSerialError("N Command", "AX\r\n", 101);
    with.log.LogSerialError("D Command", "", 1001);
    ASSERT_EQ(with.files.files.size(), 1U);
    const auto& [path, bytes] = *with.files.files.begin();
    EXPECT_TRUE(path == "app/RSErr.log" || path == "app\\RSErr.log") << path;
    EXPECT_EQ(bytes, "RS232C Error Log File\r\n"
                     "2024/05/01 09:30:00,N Command,AX\r\n, 101\r\n"
                     "2024/05/01 09:30:00,D Command,, 1001\r\n");
}

TEST(SerialLog, WritesTheUsersDateFormAndTheBytesAsTheyCame)
{
    LinkWorld with;
    with.locale.shortDateFormat = "d.M.yyyy";
    with.locale.timeFormat = "h:mm:ss tt";
    with.log.LogSerialError("D Command Data Read", std::string("\xC3\xFF\0;\x07", 5), 100);
    EXPECT_EQ(with.files.files.begin()->second,
              std::string("RS232C Error Log File\r\n"
                          "1.5.2024 9:30:00 AM,D Command Data Read,\xC3\xFF") +
                  '\0' + ";\x07, 100\r\n");
}

TEST(SerialLog, KeepsItsOwnFailureFromTheCaller)
{
    LinkWorld with;
    with.files.appendFault = FileFault{FileFaultKind::NoPermission, "denied"};
    with.log.LogSerialError("N Command", "", 101);
    EXPECT_TRUE(with.files.files.empty());
}

} // namespace
} // namespace quorvane
