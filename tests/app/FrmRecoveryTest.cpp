#include "tests/support/Operator.h"
#include "tests/support/WindowWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

/// A program that may end without a word, and leave its journals to the next one.
struct Program : WindowWorld {
    explicit Program(std::map<std::string, std::string> leftOver = {})
    {
        state.MassCFlg = true;
        journals.files = std::move(leftOver);
    }
    /// A run of three readings, the port lost before the second of them.
    void MeasureWithAGap()
    {
        onPump = [this](long) {
            if (window->Run().State() == RunState::Measuring && Rows() == 1 && arrays.Gaps.empty())
                arrays.Gaps = {{2, GapKind::PortLost, world.Now() - 70s, world.Now()}};
        };
        Measure();
        onPump = nullptr;
    }
    [[nodiscard]] std::map<std::string, std::string> Killed()
    {
        window.reset();
        journals.Release(); // as the system does
        return journals.files;
    }
    [[nodiscard]] std::size_t LeftOver() const { return journals.LeftOver("app").size(); }
};

std::map<std::string, std::string> TwoRuns()
{
    Program killed;
    killed.Open();
    killed.MeasureWithAGap();
    killed.journals.Release();
    killed.state.DataPresent = 0; // it is another program, and asks nothing
    killed.MeasureWithAGap();
    return killed.Killed();
}

TEST(FrmRecovery, OffersTheRunsThatAreInNoFileAndDoesWhatIsChosen)
{
    Program* now = nullptr;
    const Operator::Step closeWindow = [&](QDialog&) { EXPECT_FALSE(now->window->close()); };
    const Operator::Step endSystem = [&](QDialog&) { EXPECT_FALSE(now->window->RefusesEndOfSystem()); };
    const Operator::Step tryCommands = [&](QDialog& dialog) {
        now->Find<QAction>("MenuMeasureStart")->trigger();
        now->Find<QAction>("MenuOpen")->trigger();
        dialog.reject();
    };
    const auto discard = Click(u"Discard..."_qs);
    const auto restore = Click(u"Restore"_qs);
    const auto later = Click(u"Later"_qs);
    const auto yes = Click(u"Yes"_qs);
    struct Row {
        const char* what;
        std::deque<Operator::Step> steps;
        std::optional<std::string> saveName;
        int rows;
        bool kept;
        std::size_t left; // of two runs, when this program ends without a word, too
        bool closes = false;
    };
    const Row rows[] = {
        {"Enter brings all back", {Press(Qt::Key_Return)}, {}, 3, false, 2},
        {"restored", {restore}, {}, 3, false, 2},
        {"saved at once", {Click(u"Save as..."_qs)}, "out.csv", 3, true, 1},
        {"the save dialog is cancelled", {Click(u"Save as..."_qs)}, {}, 3, false, 2},
        {"later", {later}, {}, 0, false, 2},
        {"Escape is later", {Press(Qt::Key_Escape)}, {}, 0, false, 2},
        {"asked before they are discarded, Enter is No",
         {discard, Press(Qt::Key_Return), later},
         {},
         0,
         false,
         2},
        {"discarded, and the older one is restored", {discard, yes, restore}, {}, 3, true, 1},
        {"both discarded", {discard, yes, discard, yes}, {}, 0, true, 0},
        {"the window is closed meanwhile", {closeWindow}, {}, 0, false, 2, true},
        {"and behind the question", {discard, closeWindow}, {}, 0, false, 2, true},
        {"the system ends", {endSystem}, {}, 0, false, 2},
        {"no command comes behind it", {tryCommands}, {}, 0, false, 2},
    };
    const auto runs = TwoRuns();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Program program(runs);
        now = &program;
        ASSERT_EQ(program.LeftOver(), 2U);
        program.prompts.saveNames = {row.saveName};
        {
            Operator operates(row.steps);
            program.Show();
            QApplication::processEvents();
        }
        QApplication::processEvents(); // a close that was put off comes back
        EXPECT_EQ(program.window->isVisible(), !row.closes);
        EXPECT_EQ(program.Rows(), row.rows);
        EXPECT_EQ(program.window->isWindowModified(), row.rows > 0 && !row.saveName);
        EXPECT_EQ(program.Enabled("MenuSave"), row.rows > 0);
        EXPECT_EQ(program.files.files.contains("out.csv"), row.saveName.has_value());
        EXPECT_EQ(program.journals.files.contains("app/Run.journal.old"), row.kept);
        EXPECT_TRUE(program.prompts.messages.empty() && program.prompts.openQuestions.empty());
        EXPECT_TRUE(program.port.sent.empty());
        static_cast<void>(program.Killed());
        EXPECT_EQ(program.LeftOver(), row.left);
    }
}

TEST(FrmRecovery, RestoredReadingsAreShownAndMarkedAsNotSaved)
{
    Program program(TwoRuns());
    Operator operates({Click(u"Restore"_qs)});
    program.Show();
    QApplication::processEvents();
    static_cast<void>(program.world.Serve(1s));
    EXPECT_EQ(program.Cell(2, 0), "09:30:03");
    EXPECT_EQ(program.Label("StatusSample"), "3 readings");
    EXPECT_EQ(program.Label("ConcNow"), "\u2013") << "nothing is measured now";
    const auto* const table = program.Find<LiveTable>("vaSpread1")->model();
    EXPECT_THAT(table->index(1, 0).data(Qt::ToolTipRole).toString().toStdString(),
                testing::MatchesRegex("Gap: the port was lost, readings are missing\n2024.* \\(01:10\\)"));
    EXPECT_TRUE(table->index(2, 0).data(Qt::ToolTipRole).isNull());

    program.Measure(); // "Data is not saved": No
    EXPECT_EQ(program.Messages(), std::vector<std::string>{"Data is not saved. Do you save?"});
    EXPECT_EQ(program.Label("StatusSample"), "Sample 3 of 3");
    EXPECT_TRUE(table->index(1, 0).data(Qt::ToolTipRole).isNull());
}

