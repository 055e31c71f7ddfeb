#include "tests/support/CaptionWalk.h"

#include "app/FrmRecovery.h"
#include "app/MessageBox.h"
#include "app/OpenDialog.h"
#include "app/ProgramFont.h"
#include "app/QtText.h"
#include "app/SaveDialog.h"
#include "app/ToolkitLanguage.h"
#include "graph/ChartWidget.h"
#include "graph/FrmGraphSetting.h"
#include "graph/FrmPrint.h"
#include "graph/PreviewWindow.h"
#include "instrument/FrmQuorvaneSetting.h"
#include "measure/FrmMeasureSetting.h"
#include "options/FrmGuide.h"
#include "options/FrmHelp.h"
#include "options/FrmLanguageSelect.h"
#include "options/FrmOption.h"
#include "resources/OwnTexts.h"
#include "stored/FrmDriveList.h"
#include "tests/support/FixedPrinters.h"
#include "tests/support/Operator.h"
#include "tests/support/PaintedTexts.h"
#include "tests/support/WindowWorld.h"

#include <QMessageBox>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

/// The program in one language, with letters so many times the usual size.
struct Desk : WindowWorld {
    Desk(TableLanguage language, double scale)
    {
        table = StringTable(language);
        state.SystemLanguageName = language == TableLanguage::English ? "English" : "Japanese";
        state.MassCFlg = state.MassTWAFlg = state.MassSTELFlg = state.MassIntegratedFlg = true;
        QApplication::setFont(Enlarged(usual, scale));
        UseToolkitLanguage(*qApp, language);
    }
    ~Desk()
    {
        UseToolkitLanguage(*qApp, TableLanguage::English);
        QApplication::setFont(usual);
    }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    const QFont usual = QApplication::font();
    std::function<void(const Message&)> tell = [](const Message&) {};
};

constexpr QSize kSmallestScreen(960, 510); // of 1920 x 1080 at 200 %, without a taskbar

using Look = std::function<void(QWidget&)>;

/// Looks at a window that stands by itself.
void Show(const Look& look, QWidget&& window)
{
    window.show();
    look(window);
}

void ShowMain(Desk& desk, const Look& look)
{
    desk.Open();
    look(*desk.window);
}

/// A run, and then all that the status bar can tell of one at once.
void ShowRun(Desk& desk, const Look& look)
{
    bool seen = false;
    desk.onPump = [&](long) {
        if (desk.Rows() < 2 || std::exchange(seen, true))
            return;
        look(*desk.window);
        desk.Click("Command1");
    };
    desk.Plan(9999, 1);
    desk.Open();
    desk.GiveLines(3);
    desk.Click("Command1");
    EXPECT_TRUE(seen);
    const std::pair<const char*, int> longest[] = {
        {"StatusState", kPortLostText},         {"StatusSample", kSampleText},
        {"StatusTimeLeft", kTimeLeftText},      {"StatusAge", kNoDataText},
        {"StatusBehind", kLinesBehindText},     {"StatusPort", kPortNotConnectedText},
        {"StatusWarning", kDiskFullWarningText}};
    for (const auto& [field, id] : longest) {
        auto* const label = desk.Find<QLabel>(field);
        label->setText(Shown(FilledIn(FilledIn(desk.texts[id], "65500"), "65500")));
        label->setToolTip(label->text());
        label->show();
    }
    desk.window->resize(desk.window->minimumSizeHint());
    look(*desk.window);
}

void ShowInstrumentSettings(Desk& desk, const Look& look)
{
    desk.Open();
    desk.Trigger("MenuQuorvaneSetting");
    look(*desk.window->findChild<FrmQuorvaneSetting*>());
}

void ShowMessage(Desk& desk, const Look& look)
{
    QWidget parent;
    ShowMessageBoxLater({.text = desk.texts[kGraphHintText], .buttons = Buttons::YesNo}, desk.texts, &parent);
    look(*parent.findChild<QMessageBox*>());
}

SaveQuestion WhereToSave()
{
    SaveQuestion question;
    question.filter = "CSV (*.csv)|*.csv|";
    return question;
}

OpenQuestion WhatToOpen()
{
    OpenQuestion question;
    question.filter = WhereToSave().filter;
    return question;
}

