#include "app/FrmHelp.h"

#include "app/ModalDialog.h"
#include "tests/support/Operator.h"

#include <QLabel>
#include <QLineEdit>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(FrmHelpTest, TellsWhatSupportAsksForAndIsClosedByEscape)
{
    ApplicationState state;
    state.AppPath = "/opt/<b>&quorvane";
    state.CpuName = "A Processor";
    const StringTable table(TableLanguage::English);
    const Texts texts(table, state);
    FrmHelp dialog(state, texts, nullptr);
    Operator reader({[&](QDialog& shown) {
        QStringList facts;
        for (const auto* const label : shown.findChildren<QLabel*>())
            facts += label->text();
        EXPECT_TRUE(facts.contains(QStringLiteral("Quorvane Software")));
        EXPECT_TRUE(facts.contains(QStringLiteral("A Processor")));
        EXPECT_EQ(shown.findChild<QLineEdit*>()->text().toStdString(), state.AppPath);
        QTest::keyClick(&shown, Qt::Key_Escape);
    }});
    EXPECT_TRUE(RunModally(&dialog));
    EXPECT_FALSE(dialog.isVisible());
}

} // namespace
} // namespace quorvane
