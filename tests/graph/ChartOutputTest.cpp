#include "graph/ChartOutput.h"

#include "resources/StringTable.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FixedLocale.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/ScriptedPrompts.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QImage>
#include <QPainter>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

namespace quorvane {
namespace {

using std::chrono::seconds;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

constexpr QRgb kPanel = qRgb(2, 234, 253);
const LocalMoment kNine =
    LocalMoment(std::chrono::local_days(std::chrono::year(2024) / 5 / 1)) + std::chrono::hours(9);

/// A chart after a run of three readings.
class ChartOutputTest : public testing::Test {
protected:
    ChartOutputTest()
    {
        arrays.Create(5);
        for (std::size_t i = 1; i <= 3; ++i) {
            arrays.Moment[i] = kNine + seconds(i);
            arrays.MeasureTime[i] = "09:00:0" + std::to_string(i);
        }
        arrays.ExtraField[1] = "1.3";
        state.SampleCount = 3;
        state.TwaAlarm = 0.15;
        state.StelAlarm = 0.3;
        state.CAlarm = 2;
        clock.now = kNine + seconds(60);
        chart.SetCaptions(texts);
        chart.resize(600, 300);
    }

    [[nodiscard]] std::vector<std::string> Facts() const
    {
        std::vector<std::string> values;
        for (const PageFact& fact : ChartFacts(state, arrays, texts, locale))
            values.push_back(fact.value.toStdString());
        return values;
    }
    void SaveAs(const std::string& name)
    {
        prompts.saveNames.emplace_back(folder.Path(name));
        output.SaveImage();
    }
    [[nodiscard]] QImage Saved(const std::string& name) const
    {
        return QImage(QString::fromStdString(folder.Path(name)));
    }

    ScratchFolder folder;
    StringTable table{TableLanguage::English};
    ApplicationState state;
    Texts texts{table, state};
    MeasurementArrays arrays;
    FixedLocale locale;
    FixedClock clock;
    ScriptedPrompts prompts;
    ChartWidget chart;
    ChartOutput output{chart, state, arrays, texts, locale, clock, prompts, nullptr};
};

TEST_F(ChartOutputTest, PageTellsTheReadingsTheFactorAndTheLimits)
{
    EXPECT_THAT(Facts(),
                ElementsAre("2024/05/01 09:00:01", "2024/05/01 09:00:03", "3", "0.0013", "0.15", "0.3", "2"));
    locale.decimalSign = ",";
    locale.shortDateFormat = "dd.MM.yyyy";
    arrays.ExtraField[1] = "";
    EXPECT_THAT(Facts(),
                ElementsAre("01.05.2024 09:00:01", "01.05.2024 09:00:03", "3", "", "0,15", "0,3", "2"));
    state.SampleCount = 4; // being taken
    EXPECT_THAT(Facts(), testing::Contains("01.05.2024 09:00:03"));
    arrays.Dated = false;
    arrays.FileDate = "2024/13/41";
    state.SampleCount = 3;
    EXPECT_EQ(Facts()[1], "2024/13/41 09:00:03");
    state.SampleCount = 0;
    EXPECT_THAT(Facts(), ElementsAre("", "", "0", "", "0,15", "0,3", "2"));
}

TEST_F(ChartOutputTest, PageIsFilledUprightAndAcrossAtAnyResolution)
{
    arrays.Simulated = true;
    const ChartPage page = output.Page();
    EXPECT_EQ(page.notice, QStringLiteral("SIMULATED VALUES, NOT MEASURED"));
    const auto painted = [&](QSize size, int dotsPerMetre) {
        QImage paper(size, QImage::Format_RGB32);
        paper.setDotsPerMeterX(dotsPerMetre);
        paper.setDotsPerMeterY(dotsPerMetre);
        paper.fill(Qt::white);
        QPainter painter(&paper);
        PaintChartPage(painter, QRectF(paper.rect()).adjusted(20, 20, -20, -20), page);
        painter.end();
        return paper;
    };
    for (const QSize size : {QSize(1100, 780), QSize(780, 1100)}) {
        const QImage paper = painted(size, 3780); // 96 dots per inch
        EXPECT_EQ(paper, painted(size, 11811));   // 300: nothing becomes a giant
        const int right = size.width() - 45;
        EXPECT_EQ(paper.pixel(right, size.height() - 45), kPanel) << size.width();
        EXPECT_EQ(paper.pixel(right, 190), kPanel) << size.width();
        EXPECT_EQ(paper.pixel(right, 140), qRgb(255, 255, 255)) << size.width();
        int ink = 0; // of the title
        for (int x = 20; x < size.width() / 2; ++x)
            for (int y = 20; y < 45; ++y)
                ink += paper.pixel(x, y) != qRgb(255, 255, 255) ? 1 : 0;
        EXPECT_GT(ink, 300) << size.width();
    }
}

TEST_F(ChartOutputTest, SavesThePictureAsItStoodWhenAskedFor)
{
    SaveAs("before.png");
    prompts.whileOpen = [this] { chart.SetSimulated(true); };
    SaveAs("during.png");
    SaveAs("after.png");
    EXPECT_EQ(Saved("before.png").size(), QSize(1200, 600));
    EXPECT_EQ(Saved("during.png"), Saved("before.png"));
    EXPECT_NE(Saved("after.png"), Saved("before.png"));
    EXPECT_THAT(prompts.messages, SizeIs(0));
    EXPECT_EQ(prompts.saveQuestions[0].defaultName, "Quorvane-20240501-090100");

    output.Copy();
    EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32),
              Saved("after.png").convertToFormat(QImage::Format_RGB32));
}