const QStringList kStatusValues{u"StatusPort"_qs, u"StatusAnnouncement"_qs};
const QStringList kToolkits{u"lookInCombo"_qs,      u"backButton"_qs,      u"forwardButton"_qs,
                            u"toParentButton"_qs,   u"newFolderButton"_qs, u"listModeButton"_qs,
                            u"detailModeButton"_qs, u"treeView"_qs,        u"listView"_qs,
                            u"sidebar"_qs,          u"fileTypeCombo"_qs};

/// One window.
struct Row {
    const char* what;
    QStringList values; ///< controls that show no caption, but a number, a path, a text of the toolkit
    std::vector<std::pair<const char*, const char*>> says; ///< some of its captions, in English
    void (*visit)(Desk& desk, const Look& look);
};
void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.what;
}

const Row kRows[] = {
    {"main window",
     kStatusValues,
     {{"Command1 text", "Measure Start"},
      {"Command2 text", "Alarm Reset"},
      {"Command4 text", "Zoom On"},
      {"Label1 text", "Alarm value (TWA) [mg/m3]"},
      {"Label2 text", "Alarm value (STEL) [mg/m3]"},
      {"Label3 text", "Alarm value (C) [mg/m3]"},
      {"MenuTool MenuGraphSetting text", "Graph Setting"},
      {"MenuMeasure MenuMeasureEnd text", "Measure End"}},
     ShowMain},
    {"main window, simulated",
     kStatusValues,
     {{"StatusMode text", "SIMULATED"}},
     [](Desk& desk, const Look& look) {
         desk.state.RunMode = false;
         ShowMain(desk, look);
     }},
    {"main window, measuring", kStatusValues, {{"StatusSample text", "Sample 2 of 9999"}}, ShowRun},
    {"readings of an earlier program",
     {u"Value2"_qs, u"Value3"_qs, u"Value4"_qs, u"Value5"_qs, u"Value6"_qs},
     {{"FrmRecovery title", "Unsaved readings"}, {"Command1 text", "Restore"}},
     [](Desk& d, const Look& look) {
         LeftOverRun run;
         run.damaged = 1;
         run.simulated = true;
         Show(look, FrmRecovery(run, d.texts, d.locale, nullptr));
     }},
    {"measure settings",
     {},
     {{"FrmMeasureSetting title", "Measure setting"},
      {"Label1 text", "Number of Measuring Times:"},
      {"Label2 text", "Sampling Time:"},
      {"Label3 text", "Total Measure Time:"},
      {"Label7 text", "sec"},
      {"Command1 text", "OK"},
      {"Command2 text", "Cancel"}},
     [](Desk& d, const Look& look) {
         Show(look, FrmMeasureSetting(d.state, d.texts, d.locale, d.tell, nullptr));
     }},
    {"graph settings",
     {},
     {{"FrmGraphSetting title", "Graph Setting"},
      {"Check4 text", "Mass Concentration(Integrated value) [mg/m3]"},
      {"Check9 text", "Alarm value (STEL) [mg/m3]"}},
     [](Desk& d, const Look& look) { Show(look, FrmGraphSetting(d.state, d.texts, d.tell, nullptr)); }},
    {"instrument settings",
     {u"DateHint"_qs, u"Label23"_qs},
     {{"FrmQuorvaneSetting title", "Instrument Setting"}, {"Command6 text", "Close"}},
     ShowInstrumentSettings},
    {"instrument settings, simulated",
     {u"Label23"_qs, u"LinkStatus"_qs},
     {{"DateHint text", "No date is sent: write it in 8 to 10 characters."}},
     [](Desk& desk, const Look& look) {
         desk.state.RunMode = false;
         ShowInstrumentSettings(desk, look);
     }},
    {"communication settings",
     {u"Combo2"_qs, u"Combo3"_qs, u"Combo4"_qs, u"Combo6"_qs},
     {{"FrmRS232CSetting title", "Communication Setting"},
      {"Label1 text", "Connected channel"},
      {"Label2 text", "Port"},
      {"Label3 text", "Baud rate"},
      {"Label4 text", "Data Bit"},
      {"Label5 text", "Parity"},
      {"Label6 text", "Stop Bit"},
      {"Label7 text", "Flow"}},
     [](Desk& d, const Look& look) {
         d.ports.plugged = {{1, {}}, {5, {}}};
         Show(look, FrmRS232CSetting(d.state, {d.names, d.ports, d.ports, d.texts, d.tell, {}}, nullptr));
     }},
    {"options",
     {},
     {{"FrmOption title", "Options"}, {"Option4 text", "English"}},
     [](Desk& d, const Look& look) {
         Show(look, FrmOption(d.state, {d.files, d.settings, d.drives, d.texts, d.tell}, nullptr));
     }},
    {"folder chooser",
     {u"Drive1"_qs},
     {{"FrmDriveList title", "Folder Setup"}},
     [](Desk& d, const Look& look) {
         const auto ignore = [](const std::string&) {};
         Show(look, FrmDriveList(d.state, {d.drives, d.texts, d.tell, ignore}, nullptr));
     }},
    {"language selection",
     {u"Hint"_qs}, // there is another one on Japanese systems
     {{"FrmLanguageSelect title", "Language Select"},
      {"Option1 text", "English"},
      {"Option2 text", "Japanese"},
      {"Command1 text", "OK"}},
     [](Desk& d, const Look& look) {
         Show(look, FrmLanguageSelect(d.state, {d.files, d.texts, d.tell}));
     }},
    {"about",
     {u"Fact"_qs, u"Notice"_qs},
     {{"FrmHelp title", "About Quorvane Software"}},
     [](Desk& d, const Look& look) { Show(look, FrmHelp(d.state, d.texts, nullptr)); }},
    {"guide",
     {u"Notice"_qs},
     {{"FrmGuide title", "Operator's Guide"}},
     [](Desk& d, const Look& look) {
         FrmGuide guide(d.texts);
         guide.Load();
         guide.show();
         look(guide);
     }},
    {"preview",
     {},
     {{"QDialog title", "Print preview"}},
     [](Desk& d, const Look& look) { Show(look, PreviewWindow({}, d.texts, {}, nullptr)); }},
    {"printing",
     {u"Combo1"_qs, u"Combo2"_qs},
     {{"FrmPrint title", "Print"}, {"Command1 text", "Print"}},
     [](Desk& d, const Look& look) {
         FixedPrinters printers;
         printers.names = {u"Printer"_qs};
         printers.facts[u"Printer"_qs].state = QPrinter::Active; // is the longest
         Show(look, FrmPrint({printers, d.texts, {}, {}}, QPageLayout::Landscape, nullptr));
     }},
    {"printing without a printer",
     {u"Combo2"_qs},
     {{"Combo1 entry 0", "Print to file (PDF)"}},
     [](Desk& d, const Look& look) {
         const FixedPrinters none;
         Show(look, FrmPrint({none, d.texts, {}, {}}, QPageLayout::Landscape, nullptr));
     }},
    {"message", {}, {{"QMessageBox title", "Quorvane Software"}}, ShowMessage},
    {"open",
     kToolkits,
     {{"QFileDialog title", "Open"}},
     [](Desk& d, const Look& look) { Show(look, OpenDialog(WhatToOpen(), d.texts, nullptr)); }},
    {"save",
     kToolkits,
     {{"QFileDialog title", "Save as"}},
     [](Desk& d, const Look& look) { Show(look, SaveDialog(WhereToSave(), d.texts, nullptr)); }},
};

