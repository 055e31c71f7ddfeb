#pragma once

#include "measure/RunStatusText.h"

class QStatusBar;
class QString;

namespace quorvane {

class StatusField;

/// The fields of the main window's status bar: what goes on, sample n of N, time left, age of the newest
/// reading, lines behind, mode, port.
class StatusLine final {
public:
    explicit StatusLine(QStatusBar& bar);
    /// Wide enough fields, in whatever size letters have here.
    void MakeRoom();
    /// @param alarming  what goes on is nothing that should go on: the first field stands out
    void Show(const RunStatusText& text, bool alarming);
    /// A warning beside the first field, in bold on yellow, with `reason` in its tooltip; an empty text ends
    /// it. A screen reader reads a new one out.
    void Warn(const QString& text, const QString& reason);
    /// A text that stays behind the first field until it is replaced by an empty one.
    void Announce(const QString& text);

private:
    StatusField* state_;
    StatusField* warning_;
    StatusField* announcement_;
    StatusField* sample_;
    StatusField* timeLeft_;
    StatusField* age_;
    StatusField* behind_;
    StatusField* mode_;
    StatusField* port_;
};

} // namespace quorvane
