#include "graph/ChartPane.h"

#include "app/QtText.h"
#include "graph/ChartWidget.h"
#include "graph/ReadingHint.h"
#include "resources/OwnTexts.h"

#include <QAction>
#include <QButtonGroup>
#include <QCursor>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QShortcut>

namespace quorvane {
namespace {

constexpr int kZoomHotSpot = 12; // the cross in the middle of the pointer's glass
constexpr std::array kSpanTexts{kSpan1Text, kSpan2Text, kSpan3Text, kSpan4Text};

/// Cursor resource 101.
QCursor ZoomCursor()
{
    return QCursor(QPixmap(QStringLiteral(":/pictures/zoom-cursor.png")), kZoomHotSpot, kZoomHotSpot);
}

} // namespace

ChartPane::ChartPane(QWidget& window, const Controls& controls, const ApplicationState& state,
                     const MeasurementArrays& arrays, const Texts& texts, const LocaleItems& locale)
    : window_(window),
      controls_(controls),
      spans_(new QButtonGroup(&window)),
      state_(state),
      arrays_(arrays),
      texts_(texts),
      locale_(locale),
      chart_(state, arrays, *controls.chart)
{
    for (std::size_t i = 0; i < controls_.spans.size(); ++i) {
        const int number = static_cast<int>(i) + 1;
        spans_->addButton(controls_.spans.at(i), number);
        const auto* const keys = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_0 + number)), &window);
        QObject::connect(keys, &QShortcut::activated, controls_.spans.at(i), &QAbstractButton::click);
    }
    spans_->button(chart_.Span())->setChecked(true);
    QObject::connect(spans_, &QButtonGroup::idClicked, &window,
                     [this](int number) { chart_.SelectSpan(number); });
    QObject::connect(controls_.command3, &QPushButton::clicked, &window, [this] { chart_.ShowWholeRun(); });
    QObject::connect(controls_.command4, &QPushButton::clicked, &window, [this] {
        chart_.ToggleZoom();
        ShowZoom();
    });
    QObject::connect(controls_.wholeRun, &QAction::triggered, controls_.command3, &QAbstractButton::click);
    QObject::connect(controls_.zoom, &QAction::triggered, controls_.command4, &QAbstractButton::click);
    controls_.chart->OnHover([this](ChartTime time) { return HintAt(time); });
}

void ChartPane::SetCaptions()
{
    controls_.chart->SetCaptions(texts_);
    controls_.spanName->setText(Shown(texts_[kSpanText]));
    for (std::size_t i = 0; i < controls_.spans.size(); ++i) {
        QAbstractButton& button = *controls_.spans.at(i);
        button.setText(Shown(texts_[kSpanTexts.at(i)]));
        button.setToolTip(Shown(texts_[kSpanTipText]));
        button.setAccessibleName(controls_.spanName->text() + u' ' + button.text());
    }
    controls_.command3->setText(Shown(texts_[kWholeRunText]));
    controls_.command3->setToolTip(Shown(texts_[kWholeRunTipText]));
    controls_.command4->setToolTip(Shown(texts_[kZoomTipText]));
    ShowZoom();
}

void ChartPane::SetEnabled(bool command3, bool command4)
{
    controls_.command3->setEnabled(command3);
    controls_.wholeRun->setEnabled(command3);
    controls_.command4->setEnabled(command4);
    controls_.zoom->setEnabled(command4);
}

/// The caption says what a click does, so it is "Zoom On" while zoom is off.
void ChartPane::ShowZoom()
{
    controls_.command4->setText(Shown(texts_[chart_.ZoomCaptionId()]));
    controls_.zoom->setText(controls_.command4->text());
    if (chart_.ZoomOn())
        window_.setCursor(ZoomCursor());
    else
        window_.unsetCursor();
}

void ChartPane::PrepareRun()
{
    chart_.PrepareRun();
    ShowZoom();
}

void ChartPane::AddReading()
{
    chart_.AddReading();
}

void ChartPane::Rebuild()
{
    chart_.Rebuild();
}

void ChartPane::ShowData()
{
    chart_.ShowData();
    ShowZoom();
}

void ChartPane::FlagsEdited(ChartView before)
{
    chart_.FlagsEdited(before);
}

void ChartPane::SelectSpan(int number)
{
    chart_.SelectSpan(number);
    spans_->button(chart_.Span())->setChecked(true);
}

QString ChartPane::HintAt(ChartTime time) const
{
    const int reading = NearestReading(arrays_, chart_.Readings(), time);
    std::string hint = ReadingHint(arrays_, state_, reading, texts_, locale_.DecimalSign());
    if (!hint.empty())
        hint += GapHint(arrays_, reading, time, texts_, locale_);
    return Shown(hint);
}

} // namespace quorvane
