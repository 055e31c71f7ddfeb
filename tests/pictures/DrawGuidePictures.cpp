// Draws the pictures of the operator's guides anew: the program's own windows, with readings made for the
// purpose, in both languages. No test; scripts/guide-pictures runs it.

#include "app/FrmRecovery.h"
#include "app/ToolkitLanguage.h"
#include "graph/ChartWidget.h"
#include "options/FrmLanguageSelect.h"
#include "platform/Platform.h"
#include "stored/FrmDriveList.h"
#include "tests/support/Operator.h"
#include "tests/support/SettingWindow.h"

#include <QDir>
#include <QSysInfo>
#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

constexpr int kReadings = 900;
constexpr double kFactor = 0.0013;

/// Quiet air with three bursts of work, mg/m3; the same at every run.
double Dust(int second)
{
    struct Burst {
        int start, length;
        double height;
    };
    constexpr Burst kBursts[] = {{180, 90, 0.5}, {430, 60, 0.9}, {700, 120, 0.35}};
    double dust = 0.06 + 0.012 * std::sin(second / 23.0) + 0.006 * std::sin(second * 1.7);
    for (const Burst& burst : kBursts) {
        const double age = second - burst.start;
        if (age > 0)
            dust +=
                burst.height * (1 - std::exp(-age / 8)) * std::exp(-std::max(0.0, age - burst.length) / 30);
    }
    return dust * (1 + 0.1 * std::sin(second * 2.3) * std::cos(second * 0.7));
}

std::string LineAt(int second)
{
    std::array<char, 40> line{};
    const int time = 9 * 3600 + 30 * 60 + second;
    const double conc = Dust(second);
    static_cast<void>(std::snprintf(line.data(), line.size(), "%02d:%02d:%02d;%07d;%07.3f;1.3\r\n",
                                    time / 3600, time / 60 % 60, time % 60,
                                    static_cast<int>(std::lround(conc / kFactor)), conc));
    return line.data();
}

struct GuidePictures : testing::TestWithParam<TableLanguage>, SettingWindow {
    GuidePictures()
    {
        const bool japanese = GetParam() == TableLanguage::Japanese;
        table = StringTable(GetParam());
        state.SystemLanguageName = japanese ? "Japanese" : "English";
        UseToolkitLanguage(*qApp, GetParam());
        folder_ = qEnvironmentVariable("QUORVANE_PICTURES") + (japanese ? u"/ja"_qs : QString());
        EXPECT_TRUE(QDir().mkpath(folder_));
        state.MassCFlg = state.MassTWAFlg = state.MassSTELFlg = true;
        state.AlarmCFlg = state.AlarmTWAFlg = state.AlarmSTELFlg = true;
        state.TwaAlarm = 0.25;
        state.StelAlarm = 0.4;
        state.CAlarm = 0.9;
    }

    void Save(QWidget& widget, const char* name) const
    {
        Settle();
        EXPECT_TRUE(widget.grab().save(folder_ + u'/' + QLatin1String(name) + u".png"_qs)) << name;
    }
    /// Lets the dialog that `action` opens sit for its picture.
    void SaveDialog(const char* action, const char* name)
    {
        Operator person({[&](QDialog& dialog) {
            Save(dialog, name);
            dialog.reject();
        }});
        Trigger(action);
    }
    /// @param picture  of the window in the middle of the run
    void Run(int readings, const char* picture)
    {
        state.TotalSamples = readings;
        lines.clear();
        for (int second = 0; second < readings; ++second)
            lines.push_back(LineAt(second));
        bool taken = false;
        onPump = [&](long) {
            if (taken || Rows() < readings - 60)
                return;
            taken = true;
            Save(*window, picture);
        };
        Pause();
        WindowWorld::Click("Command1");
        onPump = {};
        EXPECT_TRUE(taken);
    }

    QString folder_;
};

TEST_P(GuidePictures, OfTheMainWindow)
{
    Plan(kReadings, 1);
    Open();
    window->resize(1100, 710);
    WindowWorld::Click("Span2");
    Run(400, "measuring");
    WindowWorld::Click("Span3");
    Run(kReadings, "alarm");

    WindowWorld::Click("Command3");
    WindowWorld::Click("Command4");
    Find<ChartWidget>("TChart1")->setFocus();
    for (int turn = 0; turn < 4; ++turn)
        WindowWorld::Press(Qt::Key_Plus);
    Save(*window, "zoomed");
    WindowWorld::Click("Command4");

    prompts.saveNames = {"workshop.csv"};
    Trigger("MenuSave");
    prompts.openNames = {"workshop.csv"};
    Trigger("MenuOpen");
    Save(*window, "opened");
}