class CaptionWalkTest : public testing::TestWithParam<Row> {};

TEST_P(CaptionWalkTest, SaysTheTablesTextsInBothLanguagesAndHasRoomForThem)
{
    const Row& row = GetParam();
    for (const double scale : {1.0, 1.5, 2.0}) {
        const QSize screen = kSmallestScreen * scale;
        CaptionWalk english(TableLanguage::English, row.values, screen);
        CaptionWalk japanese(TableLanguage::Japanese, row.values, screen);
        SCOPED_TRACE(scale);
        std::vector<Captions> said[2];
        for (const TableLanguage language : {TableLanguage::English, TableLanguage::Japanese}) {
            const bool isEnglish = language == TableLanguage::English;
            SCOPED_TRACE(isEnglish ? "English" : "Japanese");
            Desk desk(language, scale);
            row.visit(desk, [&](QWidget& window) {
                said[isEnglish ? 0 : 1].push_back((isEnglish ? english : japanese).Visit(window));
            });
        }
        ASSERT_EQ(said[0].size(), said[1].size());
        for (const auto& [place, text] : row.says)
            EXPECT_EQ(said[0].front()[QLatin1String(place)].toStdString(), text) << place;
        for (std::size_t i = 0; i < said[0].size(); ++i)
            ExpectTwins(english, said[0][i], japanese, said[1][i]);
    }
}

