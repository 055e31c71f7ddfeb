#include "options/Guide.h"

#include "app/QtText.h"
#include "options/FrmGuide.h"
#include "options/GuideText.h"
#include "options/GuideView.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScrollBar>
#include <QShortcut>
#include <QTest>
#include <QTextBlock>
#include <QToolButton>
#include <QTreeWidget>
#include <QWindow>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

/// What the guide stands before at the moment at which the window system is to show it.
struct OwnerWhenShown final : QObject {
    explicit OwnerWhenShown(QWindow& shown) : window(shown) { shown.installEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::Show) {
            ++shows;
            owner = window.transientParent();
        }
        return QObject::eventFilter(object, event);
    }
    QWindow& window;
    const QWindow* owner = nullptr;
    int shows = 0;
};

struct GuideTest : testing::Test {
    GuideTest()
    {
        main.show();
        shortcut.setContext(Qt::ApplicationShortcut);
        QObject::connect(&shortcut, &QShortcut::activated, [this] { guide.Open(); });
    }
    static FrmGuide* Window()
    {
        for (QWidget* const window : QApplication::topLevelWidgets())
            if (window->objectName() == u"FrmGuide")
                return static_cast<FrmGuide*>(window);
        return nullptr;
    }
    template <typename Control>
    static Control* Find(const char* name)
    {
        return Window()->findChild<Control*>(QLatin1String(name));
    }
    static GuideView& View() { return *static_cast<GuideView*>(Find<QTextBrowser>("View")); }
    static QString Chapter() // that stands on top
    {
        return View().cursorForPosition({0, 0}).block().text();
    }
    /// By the window system, which passes over a window that a modal dialog blocks.
    static void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(window.windowHandle(), key, modifiers);
    }
    static void ExpectUsable()
    {
        ASSERT_TRUE(Window()->isVisible());
        View().setFocus();
        View().verticalScrollBar()->setValue(0);
        Press(*Window(), Qt::Key_PageDown);
        EXPECT_GT(View().verticalScrollBar()->value(), 0);
    }
    static void ShowModal(QDialog& dialog)
    {
        dialog.setModal(true);
        dialog.show();
    }

    ProgramPlace place;
    StringTable table{TableLanguage::Japanese};
    Texts texts{table, place};
    QMainWindow main;
    Guide guide{texts, main};
    QShortcut shortcut{Qt::Key_F1, &main}; // as the menu has it, and wider
};

TEST_F(GuideTest, ChaptersPicturesAndLinksAreThereInEveryLanguage)
{
    for (const std::int16_t offset : {std::int16_t{10000}, std::int16_t{0}}) {
        place.LanguageOffset = offset;
        guide.Open();
        EXPECT_EQ(Window()->windowTitle(), offset == 0 ? u"操作ガイド" : u"Operator's Guide");
        QSet<QString> anchors;
        for (QTextBlock block = View().document()->begin(); block.isValid(); block = block.next())
            for (auto run = block.begin(); !run.atEnd(); ++run)
                for (const QString& name : run.fragment().charFormat().anchorNames())
                    anchors += name;
        QFile file(u':' + View().File().path());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString markdown = QString::fromUtf8(file.readAll());
        EXPECT_EQ(View().Chapters().size(), markdown.count(QRegularExpression(u"(?m)^###? "_qs)));

        for (const int title : {127, 161, 181, 191, 222, 297, 1421}) { // of the dialogs
            View().GoTo(Shown(texts[title]));
            EXPECT_EQ(Chapter().toLower(), Shown(texts[title]).toLower());
        }
        static const QRegularExpression links(u"(!?)\\[[^\\]]*\\]\\(([^)]+)\\)"_qs);
        for (const QRegularExpressionMatch& link : links.globalMatch(markdown)) {
            const QString to = link.captured(2);
            SCOPED_TRACE(to.toStdString());
            const bool isPicture = !link.captured(1).isEmpty();
            EXPECT_TRUE(isPicture ? !QImage(u":/guide/"_qs + to).isNull()
                                  : to.startsWith(u'#') && anchors.contains(to.mid(1)));
        }
    }
}

TEST_F(GuideTest, EveryDialogHasAChapterOfItsNameInEveryLanguage)
{
    for (const std::int16_t offset : {std::int16_t{10000}, std::int16_t{0}}) {
        place.LanguageOffset = offset;
        guide.Open();
        QStringList chapters;
        for (const GuideChapter& chapter : View().Chapters())
            chapters += chapter.title;
        std::vector<std::string> titles = {FilledIn(texts[kAboutTitleText], texts[kProgramNameText])};
        for (const int id : {int{kPortSettingText}, int{kInstrumentSettingText}, int{kFolderSetupText},
                             int{kLanguageSelectText}, int{kMeasureSettingText}, int{kGraphSettingText},
                             int{kOptionTitleText}, int{kRecoveryTitleText}, int{kSaveAsText},
                             int{kOpenTitleText}, int{kPrintTitleText}})
            titles.push_back(texts[id]);
        for (const std::string& title : titles)
            EXPECT_TRUE(chapters.contains(Shown(title), Qt::CaseInsensitive)) << title;
    }
}

