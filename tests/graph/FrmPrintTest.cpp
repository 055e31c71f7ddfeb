#include "graph/FrmPrint.h"

#include "tests/support/FixedPrinters.h"

#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

const QPageSize kA3(QPageSize::A3);
const QPageSize kA4(QPageSize::A4);
const QPageSize kLabel(QSizeF(62, 29), QPageSize::Millimeter, QStringLiteral("Label"));

/// A computer with two printers, of which the second is the usual one.
struct FrmPrintTest : testing::Test {
    FrmPrintTest()
    {
        printers.names = {u"Office"_qs, u"Laboratory"_qs};
        printers.defaultName = u"Laboratory"_qs;
        printers.facts = {{u"Office"_qs, {QPrinter::Error, {kLabel}, kLabel}},
                          {u"Laboratory"_qs, {QPrinter::Idle, {kA3, kA4}, kA4}}};
    }
    void Show(QPageLayout::Orientation orientation = QPageLayout::Landscape)
    {
        const auto askFile = [this](const auto& chosen) { name = chosen; };
        const auto print = [this](const PrintChoice& choice) {
            EXPECT_FALSE(dialog->isVisible());
            printed.push_back(choice);
        };
        dialog = std::make_unique<FrmPrint>(FrmPrint::Parts{printers, texts, askFile, print}, orientation,
                                            nullptr);
        dialog->show();
    }
    template <typename Control>
    Control& Part(const char* part) const
    {
        return *dialog->findChild<Control*>(QLatin1String(part));
    }
    void Click(const char* button) const { QTest::mouseClick(&Part<QPushButton>(button), Qt::LeftButton); }
    std::string State() const { return Part<QLabel>("State").text().toStdString(); }

    FixedPrinters printers;
    ApplicationState state;
    StringTable table{TableLanguage::English};
    Texts texts{table, state};
    std::function<void(const std::string&)> name; ///< gives the name that was asked for
    std::vector<PrintChoice> printed;
    std::unique_ptr<FrmPrint> dialog;
};

TEST_F(FrmPrintTest, OffersTheUsualPrinterWithItsUsualPaper)
{
    Show();
    EXPECT_EQ(State(), "The printer is ready.");
    QTest::keyClick(dialog.get(), Qt::Key_Return);
    ASSERT_EQ(printed.size(), 1U);
    EXPECT_EQ(printed[0].printer, u"Laboratory"_qs);
    EXPECT_EQ(printed[0].paper, kA4);
    EXPECT_EQ(printed[0].orientation, QPageLayout::Landscape);
    EXPECT_EQ(printed[0].copies, 1);
}

TEST_F(FrmPrintTest, PrintsAsChosen)
{
    Show(QPageLayout::Portrait);
    EXPECT_TRUE(Part<QRadioButton>("Option1").isChecked());
    Part<QComboBox>("Combo2").setCurrentIndex(0);
    Part<QRadioButton>("Option2").click();
    Part<QSpinBox>("Spin1").setValue(1000);
    Click("Command1");
    ASSERT_EQ(printed.size(), 1U);
    EXPECT_EQ(printed[0].paper, kA3);
    EXPECT_EQ(printed[0].orientation, QPageLayout::Landscape);
    EXPECT_EQ(printed[0].copies, 99);
    Show();
    QTest::keyClick(&Part<QComboBox>("Combo1"), Qt::Key_Up);
    EXPECT_EQ(State(), "The printer is stopped or has a fault.");
    Click("Command1"); // it may be back by then
    ASSERT_EQ(printed.size(), 2U);
    EXPECT_EQ(printed[1].printer, u"Office"_qs);
    EXPECT_EQ(printed[1].paper, kLabel);
}

TEST_F(FrmPrintTest, AFileIsBehindTheLastPrinterAndTheOnlyChoiceWithoutOne)
{
    for (const bool hasPrinters : {true, false}) {
        if (!hasPrinters)
            printers = FixedPrinters();
        Show();
        auto& list = Part<QComboBox>("Combo1");
        EXPECT_EQ(list.count(), hasPrinters ? 3 : 1);
        list.setCurrentIndex(list.count() - 1);
        EXPECT_EQ(list.currentText(), u"Print to file (PDF)"_qs);
        EXPECT_EQ(State(), hasPrinters ? "The name of the file is asked for next."
                                       : "No printer is installed. A PDF file can be written.");
        EXPECT_FALSE(Part<QSpinBox>("Spin1").isEnabled());
        Part<QComboBox>("Combo2").setCurrentText(u"A3"_qs);
        Click("Command1");
        EXPECT_TRUE(dialog->isVisible() && printed.empty()) << "the name is still being asked for";
        name("chart.pdf");
        ASSERT_EQ(printed.size(), 1U);
        EXPECT_EQ(printed[0].printer, QString());
        EXPECT_EQ(printed[0].file, u"chart.pdf"_qs);
        EXPECT_EQ(printed[0].paper, kA3);
        printed.clear();
    }
    dialog.reset();
    name("late.pdf");
    EXPECT_TRUE(printed.empty());
}

/// The toolkit's own menu would hold up a run that goes on.
TEST_F(FrmPrintTest, TheNumberOfCopiesHasNoMenu)
{
    Show();
    auto& copies = Part<QSpinBox>("Spin1");
    QTimer::singleShot(0, &copies, [] {
        if (auto* const menu = QApplication::activePopupWidget()) {
            ADD_FAILURE();
            menu->close();
        }
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, copies.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&copies, &event);
    QApplication::processEvents();
}

} // namespace
} // namespace quorvane
