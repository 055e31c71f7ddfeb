#include "app/DesktopProgram.h"

#include "measure/LiveTable.h"
#include "tests/support/ChildProgram.h"
#include "tests/support/FixedSystemInfo.h"
#include "tests/support/Operator.h"
#include "tests/support/ScopedEnvironment.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
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
    ChildProgram instrument{QUORVANE_INSTRUMENT, {"--interval", "1"}, folder.Path("instrument.txt"), {}};
    ScopedEnvironment home{"QUORVANE_HOME", folder.Path()};
    ScopedEnvironment runtime{"XDG_RUNTIME_DIR", folder.Path()};
    ScopedEnvironment language{"LC_ALL", "C"};
    ScopedEnvironment port{"QUORVANE_COM1", instrument.NextLine()};

    /// Serves events until `condition` holds.
    static bool Until(const std::function<bool()>& condition)
    {
        return QTest::qWaitFor(condition, kHalfAMinute);
    }
};

TEST_F(DesktopProgramTest, MeasuresStopsSavesAndCloses)
{
    std::ofstream(folder.Path("Quorvane.ini"), std::ios::binary)
        << "[Quorvane Software Version]\r\nQuorvane_Ver.0100\r\nProgMode= True\r\nRsPort_CH1=COM1\r\n"
           "RsSpeed_CH1=38400\r\nRsDataBit_CH1=8\r\nRsParity_CH1=N\r\nRsStopBit_CH1=1\r\nRsFlow_CH1= 3\r\n"
           "MeasureNumber= 60\r\nTotalMeasureTime_Minute= 1\r\nTWA_Alarm= 10\r\nSTEL_Alarm= 10\r\n"
           "C_Alarm= 10\r\nDefaultFolder="
        << folder.Path() << "\r\n";
    DesktopProgram program(MakePlatform());
    ASSERT_TRUE(program.Start());
    FrmMenu& window = program.Window();
    const auto* const table = window.findChild<LiveTable*>()->model();
    auto* const button = window.findChild<QWidget*>(QStringLiteral("Command1"));

    // The run serves events from the click until its end; who wants to stop it has to be one of them.
    QTimer stopper;
    QObject::connect(&stopper, &QTimer::timeout, &stopper, [&] {
        if (table->rowCount() < 3)
            return;
        stopper.stop();
        QTest::mouseClick(button, Qt::LeftButton);
    });
    stopper.start(20);
    QTest::mouseClick(button, Qt::LeftButton);
    ASSERT_TRUE(Until([&] { return table->rowCount() >= 3 && window.Run().State() == RunState::Idle; }));
    const std::string taken = std::to_string(table->rowCount());

    Operator saves({Click(QStringLiteral("Yes")), [](QDialog& dialog) {
                        dialog.findChild<QLineEdit*>()->setText(QStringLiteral("dust"));
                        Click(QStringLiteral("Save"))(dialog);
                    }});
    EXPECT_TRUE(window.close());
    const std::string file = FileBytes(folder.Path("dust.csv")); // in the data folder, with its extension
    EXPECT_THAT(file, StartsWith("Program Ver.,Quorvane_Ver."));
    EXPECT_THAT(file, HasSubstr("\r\nData," + taken + "\r\n"));
    EXPECT_THAT(FileBytes(folder.Path("Quorvane.ini")), HasSubstr("MeasureNumber= 60\r\n"));
    EXPECT_EQ(FileBytes(folder.Path("RSErr.log")), "");
}

TEST_F(DesktopProgramTest, ASecondOneSaysSoAndEnds)
{
    DesktopProgram first(MakePlatform());
    ASSERT_TRUE(first.Start());
    Operator reads({[](QDialog& dialog) {
        const auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_EQ(box.text(), QStringLiteral("Two or more startings cannot do this application."));
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Quorvane Software"));
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        Click(QStringLiteral("OK"))(dialog);
    }});
    DesktopProgram second(MakePlatform());
    EXPECT_FALSE(second.Start());
}

TEST_F(DesktopProgramTest, AsksForTheLanguageFirstWhenItIsToldTo)
{
    const ScopedEnvironment japanese("LC_ALL", "ja_JP.UTF-8");
    std::ofstream(folder.Path("Language.dat"), std::ios::binary) << "Language = 1\r\n";
    Operator person({[](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("言語の選択"));
        EXPECT_TRUE(dialog.findChild<QAbstractButton*>(QStringLiteral("Option1"))->isChecked());
        dialog.findChild<QAbstractButton*>(QStringLiteral("Option2"))->click();
        QTest::keyClick(&dialog, Qt::Key_Return);
    }});
    DesktopProgram program(MakePlatform());
    ASSERT_TRUE(program.Start(true));
    EXPECT_EQ(FileBytes(folder.Path("Language.dat")), "Language = 0\r\n");
    EXPECT_EQ(program.Window().findChild<QAbstractButton*>(QStringLiteral("Command1"))->text(),
              QStringLiteral("測定開始"));
}

TEST_F(DesktopProgramTest, TheAboutBoxSaysThatTheProcessorIsAskedForAndThenWhichItIs)
{
    auto machine = std::make_unique<FixedSystemInfo>();
    machine->processors.reset();
    auto& processors = machine->processors;
    Platform platform = MakePlatform();
    platform.systemInfo = std::move(machine);
    DesktopProgram program(std::move(platform));
    ASSERT_TRUE(program.Start());
    program.Window().findChild<QAction*>(u"MenuVersion"_qs)->trigger();
    const auto* const about = program.Window().findChild<QDialog*>(u"FrmHelp"_qs);
    ASSERT_NE(about, nullptr);
    const auto shows = [&](const QString& text) {
        return std::ranges::count(about->findChildren<QLabel*>(), text, &QLabel::text) == 1;
    };
    EXPECT_TRUE(shows(u"The system is being asked..."_qs));
    processors = {{{.description = {}, .name = "Late", .manufacturer = {}, .l2CacheSize = {}}}};
    ASSERT_TRUE(Until([&] { return shows(u"Late"_qs); }));
    EXPECT_FALSE(shows(u"The system is being asked..."_qs));
    EXPECT_TRUE(shows(u"System class:"_qs)) << "the other facts stay";
}

TEST_F(DesktopProgramTest, EndsLikeACloseWhenTheSystemAsksItTo)
{
    DesktopProgram program(MakePlatform());
    ASSERT_TRUE(program.Start());
    QTimer::singleShot(0, [] { std::raise(SIGTERM); });
    EXPECT_EQ(program.Run(), 0);
    EXPECT_NE(FileBytes(folder.Path("Quorvane.ini")), ""); // written by the close
}

TEST_F(DesktopProgramTest, AnswersItsCommandLineWithoutADisplay)
{
    struct Row {
        const char* option;
        const char* output;
        int status;
    };
    for (const Row& row : {Row{"--version", "quorvane 0.1.0\n", 0}, Row{"--help", "Usage: quorvane", 0}}) {
        ChildProgram program(QUORVANE, {row.option, "-platform", "none"}, folder.Path("errors.txt"), {});
        EXPECT_THAT(program.RestOfOutput(), StartsWith(row.output));
        EXPECT_EQ(program.Wait(), row.status);
    }
    ChildProgram wrong(QUORVANE, {"-platform", "offscreen", "--unknown"}, folder.Path("errors.txt"), {});
    EXPECT_EQ(wrong.Wait(), 2);
    EXPECT_THAT(FileBytes(folder.Path("errors.txt")), HasSubstr("Usage: quorvane"));
}

} // namespace
} // namespace quorvane
