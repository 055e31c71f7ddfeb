#include "app/WindowKeeper.h"

#include <QEvent>
#include <QWidget>

namespace quorvane {
namespace {

constexpr std::chrono::milliseconds kPace{500};

FrontWindow::Handle HandleOf(const QWidget& window)
{
    return static_cast<FrontWindow::Handle>(window.winId());
}

} // namespace

WindowKeeper::WindowKeeper(QWidget& main, TickTimer& timer4, WindowOrder& order)
    : main_(main), timer4_(timer4), order_(order)
{
    if (main_.isActiveWindow())
        rule_.MainActivated(HandleOf(main_));
    main_.installEventFilter(this);
    timer4_.OnTick([this] { Tick(); });
    timer4_.SetInterval(kPace);
    timer4_.Enable();
}

WindowKeeper::~WindowKeeper()
{
    timer4_.Disable(); // it may live longer
}

void WindowKeeper::Watch(QWidget& dialog)
{
    dialog.installEventFilter(this);
    connect(&dialog, &QObject::destroyed, this, &WindowKeeper::Forget);
    if (dialog.isVisible())
        Record(dialog);
}

bool WindowKeeper::eventFilter(QObject* object, QEvent* event)
{
    if (object == &main_) {
        if (event->type() == QEvent::WindowActivate)
            rule_.MainActivated(HandleOf(main_));
        return false;
    }
    const bool byProgram = !event->spontaneous(); // the desktop hides and shows what it minimises
    if (byProgram && event->type() == QEvent::Show)
        Record(*static_cast<QWidget*>(object));
    if (byProgram && event->type() == QEvent::Hide)
        Forget(object);
    return false;
}

void WindowKeeper::Record(QWidget& dialog)
{
    second_ = &dialog;
    rule_.RecordSecond(HandleOf(dialog));
}

void WindowKeeper::Forget(const QObject* dialog)
{
    if (dialog != second_)
        return; // another one has come since
    second_ = nullptr;
    rule_.ClearSecond();
}

void WindowKeeper::Tick()
{
    switch (rule_.OnTick(order_.Foreground())) {
    case FrontWindow::Raise::Nothing:
        break;
    case FrontWindow::Raise::Main:
        order_.BringToTop(HandleOf(main_));
        break;
    case FrontWindow::Raise::Second:
        order_.BringToTop(HandleOf(*second_));
        second_->activateWindow(); // the main window has had the focus, which goes with it
        break;
    }
}

} // namespace quorvane
