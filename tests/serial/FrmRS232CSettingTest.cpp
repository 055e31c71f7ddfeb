#include "serial/FrmRS232CSetting.h"

#include "tests/support/DialogWorld.h"
#include "tests/support/FakePort.h"
#include "tests/support/ScriptedPorts.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QTextEdit>
#include <tuple>

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

auto Six(const PortSettings& port)
{
    return std::tuple(port.RsPort, port.RsSpeed, port.RsDataBit, port.RsParity, port.RsStopBit, port.RsFlow);
}

struct FrmRS232CSettingTest : DialogWorld<FrmRS232CSetting> {
    FrmRS232CSettingTest() { port = {"COM5", "38400", "8", "N", "1", 3}; }
    void Open(TableLanguage language = TableLanguage::English)
    {
        table = StringTable(language);
        told.clear();
        Show(FrmRS232CSetting::Parts{names, ports, ports, texts,
                                     [this](const Message& message) {
                                         EXPECT_TRUE(dialog->isVisible());
                                         dialog->close(); // the system may ask so at any time
                                         EXPECT_TRUE(dialog->isVisible());
                                         told.push_back(message);
                                     },
                                     secondChannelPort});
        QApplication::processEvents();
    }
    QComboBox* List(int number) { return Part<QComboBox>(("Combo" + std::to_string(number)).c_str()); }
    void PressAndWait(Qt::Key key)
    {
        Press(key);
        QApplication::processEvents();
    }
    /// Picks an entry with the keys.
    void Pick(int list, int entry)
    {
        List(list)->setFocus();
        PressAndWait(Qt::Key_Home);
        for (int i = 0; i < entry; ++i)
            PressAndWait(Qt::Key_Down);
    }
    std::vector<std::string> Entries(int list)
    {
        std::vector<std::string> entries;
        for (int i = 0; i < List(list)->count(); ++i)
            entries.push_back(List(list)->itemText(i).toStdString());
        return entries;
    }
    std::string Notes() { return dialog->findChild<QTextEdit*>()->toPlainText().toStdString(); }

    PortSettings& port = state;
    ScriptedPorts ports;
    FakePortNames names;
    std::string secondChannelPort;
    std::vector<Message> told;
};

TEST_F(FrmRS232CSettingTest, TellsOnceThatThereIsNoPort)
{
    Open();
    dialog->DevicesChanged();
    PressAndWait(Qt::Key_F5);
    dialog->hide();
    dialog->show();
    QApplication::processEvents();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].text, "RS232C Port is not found.");
    EXPECT_EQ(told[0].icon, Icon::Exclamation);
    EXPECT_EQ(told[0].titleId, 101);
    EXPECT_THAT(Entries(2), IsEmpty());
    EXPECT_THAT(Notes(), StartsWith("COM5: There is no such port."));
    EXPECT_EQ(port.RsPort, "COM5");
}

TEST_F(FrmRS232CSettingTest, OffersWhatCanBeUsedAndSelectsWhatIsSet)
{
    ports.plugged = {{1, {}}, {2, {PortFault{PortFaultKind::Busy, "taken"}}}, {10, {}}, {15, {}}};
    struct Row {
        PortSettings port;
        std::vector<int> selected; ///< of Combo2 to Combo7
    };
    const Row rows[] = {
        {{"COM10", "38400", "8", "N", "1", 3}, {1, 3, 1, 2, 0, 2}},
        {{"COM15", "4800", "7", "o", "1.5", 1}, {2, 0, 0, 1, 1, 0}},
        {{"COM1", "9600", "8", "E", "2", 4}, {0, 1, 1, 0, 2, 3}},
        {{"COM2", "57600", "9", "Even", "", 0}, {-1, -1, -1, -1, -1, -1}}, // in no list
        {{"", "", "", "", "", 5}, {-1, -1, -1, -1, -1, -1}},
    };
    for (const Row& row : rows) {
        port = row.port;
        Open();
        for (int list = 2; list <= 7; ++list)
            EXPECT_EQ(List(list)->currentIndex(), row.selected.at(static_cast<std::size_t>(list) - 2))
                << list;
        Leave(Way::Ok);
        EXPECT_EQ(Six(port), Six(row.port)) << "what is not picked stays as it is";
    }
    EXPECT_THAT(Entries(1), ElementsAre("CH1"));
    EXPECT_THAT(Entries(2), ElementsAre("COM1", "COM10", "COM15"));
    EXPECT_THAT(Entries(3), ElementsAre("4800", "9600", "19200", "38400"));
    EXPECT_THAT(Entries(4), ElementsAre("7", "8"));
    EXPECT_THAT(Entries(5), ElementsAre("Even", "Odd", "None"));
    EXPECT_THAT(Entries(6), ElementsAre("1", "1.5", "2"));
    EXPECT_THAT(Entries(7), ElementsAre("None", "Xon/Xoff", "RTS/CTS", "Xon/RTS"));
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Communication Setting"));
    EXPECT_THAT(Notes(), testing::HasSubstr("COM2 (/dev/fake/2): Another program is using the port."));
}

