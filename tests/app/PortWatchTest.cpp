#include "app/PortWatch.h"

#include "tests/support/FakeDeviceWatch.h"
#include "tests/support/FakePort.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(PortWatchTest, LooksWhenSomethingChangedAndSeldomOtherwise)
{
    FakeDeviceWatch devices;
    FakePortNames names;
    PortWatch watch(devices, names);
    PortSettings port;
    port.RsPort = "COM1";
    EXPECT_TRUE(watch.Update(port));

    names.present = false; // the adapter is pulled out
    EXPECT_TRUE(watch.Update(port)) << "nobody has told yet";
    devices.changed = true;
    EXPECT_FALSE(watch.Update(port));
    names.present = true; // a link, which nobody tells of
    names.looks = 0;
    for (int call = 1; call <= 7; ++call)
        EXPECT_FALSE(watch.Update(port));
    EXPECT_EQ(names.looks, 0);
    EXPECT_TRUE(watch.Update(port)) << "two seconds later";

    names.present = false;
    port.RsPort = "COM2";
    EXPECT_FALSE(watch.Update(port));
    names.present = true;
    port.RsPort = "COM99"; // a number that no device can have
    EXPECT_FALSE(watch.Update(port));
}

} // namespace
} // namespace quorvane
