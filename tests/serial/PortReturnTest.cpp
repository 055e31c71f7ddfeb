#include "serial/PortReturn.h"

#include "tests/support/LinkWorld.h"
#include "tests/support/ScriptedPorts.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

using Plugged = std::map<int, ScriptedPorts::Plugged>;

PortDescription Adapter(const std::string& serialNumber, const std::string& place,
                        const std::string& channel = "1.0")
{
    return {"FTDI", "FT232R", serialNumber, place, channel};
}

/// A desk with sockets: what is plugged in is present.
struct Desk : LinkWorld, FakePortNames {
    ScriptedPorts ports;
    PortReturn portReturn{{port, *this, ports}};
    [[nodiscard]] bool Present(const PortDevice& device) const override
    {
        return !ports.Probe(device) || ports.Probe(device)->kind != PortFaultKind::Absent;
    }
};

TEST(PortReturn, TakesTheSameAdapterAndNoOther)
{
    const PortDescription numbered = Adapter("A1", "1-2");
    const PortDescription plain = Adapter("", "1-2");
    PortDescription otherProduct = plain;
    otherProduct.product = "CP2102";
    struct Row {
        std::string_view what;
        PortDescription gone; ///< what was COM5
        Plugged beside;       ///< all the time
        Plugged after;        ///< what comes
        int found;            ///< port that is opened; 0: none
    };
    const Row rows[] = {
        {"nothing comes", numbered, {}, {}, 0},
        {"the same", numbered, {}, {{5, {{}, numbered}}}, 5},
        {"under another name", numbered, {}, {{6, {{}, numbered}}}, 6},
        {"in another socket", numbered, {}, {{7, {{}, Adapter("A1", "1-3")}}}, 7},
        {"another one at its name and place", numbered, {}, {{5, {{}, Adapter("A2", "1-2")}}}, 0},
        {"one without a number at its place", numbered, {}, {{5, {{}, plain}}}, 0},
        {"another port of the same device", numbered, {}, {{5, {{}, Adapter("A1", "1-2", "1.1")}}}, 0},
        {"behind another one",
         numbered,
         {{1, {{}, {}}}},
         {{5, {{}, Adapter("A2", "1-2")}}, {6, {{}, Adapter("A1", "1-4")}}},
         6},
        {"a twin with its number was there before", numbered, {{6, {{}, Adapter("A1", "1-3")}}}, {}, 0},
        {"and the adapter comes back beside it",
         numbered,
         {{5, {{}, Adapter("A1", "1-3")}}},
         {{6, {{}, numbered}}},
         6},
        {"two with its number come, one at its place",
         numbered,
         {},
         {{5, {{}, Adapter("A1", "1-3")}}, {6, {{}, numbered}}},
         6},
        {"two with its number come, neither at its place",
         numbered,
         {},
         {{5, {{}, Adapter("A1", "1-3")}}, {6, {{}, Adapter("A1", "1-4")}}},
         0},
        {"without a number: the same socket, another name", plain, {}, {{6, {{}, plain}}}, 6},
        {"the same name, another socket", plain, {}, {{5, {{}, Adapter("", "1-3")}}}, 0},
        {"another product in the socket", plain, {}, {{5, {{}, otherProduct}}}, 0},
        {"one with a number in the socket", plain, {}, {{5, {{}, numbered}}}, 0},
        {"nothing known: the same path", {}, {}, {{5, {{}, {}}}}, 5},
        {"another path", {}, {{1, {{}, {}}}}, {{6, {{}, {}}}}, 0},
        {"an adapter at the path of a port on the board", {}, {}, {{5, {{}, plain}}}, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Desk desk;
        desk.ports.plugged = row.beside;
        desk.ports.plugged[5] = {{}, row.gone};
        // A twin may have the name that the adapter is given first; it is opened by its path here.
        const PortDevice device = row.beside.contains(5) ? PortDevice{"/dev/fake/12"} : *desk.Device(5);
        if (row.beside.contains(5))
            desk.ports.plugged = {{5, row.beside.at(5)}, {12, {{}, row.gone}}};
        desk.portReturn.Begin({device, {.speed = 9600}});
        desk.ports.plugged = row.beside;
        EXPECT_FALSE(desk.portReturn.Look()) << "gone";
        desk.ports.plugged.insert(row.after.begin(), row.after.end());
        EXPECT_EQ(desk.portReturn.Look(), row.found != 0);
        EXPECT_EQ(desk.port.opened, row.found != 0 ? 1 : 0);
        if (row.found == 0)
            continue;
        EXPECT_EQ(desk.port.device.path, desk.Device(row.found)->path);
        EXPECT_EQ(desk.port.line.speed, 9600U);
        EXPECT_EQ(desk.port.Waiting(), 0) << "nothing from before";
        EXPECT_EQ(desk.port.inputLen, 0);
        EXPECT_TRUE(desk.prompts.messages.empty());
    }
}

TEST(PortReturn, TriesAgainAsLongAsThePortDoesNotOpen)
{
    Desk desk;
    desk.ports.plugged[5] = {{}, Adapter("A1", "1-2")};
    EXPECT_FALSE(desk.portReturn.Look()) << "no measurement yet";
    desk.portReturn.Begin({*desk.Device(5), {}});
    for (const PortFaultKind fault : {PortFaultKind::NoPermission, PortFaultKind::Busy}) {
        desk.port.openFault = PortFault{fault, {}};
        EXPECT_FALSE(desk.portReturn.Look());
    }
    desk.port.openFault.reset();
    EXPECT_TRUE(desk.portReturn.Look());
    EXPECT_TRUE(desk.prompts.messages.empty());
}

} // namespace
} // namespace quorvane
