#include "app/StatusLine.h"

#include "app/QtText.h"

#include <QAccessible>
#include <QLabel>
#include <QPainter>
#include <QStatusBar>
#include <algorithm>
#include <utility>

namespace quorvane {
namespace {

constexpr int kPortCharacters = 32; // "COM15 (not connected)" and some room
constexpr int kLeastCharacters = 11;

const QColor kLoudPaper(0xff, 0xd4, 0x00); // that of the notice of simulated readings

} // namespace

/// Shows as much of its text as fits: a long path, whatever the settings file says, or many fields at once
/// must not widen the window.
class StatusField final : public QLabel {
public:
    StatusField(QStatusBar& bar, const char* name) : QLabel(&bar)
    {
        setObjectName(QLatin1String(name));
        setTextFormat(Qt::PlainText);
        setContentsMargins(6, 0, 6, 0);
    }
    void SetField(const std::string& content)
    {
        const QString shown = Shown(content);
        setText(shown);
        setToolTip(shown.toHtmlEscaped()); // where there is no room for all of it
        setVisible(!content.empty());
    }
    /// In bold on yellow, whatever the desktop's colours.
    void SetLoud(bool loud)
    {
        if (loud == std::exchange(loud_, loud))
            return;
        QFont bold;
        bold.setBold(loud);
        setFont(loud ? bold : QFont());
        update();
    }
    [[nodiscard]] QSize minimumSizeHint() const override
    {
        const QSize whole = QLabel::minimumSizeHint();
        return {std::min(whole.width(), fontMetrics().averageCharWidth() * kLeastCharacters), whole.height()};
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        if (loud_) {
            painter.fillRect(rect(), kLoudPaper);
            painter.setPen(Qt::black);
        }
        const QString shown = fontMetrics().elidedText(text(), loud_ ? Qt::ElideRight : Qt::ElideMiddle,
                                                       contentsRect().width());
        painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, shown);
    }

private:
    bool loud_ = false;
};

StatusLine::StatusLine(QStatusBar& bar)
    : state_(new StatusField(bar, "StatusState")),
      warning_(new StatusField(bar, "StatusWarning")),
      announcement_(new StatusField(bar, "StatusAnnouncement")),
      sample_(new StatusField(bar, "StatusSample")),
      timeLeft_(new StatusField(bar, "StatusTimeLeft")),
      age_(new StatusField(bar, "StatusAge")),
      behind_(new StatusField(bar, "StatusBehind")),
      mode_(new StatusField(bar, "StatusMode")),
      port_(new StatusField(bar, "StatusPort"))
{
    bar.addWidget(state_);
    // What room is left, or the fields that change with every reading could not be read any more.
    warning_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    warning_->SetLoud(true);
    warning_->hide();
    bar.addWidget(warning_, 1);
    announcement_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // what room is left
    bar.addWidget(announcement_, 1);
    for (StatusField* field : {sample_, timeLeft_, age_, behind_, mode_, port_})
        bar.addPermanentWidget(field);
}

void StatusLine::MakeRoom()
{
    port_->setMaximumWidth(port_->fontMetrics().averageCharWidth() * kPortCharacters);
}

void StatusLine::Show(const RunStatusText& text, bool alarming)
{
    state_->SetLoud(alarming);
    state_->SetField(text.state);
    sample_->SetField(text.sample);
    timeLeft_->SetField(text.timeLeft);
    age_->SetField(text.age);
    age_->setEnabled(!text.stale || text.noData); // an old age is greyed; that there is no data is not
    behind_->SetField(text.behind);
    mode_->SetField(text.mode);
    port_->SetField(text.port);
}

void StatusLine::Warn(const QString& text, const QString& reason)
{
    const bool isNew = !text.isEmpty() && text != warning_->text();
    warning_->setText(text);
    warning_->setToolTip((reason.isEmpty() ? text : text + u'\n' + reason).toHtmlEscaped());
    warning_->setMinimumWidth(warning_->minimumSizeHint().width());
    warning_->setMaximumWidth(warning_->sizeHint().width());
    warning_->setVisible(!text.isEmpty());
    announcement_->setVisible(text.isEmpty());
    if (!isNew)
        return;
    QAccessibleEvent alert(warning_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void StatusLine::Announce(const QString& text)
{
    announcement_->setText(text);
    announcement_->setToolTip(text.toHtmlEscaped());
}

} // namespace quorvane
