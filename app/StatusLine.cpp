#include "app/StatusLine.h"

#include "app/QtText.h"

#include <QLabel>
#include <QStatusBar>

namespace quorvane {
namespace {

QLabel* NewField(QStatusBar& bar, const char* name)
{
    auto* label = new QLabel(&bar);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setContentsMargins(6, 0, 6, 0);
    return label;
}

void SetField(QLabel& label, const std::string& text)
{
    label.setText(Shown(text));
    label.setVisible(!text.empty());
}

} // namespace

StatusLine::StatusLine(QStatusBar& bar)
    : state_(NewField(bar, "StatusState")),
      announcement_(NewField(bar, "StatusAnnouncement")),
      sample_(NewField(bar, "StatusSample")),
      timeLeft_(NewField(bar, "StatusTimeLeft")),
      behind_(NewField(bar, "StatusBehind")),
      mode_(NewField(bar, "StatusMode")),
      port_(NewField(bar, "StatusPort"))
{
    bar.addWidget(state_);
    bar.addWidget(announcement_, 1);
    for (QLabel* field : {sample_, timeLeft_, behind_, mode_, port_})
        bar.addPermanentWidget(field);
}

void StatusLine::Show(const RunStatusText& text)
{
    SetField(*state_, text.state);
    SetField(*sample_, text.sample);
    SetField(*timeLeft_, text.timeLeft);
    SetField(*behind_, text.behind);
    SetField(*mode_, text.mode);
    SetField(*port_, text.port);
}

void StatusLine::Announce(const QString& text)
{
    announcement_->setText(text);
    announcement_->setToolTip(text);
}

} // namespace quorvane