TEST_P(GuidePictures, OfTheOfferOfUnsavedReadings)
{
    LeftOverRun run;
    run.start = std::chrono::local_days(std::chrono::year(2024) / 5 / 1) + std::chrono::hours(9);
    run.last = run.start + std::chrono::minutes(414);
    run.readings = 4968;
    run.gaps = 1;
    FrmRecovery offer(run, texts, locale, nullptr);
    offer.show();
    Save(offer, "recovery");
}

TEST_P(GuidePictures, OfSimulatedMode)
{
    state.RunMode = false;
    Plan(60, 1);
    Open();
    window->resize(1100, 710);
    WindowWorld::Click("Span1");
    WindowWorld::Measure();
    Save(*window, "simulated");
}

TEST_P(GuidePictures, OfTheSettings)
{
    state.DefaultFolder = "/home/operator/measurements";
    Plan(kReadings, 1);
    state.TotalMinutes = 15;
    state.TotalSeconds = 0;
    state.CpuName = "Processor 3000";
    state.OsKind = 8;
    state.AppPath = "/home/operator/.local/share/quorvane";
    Open();
    SaveDialog("MenuMeasureSetting", "measure-setting");
    SaveDialog("MenuGraphSetting", "graph-setting");
    SaveDialog("MenuOption", "options");

    Trigger("MenuVersion");
    auto* const about = Find<QDialog>("FrmHelp");
    for (auto* const fact : about->findChildren<QLabel*>()) // whose machine draws this is of no interest
        fact->setText(fact->text().replace(QSysInfo::kernelVersion(), u"6.1.0-41-amd64"_qs));
    Save(*about, "about");

    Trigger("MenuQuorvaneSetting");
    const char* const pages[] = {"setting-program", "setting-clock", "setting-k-factor"};
    for (int page = 0; page < 3; ++page) {
        ShowPage(page);
        static_cast<void>(world.Serve(std::chrono::seconds(2))); // the clocks tick
        Save(*Dialog(), pages[page]);
    }
    Dialog()->reject();
}

/// One USB adapter on the fifth port, which another adapter's user has not given back.
struct OneAdapter : PortProbe, PortDescriptions {
    [[nodiscard]] std::optional<PortFault> Probe(const PortDevice& device) const override
    {
        if (device.path.ends_with("USB0"))
            return std::nullopt;
        const bool taken = device.path.ends_with("USB1");
        return PortFault{taken ? PortFaultKind::Busy : PortFaultKind::Absent, {}, {}};
    }
    [[nodiscard]] PortDescription Describe(const PortDevice& device) const override
    {
        if (device.path.ends_with("USB0"))
            return {"FTDI", "FT232R USB UART", "A50285BI"};
        return {"Prolific Technology Inc.", "USB-Serial Controller", {}};
    }
};

TEST_P(GuidePictures, OfPortsFolderAndLanguage)
{
    const Platform platform = MakePlatform();
    const OneAdapter adapter;
    state.RsPort = "COM5";
    FrmRS232CSetting portSetting(
        state, {*platform.portNames, adapter, adapter, texts, [](const Message&) {}, {}}, nullptr);
    portSetting.show();
    Save(portSetting, "ports");

    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "dust";
    ASSERT_TRUE(std::filesystem::create_directory(folder)) << "the picture wants this name for its own";
    for (int year = 2024; year <= 2026; ++year)
        for (int month = 1; month <= 12; ++month)
            std::filesystem::create_directory(
                folder / (std::to_string(year) + (month < 10 ? "-0" : "-") + std::to_string(month)));
    state.DefaultFolder = (folder / "2025-07").string();
    state.ChooserMode = 1;
    FrmDriveList folders(state, {drives, texts, [](const Message&) {}, [](const std::string&) {}}, nullptr);
    folders.show();
    QTest::qWait(500); // the tree comes in
    Save(folders, "folder");
    folders.reject();
    std::filesystem::remove_all(folder);

    FrmLanguageSelect language(state, {files, texts, [](const Message&) {}});
    language.show();
    Save(language, "language");
}

INSTANTIATE_TEST_SUITE_P(Languages, GuidePictures,
                         testing::Values(TableLanguage::English, TableLanguage::Japanese));

} // namespace
} // namespace quorvane