INSTANTIATE_TEST_SUITE_P(AllWindows, CaptionWalkTest, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::to_string(row.index); });

TEST(ChartTexts, AreTheTablesOnScreenPaperAndInFiles)
{
    struct Chart {
        TableLanguage language;
        bool relative;
        std::string texts;
    };
    for (const Chart& row :
         {Chart{TableLanguage::English, false,
                "Mass density[mg/m3]Mass Concentration(C)Mass Concentration(TWA)Mass Concentration(STEL)"
                "Mass Concentration(Integrated value)SIMULATED VALUES, NOT MEASURED"},
          Chart{TableLanguage::English, true,
                "Dust[CPM]Relative Concentration(Instantaneous value)Relative Concentration(Integrated value)"
                "SIMULATED VALUES, NOT MEASURED"},
          Chart{TableLanguage::Japanese, false,
                "質量濃度[mg/m3]質量濃度（C）質量濃度（TWA）質量濃度（STEL）質量濃度（積算値）"
                "シミュレーション値（実測値ではありません）"},
          Chart{
              TableLanguage::Japanese, true,
              "粉じん[CPM]相対濃度（瞬時値）相対濃度（積算値）シミュレーション値（実測値ではありません）"}}) {
        Desk desk(row.language, 1);
        desk.state.RunMode = false;
        desk.state.RelativeCFlg = desk.state.RelativeIntegratedFlg = row.relative;
        desk.Open();
        desk.Measure();
        const QPicture picture = desk.Find<ChartWidget>("TChart1")->Frozen({900, 500});
        EXPECT_EQ(
            PaintedTexts(picture).filter(QRegularExpression(u"[^0-9:.]"_qs)).join(QString()).toStdString(),
            row.texts);
    }
}

TEST(ProgramFont, IsTheBestThatTheSystemHas)
{
    struct System {
        const char* what;
        QStringList installed;
        QString first;
    };
    for (const System& row :
         {System{"Windows 10 and 11", {u"MS UI Gothic"_qs, u"Yu Gothic UI"_qs}, u"Yu Gothic UI"_qs},
          System{"Windows with its Japanese fonts", {u"Meiryo UI"_qs, u"MS UI Gothic"_qs}, u"Meiryo UI"_qs},
          System{"Debian, Ubuntu", {u"Noto Sans CJK JP"_qs, u"IPAPGothic"_qs}, u"Noto Sans CJK JP"_qs},
          System{"an early Ubuntu", {u"TakaoPGothic"_qs}, u"TakaoPGothic"_qs},
          System{"Fedora", {u"VL PGothic"_qs, u"Noto Sans JP"_qs}, u"Noto Sans JP"_qs},
          System{"no Japanese font", {}, u"Usual"_qs}}) {
        const auto installed = [&](const QString& family) { return row.installed.contains(family); };
        const QStringList japanese = FontFamilies(TableLanguage::Japanese, u"Usual"_qs, installed);
        const QStringList english = FontFamilies(TableLanguage::English, u"Usual"_qs, installed);
        EXPECT_EQ(japanese.front(), row.first) << row.what;
        EXPECT_EQ(japanese.back(), u"Usual"_qs) << row.what;
        EXPECT_EQ(english.front(), u"Usual"_qs) << row.what;
        EXPECT_EQ(english.value(1, u"Usual"_qs), row.first) << row.what << ": for names of files";
    }
    EXPECT_EQ(Enlarged(Enlarged(QFont(), 1), 2).pointSizeF(), 2 * QFontInfo(QFont()).pointSizeF());
}

TEST(ProgramFont, ChangesNoSizeWhenTheRoutinesRunAgain)
{
    Desk desk(TableLanguage::Japanese, 1.5);
    desk.Open();
    const auto fonts = [&] {
        QStringList found;
        for (const QWidget* const widget : desk.window->findChildren<QWidget*>())
            found += widget->font().toString();
        return found;
    };
    const QStringList before = fonts();
    const QSize least = desk.window->minimumSizeHint();
    Operator operates({Click(u"OK"_qs)});
    desk.Trigger("MenuGraphSetting");
    EXPECT_EQ(fonts(), before);
    EXPECT_EQ(desk.window->minimumSizeHint(), least);
    EXPECT_GT(desk.Find<QWidget>("ConcNow")->font().pointSizeF(), 2 * desk.window->font().pointSizeF());
}

} // namespace
} // namespace quorvane
