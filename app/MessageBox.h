#pragma once

#include "app/Prompts.h"
#include "app/Texts.h"

#include <functional>

class QWidget;

namespace quorvane {

/// How a question may be left without one of its buttons.
enum class WayOut {
    None,       ///< not at all: Escape and the close box do nothing; Enter answers Yes
    EscapeIsNo, ///< Escape and the close box answer No, and so does Enter
};

/// Shows `message` in front of `parent` (or of everything, without one), its buttons in the program's
/// language, and serves events until it is answered. Text and detail are shown as they are, never read as
/// markup. A message with one button is closed by Escape, Enter and the close box as well.
/// @return the answer; when the box was destroyed unanswered, what Enter would have answered
Answer ShowMessageBox(const Message& message, const Texts& texts, QWidget* parent,
                      WayOut wayOut = WayOut::None);

/// The same in front of `parent` without serving events, for what may come up while a run goes on: returns at
/// once. `answered` gets the answer, and is not called when the box is destroyed unanswered.
void ShowMessageBoxLater(const Message& message, const Texts& texts, QWidget* parent,
                         const std::function<void(Answer)>& answered = {}, WayOut wayOut = WayOut::None);

} // namespace quorvane
