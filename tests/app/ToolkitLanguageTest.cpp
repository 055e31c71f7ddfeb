#include "app/ToolkitLanguage.h"

#include <QApplication>
#include <QFileDialog>
#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>
#include <QToolButton>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

/// The family that `text` is drawn in.
QString FamilyOf(const QString& text)
{
    QTextLayout layout(text, QApplication::font());
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    return runs.size() == 1 ? runs.first().rawFont().familyName() : u"several"_qs;
}

QString BackButtonHelp()
{
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    return dialog.findChild<QToolButton*>(u"backButton"_qs)->toolTip();
}

TEST(ToolkitLanguage, TheToolkitFollowsTheProgram)
{
    for (int round = 0; round < 2; ++round) {
        UseToolkitLanguage(*qApp, TableLanguage::Japanese);
        EXPECT_EQ(BackButtonHelp(), u"戻る");
        EXPECT_EQ(FamilyOf(u"Run 1"_qs), u"Noto Sans CJK JP");
        EXPECT_EQ(FamilyOf(u"直骨"_qs), u"Noto Sans CJK JP");

        UseToolkitLanguage(*qApp, TableLanguage::English);
        EXPECT_EQ(BackButtonHelp(), u"Back");
        EXPECT_NE(FamilyOf(u"Run 1"_qs), u"Noto Sans CJK JP");
        EXPECT_EQ(FamilyOf(u"直骨"_qs), u"Noto Sans CJK JP");
    }
}

} // namespace
} // namespace quorvane
