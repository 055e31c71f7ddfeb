#include "instrument/SettingCaptions.h"

#include "app/CheckedBox.h"
#include "app/ProgramFont.h"
#include "app/QtText.h"
#include "instrument/ui_FrmQuorvaneSetting.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <tuple>
#include <utility>

namespace quorvane {
namespace {

void Describe(QWidget& control, const QString& text)
{
    control.setToolTip(text);
    control.setAccessibleName(text);
}

} // namespace

void SetSettingCaptions(const Ui::FrmQuorvaneSetting& ui, const Texts& texts)
{
    const auto text = [&texts](int id) { return Shown(texts[id]); };
    const std::pair<SettingPage, int> pages[] = {{kProgramPage, kProgramPageText},
                                                 {kClockPage, kInstrumentClockText},
                                                 {kKFactorPage, kKFactorPageText}};
    for (const auto& [page, id] : pages)
        ui.SSTab1->setTabText(page, text(id));
    const std::pair<QLabel*, int> labels[] = {
        {ui.Label7, kBehindSecondsText},      {ui.Label5, kSamplingTimeText},
        {ui.Label9, kTotalTimeText},          {ui.Label1, kStartDateText},
        {ui.Label2, kStartTimeText},          {ui.Label3, kMinutesColonText},
        {ui.Label4, kHoursColonText},         {ui.Label12, kBehindSecondsText},
        {ui.Label6, kHoursColonText},         {ui.Label10, kHoursColonText},
        {ui.Label8, kMeasureCountText},       {ui.Label13, kSystemDateText},
        {ui.Label14, kSystemTimeText},        {ui.Label15, kInstrumentDateText},
        {ui.Label16, kInstrumentTimeText},    {ui.Label17, kKFactorText},
        {ui.SamplingHint, kHoursMinutesText}, {ui.TotalHint, kHoursMinutesText},
        {ui.KFactorHint, kKFactorRangeText},  {ui.KFactorNote, kKFactorNoteText},
        {ui.Notice, kLinkSimulatedText},
    };
    for (const auto& [label, id] : labels)
        label->setText(text(id));
    const std::tuple<QPushButton*, int, int> buttons[] = {
        {ui.Command1, kSendProgramText, kSendProgramTipText},
        {ui.Command3, kSendClockText, kSendClockTipText},
        {ui.Command4, kArrowText, kArrowTipText},
        {ui.Command5, kSendKFactorText, kSendKFactorTipText},
        {ui.Refresh, kRefreshText, kRefreshTipText},
        {ui.CommandOpen, kOpenProgramText, kOpenProgramTipText},
        {ui.CommandSave, kSaveProgramText, kSaveProgramTipText},
    };
    for (const auto& [button, caption, tip] : buttons) {
        button->setText(text(caption));
        button->setToolTip(text(tip));
        button->setAccessibleDescription(text(tip));
    }
    ui.Command6->setText(text(kCloseText));
    const std::pair<QWidget*, int> meanings[] = {
        {ui.Text4, kStartDateTipText},   {ui.Combo1, kStartHourText},      {ui.Combo2, kStartMinuteText},
        {ui.Combo3, kStartSecondText},   {ui.Text2, kProgramHoursTipText}, {ui.Text3, kProgramMinutesTipText},
        {ui.Text1, kCountTipText},       {ui.TotalHours, kHoursText},      {ui.TotalMinutes, kMinutesText},
        {ui.Text5, kSystemDateText},     {ui.Text6, kSystemTimeText},      {ui.Text7, kInstrumentDateText},
        {ui.Text8, kInstrumentTimeText}, {ui.Text9, kKFactorRangeText},
    };
    for (const auto& [control, id] : meanings)
        Describe(*control, text(id));
    ui.Label23->setToolTip(text(kClockRequestTipText)); // what it says is its own name
}

void SetSettingFonts(const Ui::FrmQuorvaneSetting& ui, const QFont& font)
{
    const QFontMetrics metrics(font);
    const int digit = metrics.horizontalAdvance(u"0"_qs);
    ui.Text4->setFixedWidth(16 * digit);
    for (QWidget* const box : {static_cast<QWidget*>(ui.Text1), static_cast<QWidget*>(ui.Text9)})
        box->setFixedWidth(10 * digit);
    for (QWidget* const box : {static_cast<QWidget*>(ui.Text2), static_cast<QWidget*>(ui.Text3)})
        box->setFixedWidth(6 * digit);
    for (QWidget* const box : {ui.TotalHours, ui.TotalMinutes})
        box->setFixedWidth(10 * digit);
    for (QLineEdit* const clock : {ui.Text5, ui.Text6, ui.Text7, ui.Text8}) {
        clock->setFont(Enlarged(font, 1.5));
        clock->setMinimumWidth(clock->fontMetrics().horizontalAdvance(u"0000/00/00"_qs) + 3 * digit);
    }
    ui.Label23->setMinimumHeight(metrics.lineSpacing());
}

} // namespace quorvane
