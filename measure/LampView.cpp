#include "measure/LampView.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <algorithm>

namespace quorvane {
namespace {

constexpr int kLampSize = 48; // pixels at 100 %

} // namespace

LampView::LampView(QWidget* parent) : QWidget(parent), picture_(new QLabel(this)), word_(new QLabel(this))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(picture_);
    row->addWidget(word_, 1);
    picture_->setFixedSize(kLampSize, kLampSize);
    Refresh();
}

void LampView::SetPicture(const QString& litPicture)
{
    litPicture_ = litPicture;
    Refresh();
}

void LampView::SetTexts(const QString& name, const QString& lit, const QString& unlit)
{
    name_ = name;
    litText_ = lit;
    unlitText_ = unlit;
    MakeRoom();
    Refresh();
}

void LampView::SetLit(bool lit)
{
    lit_ = lit;
    Refresh();
}

/// The widest word decides, or the window would twitch when a lamp lights.
void LampView::MakeRoom()
{
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    word_->setMinimumWidth(
        std::max(metrics.horizontalAdvance(litText_), metrics.horizontalAdvance(unlitText_)));
}

void LampView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        MakeRoom();
}

void LampView::Refresh()
{
    const QIcon icon(lit_ ? litPicture_ : QStringLiteral(":/pictures/lamp-unlit.png"));
    picture_->setPixmap(icon.pixmap(QSize(kLampSize, kLampSize), devicePixelRatio()));
    QFont weight; // and nothing else: the rest is the window's
    weight.setBold(lit_);
    word_->setFont(weight);
    word_->setText(lit_ ? litText_ : unlitText_);
    setAccessibleName(name_ + QLatin1Char(' ') + word_->text());
}

} // namespace quorvane
