#include "app/DesktopProgram.h"

#include "measure/LiveTable.h"
#include "tests/platform/ScopedEnvironment.h"
#include "tests/support/ChildProgram.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr int kHalfAMinute = 30000; // means never

/// The whole desktop program on a real pseudo-terminal with the simulated instrument, in real time.
struct DesktopProgramTest : testing::Test {
    ScratchFolder folder;
    ChildProgram instrument{
        QUORVANE_INSTRUMENT, {"--interval", "1"}, folder.Path("instrument.txt"), {}};
    ScopedEnvironment home{"QUORVANE_HOME", folder.Path()};
    ScopedEnvironment runtime{"XDG_RUNTIME_DIR", folder.Path()};
    ScopedEnvironment language{"LC_ALL", "C"};
    ScopedEnvironment port{"QUORVANE_COM1", instrument.NextLine()};

    void WriteSettings() const
    {
        std::ofstream(folder.Path("Quorvane.ini"), std::ios::binary)
            << "[Quorvane Software Version]\r\nQuorvane_Ver.0100\r\nProgMode= True\r\nRsPort_CH1=COM1\r\n"
               "RsSpeed_CH1=38400\r\nRsDataBit_CH1=8\r\nRsParity_CH1=N\r\nRsStopBit_CH1=1\r\nRsFlow_CH1= 3\r\n"
               "MeasureNumber= 3600\r\nTotalMeasureTime_Hour= 1\r\nTWA_Alarm= 10\r\nSTEL_Alarm= 10\r\n"
               "C_Alarm= 10\r\nDefaultFolder="
            << folder.Path() << "\r\n";
    }
    static void Click(const DesktopProgram& program, const char* button)
    {
        QTest::mouseClick(const_cast<DesktopProgram&>(program).Window().findChild<QWidget*>(QLatin1String(button)),
                          Qt::LeftButton);
    }
    /// Does something to the next dialog of this kind as soon as it is there.
    template <typename Dialog>
    static void WithNext(std::function<void(Dialog&)> action)
    {
        auto* look = new QTimer(qApp);
        QObject::connect(look, &QTimer::timeout, look, [look, action] {
            if (auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget())) {
                look->deleteLater();
                look->stop();
                action(*dialog);
            }
        });
        look->start(20);
    }
};

TEST_F(DesktopProgramTest, MeasuresStopsSavesAndCloses)
{
    WriteSettings();
    DesktopProgram program(MakePlatform());
    ASSERT_TRUE(program.Start());
    FrmMenu& window = program.Window();
    const auto* table = window.findChild<LiveTable*>()->model();

    Click(program, "Command1");
    ASSERT_TRUE(QTest::qWaitFor([&] { return table->rowCount() >= 3; }, kHalfAMinute));
    Click(program, "Command1");
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.Run().State() == RunState::Idle; }, kHalfAMinute));
    const int taken = table->rowCount();

    WithNext<QFileDialog>([](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>()->setText(QStringLiteral("dust"));
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
    });
    WithNext<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    EXPECT_TRUE(window.close()); // asked whether to save: yes, as "dust", in the data folder
    const std::string file = FileBytes(folder.Path("dust.csv"));
    EXPECT_THAT(file, StartsWith("Program Ver.,Quorvane_Ver."));
    EXPECT_THAT(file, HasSubstr("\r\nData," + std::to_string(taken) + "\r\n"));
    EXPECT_THAT(FileBytes(folder.Path("Quorvane.ini")), HasSubstr("MeasureNumber= 3600\r\n"));
    EXPECT_EQ(FileBytes(folder.Path("RSErr.log")), "");
}

TEST_F(DesktopProgramTest, ASecondOneSaysSoAndEnds)
{
    DesktopProgram first(MakePlatform());
    ASSERT_TRUE(first.Start());
    WithNext<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), QStringLiteral("Two or more startings cannot do this application."));
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Quorvane Software"));
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        box.accept();
    });
    DesktopProgram second(MakePlatform());
    EXPECT_FALSE(second.Start());
}

TEST_F(DesktopProgramTest, EndsLikeACloseWhenTheSystemAsksItTo)
{
    ChildProgram program(QUORVANE, {"-platform", "offscreen"}, folder.Path("errors.txt"), {});
    ASSERT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(folder.Path("quorvane.lock")); },
                                kHalfAMinute));
    program.Signal(SIGTERM);
    EXPECT_EQ(program.Wait(), 0);
    EXPECT_NE(FileBytes(folder.Path("Quorvane.ini")), ""); // written by the close
}

} // namespace
} // namespace quorvane