TEST_F(ChartOutputTest, ExtensionDecidesTheKind)
{
    SaveAs("chart.PDF");
    EXPECT_THAT(FileBytes(folder.Path("chart.PDF")), StartsWith("%PDF-"));
    SaveAs("dust 1.5");
    EXPECT_THAT(FileBytes(folder.Path("dust 1.5")), StartsWith("\x89PNG"));
}

TEST_F(ChartOutputTest, FailuresSayWhy)
{
    SaveAs("absent/chart.png");
    ASSERT_THAT(prompts.messages, SizeIs(1));
    EXPECT_THAT(prompts.messages[0].text, HasSubstr("could not be saved"));
    EXPECT_THAT(prompts.messages[0].text, HasSubstr("does not exist"));
    std::filesystem::create_directory(folder.Path("folder.png"));
    SaveAs("folder.png");
    ASSERT_THAT(prompts.messages, SizeIs(2));
    EXPECT_THAT(prompts.messages[1].text, HasSubstr("name of a folder"));

    QPrinter printer; // that is none, but comes to the same
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setCopyCount(3);
    printer.setOutputFileName(QString::fromStdString(folder.Path("page.pdf")));
    output.PrintOn(printer, output.Page());
    EXPECT_THAT(FileBytes(folder.Path("page.pdf")), AllOf(StartsWith("%PDF-"), HasSubstr("/Count 3")));
    EXPECT_THAT(prompts.messages, SizeIs(2));
    printer.setOutputFileName(QString::fromStdString(folder.Path("absent/page.pdf")));
    const ChartPage page = output.Page();
    EXPECT_NONFATAL_FAILURE(output.PrintOn(printer, page), "Returned false"); // the toolkit's own warning
    ASSERT_THAT(prompts.messages, SizeIs(3));
    EXPECT_THAT(prompts.messages[2].text, HasSubstr("could not be printed"));
}

TEST_F(ChartOutputTest, PrintsIntoAFile)
{
    prompts.saveNames = {std::nullopt, folder.Path("page.pdf")};
    output.Print();
    const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_FALSE(dialog.isNull());
    auto* const printer = dialog->findChild<QComboBox*>(u"Combo1"_qs);
    printer->setCurrentIndex(printer->count() - 1);
    auto* const paper = dialog->findChild<QComboBox*>(u"Combo2"_qs);
    paper->setCurrentIndex(paper->findText(u"A5"_qs));
    QTest::keyClick(dialog, Qt::Key_Return);
    ASSERT_TRUE(dialog->isVisible()) << "no name was given";
    QTest::keyClick(dialog, Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(prompts.saveQuestions[1].extensions, std::vector<std::string>{"pdf"});
    // across, 210 mm x 148 mm, in points
    EXPECT_THAT(FileBytes(folder.Path("page.pdf")), HasSubstr("/MediaBox [0 0 595.000000 420.000000]"));
    EXPECT_THAT(prompts.messages, SizeIs(0));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(ChartOutputTest, PreviewHoldsNothingUpAndGoesWhenClosed)
{
    output.Preview();
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find_if(
        windows, [](QWidget* w) { return w->findChild<QPrintPreviewWidget*>() != nullptr; });
    ASSERT_NE(found, windows.end());
    const QPointer<QWidget> preview = *found;
    EXPECT_TRUE(preview->isVisible());
    EXPECT_FALSE(preview->isModal());
    const auto click = [&](const QString& caption) {
        for (auto* const button : preview->findChildren<QPushButton*>())
            if (button->text().remove(u'&') == caption)
                QTest::mouseClick(button, Qt::LeftButton);
    };
    auto* const view = preview->findChild<QPrintPreviewWidget*>();
    EXPECT_EQ(view->orientation(), QPageLayout::Landscape);
    click(u"Upright"_qs);
    EXPECT_EQ(view->orientation(), QPageLayout::Portrait);
    click(u"Print..."_qs); // returns, with the dialog open
    const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_FALSE(dialog.isNull());
    EXPECT_TRUE(dialog->findChild<QAbstractButton*>(u"Option1"_qs)->isChecked());
    QTest::keyClick(dialog, Qt::Key_Escape);
    preview->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(preview.isNull() && dialog.isNull());
    EXPECT_THAT(prompts.messages, SizeIs(0));
}

} // namespace
} // namespace quorvane