TEST_F(FrmRS232CSettingTest, PicksAreLiveAndEveryWayOutButOkPutsAllSixBack)
{
    ports.plugged = {{1, {}}, {5, {}}};
    const PortSettings before = port;
    for (const TableLanguage language : {TableLanguage::English, TableLanguage::Japanese})
        for (const Way way : {Way::Cancel, Way::Escape, Way::CloseBox, Way::Ok}) {
            port = before;
            Open(language);
            Pick(2, 0);
            Pick(3, 1);
            Pick(4, 0);
            Pick(5, 2);
            EXPECT_EQ(port.RsParity, "n") << "the letter of the entry, and no longer that of the file";
            Pick(5, 0);
            Pick(6, 1);
            Pick(7, 3);
            const PortSettings picked{"COM1", "9600", "7", "e", "1.5", 4};
            EXPECT_EQ(Six(port), Six(picked));
            Leave(way);
            EXPECT_EQ(Six(port), Six(Keeps(way) ? picked : before));
        }
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(FrmRS232CSettingTest, TellsOfAPortOfTheSecondChannelAndKeepsTheChoice)
{
    ports.plugged = {{1, {}}, {2, {}}};
    port.RsPort = secondChannelPort = "COM2";
    Open();
    EXPECT_THAT(told, IsEmpty()) << "nothing was chosen yet";
    Pick(2, 1);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].text, "Port number has overlapped CH2.");
    EXPECT_EQ(told[0].titleId, 181); // another dialog's title; meant
    EXPECT_EQ(port.RsPort, "COM2");

    port.RsPort = secondChannelPort = ""; // there is none
    Open();
    Pick(2, 1);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(FrmRS232CSettingTest, FollowsTheDevicesWithoutDisturbingTheOperator)
{
    ports.plugged = {{1, {}}, {5, {}}};
    Open();
    const QSize size = dialog->size();
    List(2)->showPopup();
    ASSERT_TRUE(List(2)->view()->isVisible());
    ports.plugged.erase(5);
    ports.plugged[3] = {};
    dialog->DevicesChanged();
    QApplication::processEvents();
    EXPECT_THAT(Entries(2), ElementsAre("COM1", "COM5"));
    List(2)->hidePopup();
    QApplication::processEvents();
    EXPECT_THAT(Entries(2), ElementsAre("COM1", "COM3"));
    EXPECT_EQ(List(2)->currentIndex(), -1);
    EXPECT_EQ(port.RsPort, "COM5");

    PortFault denied{PortFaultKind::NoPermission, ""};
    denied.group = "dialout";
    ports.plugged[5] = {denied};
    dialog->DevicesChanged();
    EXPECT_THAT(Notes(), testing::HasSubstr("sudo usermod -aG dialout $USER"));
    ports.plugged[5].fault.reset();
    PressAndWait(Qt::Key_F5);
    EXPECT_THAT(Entries(2), ElementsAre("COM1", "COM3", "COM5"));
    EXPECT_EQ(List(2)->currentIndex(), 2);
    EXPECT_EQ(Notes(), "COM5 (/dev/fake/5): can be used");
    EXPECT_EQ(dialog->size(), size);

    auto* const notes = dialog->findChild<QTextEdit*>();
    notes->selectAll();
    dialog->DevicesChanged();
    EXPECT_TRUE(notes->textCursor().hasSelection()) << "nothing has changed";
    EXPECT_THAT(told, IsEmpty());
}

} // namespace
} // namespace quorvane
