#include "graph/FrmGraphSetting.h"

#include "tests/support/DialogWorld.h"

#include <QCheckBox>
#include <set>

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct FrmGraphSettingTest : DialogWorld<FrmGraphSetting> {
    void Open() { Show(texts, Teller()); }
    QCheckBox* Box(int number) const { return Part<QCheckBox>(("Check" + std::to_string(number)).c_str()); }
    void Click(int number)
    {
        DialogWorld::Click(("Check" + std::to_string(number)).c_str());
        QApplication::processEvents();
    }
    std::set<int> Numbers(bool (QCheckBox::*has)() const)
    {
        std::set<int> numbers;
        for (int number = 1; number <= 9; ++number)
            if ((Box(number)->*has)())
                numbers.insert(number);
        return numbers;
    }
    std::set<int> Checked() { return Numbers(&QCheckBox::isChecked); }
    std::set<int> Enabled() { return Numbers(&QCheckBox::isEnabled); }

    GraphFlags& flags = state;
};

const std::set<int> kAll = {1, 2, 3, 4, 5, 6, 7, 8, 9};
const std::set<int> kRelative = {1, 2};
const std::set<int> kMassAndAlarm = {3, 4, 5, 6, 7, 8, 9};
constexpr const char* kNoGraph = "The graph to display is not selected. Please select it.";

TEST_F(FrmGraphSettingTest, BindsEachBoxToItsFlag)
{
    struct Row {
        int number;
        bool GraphFlags::*flag;
        const char* caption;
    };
    const Row rows[] = {
        {1, &GraphFlags::RelativeCFlg, "Relative Concentration[CPM]"},
        {2, &GraphFlags::RelativeIntegratedFlg, "Relative Concentration(Integrated value)[CPM]"},
        {3, &GraphFlags::MassCFlg, "Mass Concentration(C) [mg/m3]"},
        {4, &GraphFlags::MassIntegratedFlg, "Mass Concentration(Integrated value) [mg/m3]"},
        {5, &GraphFlags::MassTWAFlg, "Mass Concentration(TWA) [mg/m3]"},
        {6, &GraphFlags::MassSTELFlg, "Mass Concentration(STEL) [mg/m3]"},
        {7, &GraphFlags::AlarmCFlg, "Alarm value (C) [mg/m3]"},
        {8, &GraphFlags::AlarmTWAFlg, "Alarm value (TWA) [mg/m3]"},
        {9, &GraphFlags::AlarmSTELFlg, "Alarm value (STEL) [mg/m3]"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.caption);
        flags = {};
        flags.*row.flag = true;
        Open();
        EXPECT_THAT(Checked(), ElementsAre(row.number));
        EXPECT_EQ(Box(row.number)->text(), QLatin1String(row.caption));
        Click(row.number);
        EXPECT_FALSE(flags.*row.flag);
        Click(row.number);
        EXPECT_TRUE(flags.*row.flag);
        EXPECT_THAT(Checked(), ElementsAre(row.number));
    }
}

TEST_F(FrmGraphSettingTest, RelativeAndMassCurvesExcludeEachOther)
{
    Open();
    EXPECT_EQ(Enabled(), kAll);
    flags.RelativeCFlg = true;
    Click(8); // an alarm line decides nothing, and the boxes are not even looked at again
    EXPECT_EQ(Enabled(), kAll);
    flags.RelativeCFlg = false;
    Click(1);
    EXPECT_EQ(Enabled(), kRelative);
    Click(2);
    Click(1);
    EXPECT_EQ(Enabled(), kRelative);
    Click(2);
    EXPECT_EQ(Enabled(), kAll);
    for (const int mass : {3, 4, 5, 6}) {
        Click(mass);
        EXPECT_EQ(Enabled(), kMassAndAlarm);
        Click(mass);
        EXPECT_EQ(Enabled(), kAll);
    }
    EXPECT_THAT(Checked(), ElementsAre(8));
}

TEST_F(FrmGraphSettingTest, DisabledBoxesKeepTheirStateAndTheFocusGoesWhereSomethingCanBeDone)
{
    flags.RelativeIntegratedFlg = flags.MassCFlg = flags.AlarmTWAFlg = true; // as a settings file may have it
    Open();
    EXPECT_THAT(Checked(), ElementsAre(2, 3, 8));
    EXPECT_EQ(Enabled(), kRelative);
    EXPECT_TRUE(Box(1)->hasFocus());
    Click(3);
    EXPECT_TRUE(flags.MassCFlg);

    Press(Qt::Key_Tab);
    Press(Qt::Key_Space); // the mass curve that was there takes over
    EXPECT_FALSE(flags.RelativeIntegratedFlg);
    EXPECT_EQ(Enabled(), kMassAndAlarm);
    EXPECT_TRUE(Box(3)->hasFocus());
    EXPECT_THAT(Checked(), ElementsAre(3, 8));
}

TEST_F(FrmGraphSettingTest, OkKeepsAndEveryOtherWayPutsAllNineBack)
{
    for (const Way way : {Way::Ok, Way::Cancel, Way::Escape, Way::CloseBox}) {
        flags = {};
        flags.RelativeCFlg = flags.AlarmCFlg = true;
        Open();
        Click(1);
        for (const int number : {3, 4, 5, 6, 7, 8, 9})
            Click(number);
        EXPECT_FALSE(flags.RelativeCFlg || flags.AlarmCFlg);
        Leave(way);
        EXPECT_FALSE(dialog->isVisible());
        const bool kept = way == Way::Ok;
        EXPECT_EQ(flags.RelativeCFlg && flags.AlarmCFlg, !kept);
        for (const auto flag :
             {&GraphFlags::MassCFlg, &GraphFlags::MassIntegratedFlg, &GraphFlags::MassTWAFlg,
              &GraphFlags::MassSTELFlg, &GraphFlags::AlarmTWAFlg, &GraphFlags::AlarmSTELFlg})
            EXPECT_EQ(flags.*flag, kept);
        EXPECT_THAT(messages, IsEmpty());
    }
}

TEST_F(FrmGraphSettingTest, DoesNotCloseWithoutACurveNotEvenByCancel)
{
    for (const Way way : {Way::Ok, Way::Cancel, Way::Escape, Way::CloseBox}) {
        flags = {};
        flags.MassTWAFlg = true; // Cancel would bring it back, and is held all the same
        Open();
        Click(5);
        Click(7); // a line is no curve
        TryToLeave(way);
        EXPECT_THAT(messages, ElementsAre(kNoGraph));
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_THAT(Checked(), ElementsAre(7));
        EXPECT_TRUE(flags.AlarmCFlg);

        Click(1);
        Leave(Way::Cancel); // also after an OK that came to nothing
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_TRUE(flags.MassTWAFlg);
        EXPECT_FALSE(flags.RelativeCFlg || flags.AlarmCFlg);
    }
}

} // namespace
} // namespace quorvane