TEST_F(GuideTest, TheKeyOpensTheChapterOfAModalDialogAndBothCanBeUsed)
{
    guide.Open();
    const QString title = View().Chapters().at(1).title;
    Window()->close();
    QDialog dialog(&main);
    dialog.setWindowTitle(u' ' + title.toUpper() + u' ');
    ShowModal(dialog);
    Press(dialog, Qt::Key_F1);
    EXPECT_EQ(Chapter(), title);
    const QTreeWidgetItem* const listed = Find<QTreeWidget>("Contents")->currentItem();
    EXPECT_TRUE(listed != nullptr && listed->text(0) == title);
    ExpectUsable();

    auto box = std::make_unique<QMessageBox>(QMessageBox::NoIcon, u"A box"_qs, u"A question"_qs,
                                             QMessageBox::Ok, &dialog);
    ShowModal(*box); // with the guide on the screen
    ExpectUsable();
    Press(*box, Qt::Key_F1); // that of the dialog, for a box has none
    EXPECT_EQ(Chapter(), title);
    Press(*Window(), Qt::Key_Escape);
    EXPECT_FALSE(Window()->isVisible());
    EXPECT_TRUE(box->isVisible());

    Press(*box, Qt::Key_F1);
    box.reset();
    ExpectUsable();
    dialog.close();
    ExpectUsable();
    main.close();
    EXPECT_FALSE(Window()->isVisible());
}

TEST_F(GuideTest, ADialogNeverOwnsItsWindow)
{
    guide.Open();
    Window()->close();
    QDialog dialog(&main);
    ShowModal(dialog);
    OwnerWhenShown seen(*Window()->windowHandle());
    Press(dialog, Qt::Key_F1);
    EXPECT_EQ(seen.shows, 1);
    EXPECT_EQ(seen.owner, nullptr);
    ExpectUsable();
}

TEST_F(GuideTest, CanBeUsedBesideADialogThatIsNotModalAndWhileTheMainWindowIsDisabled)
{
    guide.Open();
    QDialog dialog(&main);
    dialog.setWindowTitle(View().Chapters().at(1).title);
    dialog.show();
    Press(dialog, Qt::Key_F1); // not the shortcut's beginning of the guide, nor both
    EXPECT_EQ(Chapter(), dialog.windowTitle());
    main.setEnabled(false);
    ExpectUsable();
}

TEST_F(GuideTest, TheMainWindowsKeyBringsItBackAsItWasLeft)
{
    guide.Open();
    View().GoTo(View().Chapters().at(2).title);
    Window()->resize(700, 500);
    const QTextCursor kept = View().document()->find(View().Chapters().at(4).title);
    const int before = kept.position();
    View().Zoom(1);
    Window()->close();
    Press(main, Qt::Key_F1);
    EXPECT_TRUE(Window()->isActiveWindow());
    EXPECT_EQ(Window()->size(), QSize(700, 500));
    EXPECT_EQ(Chapter(), View().Chapters().at(2).title);
    Press(*Window(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(View().verticalScrollBar()->value(), 0);
    EXPECT_EQ(kept.position(), before) << "it was loaded only once";
}

TEST_F(GuideTest, FindGoesRoundInBothDirectionsAndSaysWhenThereIsNothing)
{
    guide.Open();
    Press(*Window(), Qt::Key_F, Qt::ControlModifier);
    auto* const box = Find<QLineEdit>("Text1");
    EXPECT_TRUE(box->hasFocus());
    const QString word = View().Chapters().last().title;
    const auto places = View().document()->toPlainText().count(word, Qt::CaseInsensitive);
    box->setText(word.toLower());
    QList<int> found;
    for (int i = 0; i <= places; ++i) {
        QTest::keyClick(box, Qt::Key_Return);
        EXPECT_EQ(View().textCursor().selectedText(), word);
        found += View().textCursor().position();
    }
    EXPECT_EQ(found.first(), found.last());
    QTest::keyClick(box, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(View().textCursor().position(), found.at(places - 1));
    EXPECT_EQ(Find<QLabel>("Notice")->text(), u"");
    box->setText(u"qqqq"_qs);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(Find<QLabel>("Notice")->text(), u"見つかりません");
    EXPECT_EQ(View().textCursor().position(), found.at(places - 1));
}

TEST_F(GuideTest, PicturesAreAsWideAsTheWindowAndNeverLargerThanTheirPixels)
{
    guide.Open();
    QTextImageFormat format;
    format.setName(u"pictures/measuring.png"_qs);
    const int pixels = QImage(u":/guide/"_qs + format.name()).width();
    auto* const pictures = View().document()->documentLayout()->handlerForObject(QTextFormat::ImageObject);
    for (const int width : {600, 4 * pixels, 700}) {
        Window()->resize(width, 500);
        const auto room = View().viewport()->width() - 2 * View().document()->documentMargin();
        EXPECT_EQ(pictures->intrinsicSize(View().document(), 0, format).width(),
                  std::min<qreal>(room, pixels));
        EXPECT_TRUE(QTest::qWaitFor([] { return View().horizontalScrollBar()->maximum() == 0; })) << width;
    }
}

TEST(GuideText, AnchorsAreThoseOfTheUsualViewersAndBreaksAreNoBlanksInJapanese)
{
    EXPECT_EQ(HeadingAnchor(u" No port? Ask the \"group\" (Linux) "_qs), u"no-port-ask-the-group-linux");
    EXPECT_EQ(HeadingAnchor(u"10 ステップで、測定"_qs), u"10-ステップで測定");
    EXPECT_EQ(WithoutBreaksInSentences(u"- 測定\n  します。\n1 回\n\n## 次\n測定\n- 値\nof a\nrow\n"_qs),
              u"- 測定します。\n1 回\n\n## 次\n測定\n- 値\nof a\nrow\n");
}

} // namespace
} // namespace quorvane
