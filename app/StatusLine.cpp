#include "app/StatusLine.h"

#include "app/QtText.h"

#include <QLabel>
#include <QPainter>
#include <QStatusBar>
#include <algorithm>

namespace quorvane {
namespace {

constexpr int kPortCharacters = 32; // "COM15 (not connected)" and some room
constexpr int kLeastCharacters = 12;

/// Shows as much of its text as fits: a long path, whatever the settings file says, or many fields at once
/// must not widen the window.
class ElidedLabel final : public QLabel {
public:
    using QLabel::QLabel;
    [[nodiscard]] QSize minimumSizeHint() const override
    {
        const QSize whole = QLabel::minimumSizeHint();
        return {std::min(whole.width(), fontMetrics().averageCharWidth() * kLeastCharacters), whole.height()};
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
        QPainter(this).drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, shown);
    }
};

QLabel* NewField(QStatusBar& bar, const char* name)
{
    auto* label = new ElidedLabel(&bar);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setContentsMargins(6, 0, 6, 0);
    return label;
}

void SetField(QLabel& label, const std::string& text)
{
    const QString shown = Shown(text);
    label.setText(shown);
    label.setToolTip(shown.toHtmlEscaped()); // where there is no room for all of it
    label.setVisible(!text.empty());
}

} // namespace

StatusLine::StatusLine(QStatusBar& bar)
    : state_(NewField(bar, "StatusState")),
      announcement_(NewField(bar, "StatusAnnouncement")),
      sample_(NewField(bar, "StatusSample")),
      timeLeft_(NewField(bar, "StatusTimeLeft")),
      age_(NewField(bar, "StatusAge")),
      behind_(NewField(bar, "StatusBehind")),
      mode_(NewField(bar, "StatusMode")),
      port_(NewField(bar, "StatusPort"))
{
    bar.addWidget(state_);
    announcement_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // what room is left
    bar.addWidget(announcement_, 1);
    for (QLabel* field : {sample_, timeLeft_, age_, behind_, mode_, port_})
        bar.addPermanentWidget(field);
}

void StatusLine::MakeRoom()
{
    port_->setMaximumWidth(port_->fontMetrics().averageCharWidth() * kPortCharacters);
}

void StatusLine::Show(const RunStatusText& text)
{
    SetField(*state_, text.state);
    SetField(*sample_, text.sample);
    SetField(*timeLeft_, text.timeLeft);
    SetField(*age_, text.age);
    age_->setEnabled(!text.stale || text.noData); // an old age is greyed; that there is no data is not
    SetField(*behind_, text.behind);
    SetField(*mode_, text.mode);
    SetField(*port_, text.port);
}

void StatusLine::Announce(const QString& text)
{
    announcement_->setText(text);
    announcement_->setToolTip(text.toHtmlEscaped());
}

} // namespace quorvane
