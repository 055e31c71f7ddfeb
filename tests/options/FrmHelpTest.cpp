#include "options/FrmHelp.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

/// What is asked to be opened, in place of the desktop's file manager.
class Desktop final : public QObject {
    Q_OBJECT
public:
    Desktop() { QDesktopServices::setUrlHandler(u"file"_qs, this, "Take"); }
    ~Desktop() override { QDesktopServices::unsetUrlHandler(u"file"_qs); }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    Q_INVOKABLE void Take(const QUrl& url) { taken += url; }

    QList<QUrl> taken;
};

struct FrmHelpTest : testing::Test {
    FrmHelpTest()
    {
        state.AppPath = "/opt/<b>&quorvane";
        state.CpuName = "A Processor";
        dialog = std::make_unique<FrmHelp>(state, texts, nullptr);
        dialog->show();
    }
    void Click(const char* button)
    {
        QTest::mouseClick(dialog->findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
    }
    QString Notice() { return dialog->findChild<QLabel*>(u"Notice"_qs)->text(); }

    ApplicationState state;
    StringTable table{TableLanguage::English};
    Texts texts{table, state};
    std::unique_ptr<FrmHelp> dialog;
};

TEST_F(FrmHelpTest, ShowsAndCopiesWhatSupportAsksFor)
{
    QStringList shown;
    for (const auto* const label : dialog->findChildren<QLabel*>())
        shown += label->text();
    const auto* const path = dialog->findChild<QLineEdit*>();
    EXPECT_EQ(path->text().toStdString(), state.AppPath);
    EXPECT_TRUE(shown.contains(u"Quorvane Software"));

    Click("Command3");
    EXPECT_EQ(Notice(), u"The details are on the clipboard.");
    const QStringList copied = QApplication::clipboard()->text().split(u'\n', Qt::SkipEmptyParts);
    EXPECT_TRUE(copied.contains(u"Processor: A Processor"));
    for (const QString& line : copied) {
        const qsizetype colon = line.indexOf(u':');
        EXPECT_TRUE(shown.contains(line.left(colon + 1))) << line.toStdString();
        const QString value = line.mid(colon + 2);
        EXPECT_TRUE(shown.contains(value) || path->text() == value) << line.toStdString();
    }
}

TEST_F(FrmHelpTest, OpensTheFolderOrSaysThatItCannot)
{
    {
        const Desktop desktop;
        Click("Command2");
        EXPECT_EQ(desktop.taken, QList<QUrl>{QUrl::fromLocalFile(u"/opt/<b>&quorvane"_qs)});
        EXPECT_EQ(Notice(), u"");
    }
    Click("Command2"); // no desktop is there to open it
    EXPECT_EQ(Notice(), u"The folder could not be opened. Its path stands above.");
}

TEST_F(FrmHelpTest, TheNameIsLargeOnADesktopThatGivesItsSizesInPixels)
{
    const QFont before = QApplication::font();
    QFont inPixels = before;
    inPixels.setPixelSize(20);
    QApplication::setFont(inPixels);
    const FrmHelp other(state, texts, nullptr);
    EXPECT_GT(QFontInfo(other.findChild<QLabel*>(u"Label1"_qs)->font()).pixelSize(), 30);
    QApplication::setFont(before);
}

TEST_F(FrmHelpTest, EnterAndEscapeClose)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        dialog->show();
        QTest::keyClick(dialog->focusWidget(), key);
        EXPECT_FALSE(dialog->isVisible());
    }
}

} // namespace
} // namespace quorvane

#include "FrmHelpTest.moc"
