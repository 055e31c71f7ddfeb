#pragma once

#include "app/FrmMenu.h"

#include <utility>

namespace quorvane {

/// One command of the operator from beginning to end. A close that comes meanwhile, while a run goes on or a
/// question is on the screen, is put off until the command is over.
class FrmMenu::Command {
public:
    explicit Command(FrmMenu& window) : window_(window) { ++window_.commands_; }
    ~Command()
    {
        if (--window_.commands_ > 0)
            return;
        if (std::exchange(window_.closeWanted_, false))
            QMetaObject::invokeMethod(&window_, &QWidget::close, Qt::QueuedConnection);
        window_.UpdateCommands();
        window_.UpdateStatus();
    }
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

private:
    FrmMenu& window_;
};

} // namespace quorvane
