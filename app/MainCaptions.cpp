#include "app/MainCaptions.h"

#include "app/QtText.h"
#include "app/ui_FrmMenu.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

namespace quorvane {
namespace {

void SetMenus(Ui::FrmMenu& ui, const Texts& texts)
{
    const std::pair<QMenu*, int> menus[] = {
        {ui.MenuFile, kFileMenuText}, {ui.MenuMeasure, kMeasureMenuText}, {ui.MenuChart, kChartMenuText},
        {ui.MenuTool, kToolMenuText}, {ui.MenuHelp, kHelpMenuText},
    };
    for (const auto& [menu, id] : menus)
        menu->setTitle(Shown(texts[id]));
    const std::pair<QAction*, int> commands[] = {
        {ui.MenuOpen, kOpenCommandText},
        {ui.MenuSave, kSaveCommandText},
        {ui.MenuSaveImage, kSaveImageCommandText},
        {ui.MenuPreview, kPreviewCommandText},
        {ui.MenuPrint, kPrintCommandText},
        {ui.MenuExit, kExitCommandText},
        {ui.MenuMeasureStart, kMeasureStartText},
        {ui.MenuMeasureEnd, kMeasureEndText},
        {ui.MenuAlarmReset, kAlarmResetText},
        {ui.MenuWholeRun, kWholeRunText},
        {ui.MenuCopyChart, kCopyChartCommandText},
        {ui.MenuQuorvaneSetting, kInstrumentSettingCommandText},
        {ui.MenuMeasureSetting, kMeasureSettingCommandText},
        {ui.MenuGraphSetting, kGraphSettingCommandText},
        {ui.MenuRS232C, kPortSettingCommandText},
        {ui.MenuOption, kOptionCommandText},
        {ui.MenuGuide, kGuideCommandText},
        {ui.MenuVersion, kVersionCommandText},
    };
    for (const auto& [command, id] : commands)
        command->setText(Shown(texts[id]));
}

void SetToolbar(Ui::FrmMenu& ui, const Texts& texts)
{
    ui.Toolbar1->setWindowTitle(Shown(texts[kToolbarText]));
    struct Key {
        QAction* action;
        int text, tip;
    };
    for (const Key& key : {Key{ui.ToolOpen, kToolOpenText, kToolOpenTipText},
                           Key{ui.ToolSave, kToolSaveText, kToolSaveTipText},
                           Key{ui.ToolPrint, kToolPrintText, kToolPrintTipText},
                           Key{ui.ToolHelp, kToolHelpText, kToolHelpTipText}}) {
        key.action->setText(Shown(texts[key.text]));
        key.action->setToolTip(Shown(texts[key.tip]));
    }
}

constexpr QSize kStartButton(176, 84); ///< to be hit without looking, whatever its letters need
constexpr QSize kResetButton(176, 52);

} // namespace

void SetMainCaptions(Ui::FrmMenu& ui, const Texts& texts)
{
    SetMenus(ui, texts);
    SetToolbar(ui, texts);
    const auto text = [&](int id) { return Shown(texts[id]); };
    ui.Command1->setToolTip(text(kStartTipText));
    ui.Command2->setText(text(kAlarmResetText));
    ui.Command2->setToolTip(text(kAlarmResetTipText));
    ui.SimulatedNotice->setText(text(kSimulatedNoticeText));
    for (QLabel* const unit : {ui.Unit1, ui.Unit2, ui.Unit3})
        unit->setText(text(kConcUnitText));
    ui.CountUnit->setText(text(kCountUnitText));
    ui.CountName->setText(text(kCountMeaningText));
    ui.CountNow->setAccessibleName(text(kCountMeaningText));
    ui.vaSpread1->setAccessibleName(text(kTableText));
    ui.vaSpread1->SetCopyText(text(kCopyCommandText));
}

/// A size that is set by hand holds even where the text needs more, and the start button has two texts.
void MakeMainRoom(Ui::FrmMenu& ui, const Texts& texts)
{
    QSize start = kStartButton;
    const QString caption = ui.Command1->text();
    for (const int id : {kMeasureStartText, kMeasureEndText}) {
        ui.Command1->setText(Shown(texts[id]));
        start = start.expandedTo(ui.Command1->sizeHint());
    }
    ui.Command1->setText(caption);
    ui.Command1->setMinimumSize(start);
    ui.Command2->setMinimumSize(kResetButton.expandedTo(ui.Command2->sizeHint()));
    ui.SimulatedNotice->setMinimumHeight(
        ui.SimulatedNotice->heightForWidth(ui.Central->minimumSizeHint().width()));
}

} // namespace quorvane
