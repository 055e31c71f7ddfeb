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

TEST(PortWatchTest, TheListOfPortsIsReadAtAChangeAndOnceMoreTwoSecondsLater)
{
    FakeDeviceWatch devices;
    const FakePortNames names;
    PortWatch watch(devices, names);
    const PortSettings port;
    const auto change = [&](int updates) {
        int changes = 0;
        for (int update = 0; update < updates; ++update) {
            static_cast<void>(watch.Update(port));
            changes += watch.TakeChange() ? 1 : 0;
            EXPECT_FALSE(watch.TakeChange());
        }
        return changes;
    };
    EXPECT_EQ(change(20), 0);
    devices.changed = true;
    EXPECT_EQ(change(1), 1);
    EXPECT_EQ(change(7), 0);
    EXPECT_EQ(change(1), 1); // 8 calls, 250 ms apart
    EXPECT_EQ(change(20), 0);

    devices.changed = true;
    static_cast<void>(watch.Update(port));
    static_cast<void>(watch.Update(port));
    EXPECT_TRUE(watch.TakeChange()) << "kept until it is asked for";
}

} // namespace
} // namespace quorvane