/// Readings must never be neither in a file nor in a journal nor given up.
TEST(FrmRecovery, TheJournalGoesOnlyWithTheReadingsOrWhenTheyAreSaved)
{
    struct Row {
        const char* what;
        std::function<void(Program&)> happens;
        bool journal; // still there for the next start
    };
    Operator operates;
    const auto open = [](const char* name) {
        return [name](Program& program) {
            program.prompts.openNames = {name};
            program.Trigger("MenuOpen");
        };
    };
    const Row rows[] = {
        {"nothing", [](Program&) {}, true},
        {"No, and another file is opened", open("old.csv"), false},
        {"No, but the file is none", open("photo.csv"), true},
        {"No, but the open dialog is cancelled", [](Program& program) { program.Trigger("MenuOpen"); }, true},
        {"No before the graph settings",
         [&](Program& program) {
             operates.Does({Press(Qt::Key_Escape)});
             program.Trigger("MenuGraphSetting");
         },
         true},
        {"No before a run that cannot start",
         [](Program& program) {
             program.answersLinkChecks = false;
             program.Measure();
         },
         true},
        {"No before a run that takes place",
         [](Program& program) {
             program.Measure();
             program.state.DataSaved = 1; // of the new ones nothing is asked
             program.journals.Retire({});
         },
         false},
        {"No at the end", [](Program& program) { EXPECT_TRUE(program.window->close()); }, false},
        {"not closed: Yes, but it cannot be saved",
         [](Program& program) {
             program.prompts.answers = {Answer::Yes};
             EXPECT_FALSE(program.window->close());
         },
         true},
        {"saved",
         [](Program& program) {
             program.prompts.saveNames = {"out.csv"};
             program.Trigger("MenuSave");
         },
         false},
        {"saved, but the disk is full",
         [](Program& program) {
             program.prompts.saveNames = {"out.csv"};
             program.files.replaceFault = FileFault{FileFaultKind::NoSpace, ""};
             program.Trigger("MenuSave");
         },
         true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Program program;
        program.files.files["old.csv"] =
            "Program Ver.,Quorvane_Ver.0100\r\nDate,2024/05/01\r\nData,1\r\nK Factor,0.0012\r\n"
            "Time,Relative Concentration([CPM]),Mass Concentration([mg/m3]),"
            "Relative Concentration(Integrated Value[CPM]),Mass Concentration(Integrated Value[mg/m3])\r\n"
            "23:59:58,12,0.015,12,0.015\r\n";
        program.files.files["photo.csv"] = "none";
        program.Open();
        program.Measure();
        row.happens(program);
        static_cast<void>(program.Killed());
        EXPECT_EQ(program.LeftOver(), row.journal ? 1U : 0U);
    }
}

TEST(FrmRecovery, TheStatusBarWarnsWhileTheJournalCannotBeWrittenAndTheWindowWritesTheRest)
{
    struct Row {
        JournalHealth health;
        std::string text, tip;
    };
    const Row rows[] = {
        {{.fault = FileFault{FileFaultKind::NoSpace, "No space left on device"}},
         "The disk is full, the journal cannot be written: save as soon as the run is over",
         "No space left on device"},
        {{.fault = FileFault{FileFaultKind::NoPermission, ""}},
         "The journal cannot be written: save as soon as the run is over",
         "not allowed"},
        {{.behind = true, .fault = {}}, "The disk is slow: the journal is behind the readings", "behind"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        Program program;
        program.Open();
        const auto* const warning = program.Find<QLabel>("StatusWarning");
        program.journals.health = row.health;
        static_cast<void>(program.world.Serve(1s));
        EXPECT_FALSE(warning->isVisible()) << "there is nothing that could be lost";
        bool seen = false;
        program.onPump = [&](long) {
            if (program.Rows() == 2) {
                program.journals.room = 0;
                seen = seen || (warning->isVisible() && program.Label("StatusWarning") == row.text);
            }
        };
        program.Measure();
        program.onPump = nullptr;
        EXPECT_TRUE(seen);
        EXPECT_THAT(warning->toolTip().toLower().toStdString(),
                    testing::HasSubstr(QString::fromStdString(row.tip).toLower().toStdString()));
        EXPECT_TRUE(program.prompts.messages.empty()) << "a box would hold up the operator";
        static_cast<void>(program.world.Serve(1s));
        EXPECT_TRUE(warning->isVisible()) << "they are nowhere else";

        program.journals.room = 100;
        program.journals.health = {};
        static_cast<void>(program.world.Serve(1s));
        EXPECT_FALSE(warning->isVisible());
        Program next(program.Killed());
        Operator operates({Click(u"Restore"_qs)});
        next.Show();
        QApplication::processEvents();
        EXPECT_EQ(next.Rows(), 3);
    }
}

TEST(FrmRecovery, ALostPortStandsOut)
{
    Program program;
    program.Open();
    const auto isBold = [&] { return program.Find<QLabel>("StatusState")->font().bold(); };
    bool before = true;
    bool lost = false;
    program.onPump = [&](long) {
        if (program.window->Run().State() != RunState::Measuring)
            return;
        if (program.Rows() == 1 && program.port.IsOpen()) {
            before = isBold();
            program.port.Vanish();
        }
        if (isBold()) {
            lost = true;
            program.window->Run().Stop();
        }
    };
    program.Measure();
    EXPECT_FALSE(before);
    EXPECT_TRUE(lost);
    EXPECT_FALSE(isBold());
}

} // namespace
} // namespace quorvane
