#include "app/FrontWindow.h"

namespace quorvane {

FrontWindow::Raise FrontWindow::OnTick(Handle foreground)
{
    if (second_ == kNone) { // whatever is in front
        second_ = kNothingToRaise;
        return Raise::Main;
    }
    const bool mainInFront = foreground != kNone && foreground == main_;
    return mainInFront && second_ != kNothingToRaise ? Raise::Second : Raise::Nothing;
}

} // namespace quorvane
