#pragma once

#include "measure/RunStatusText.h"

class QLabel;
class QStatusBar;
class QString;

namespace quorvane {

/// The fields of the main window's status bar: what goes on, sample n of N, time left, age of the newest
/// reading, lines behind, mode, port.
class StatusLine final {
public:
    explicit StatusLine(QStatusBar& bar);
    /// Wide enough fields, in whatever size letters have here.
    void MakeRoom();
    void Show(const RunStatusText& text);
    /// A text that stays behind the first field until it is replaced by an empty one.
    void Announce(const QString& text);

private:
    QLabel* state_;
    QLabel* announcement_;
    QLabel* sample_;
    QLabel* timeLeft_;
    QLabel* age_;
    QLabel* behind_;
    QLabel* mode_;
    QLabel* port_;
};

} // namespace quorvane
