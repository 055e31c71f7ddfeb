#pragma once

#include "resources/SystemTexts.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quorvane {

enum class Icon { None, Exclamation, Critical };
enum class Buttons { Ok, YesNo };
enum class Answer { Ok, Yes, No };

/// A message box.
struct Message {
    std::string text;     ///< composed, UTF-8
    std::string detail{}; ///< why, and what to do about it: stands below the text; empty: nothing
    Icon icon = Icon::None;
    int titleId = kProgramNameText; ///< text number of the title, without the language offset
    Buttons buttons = Buttons::Ok;
    Answer unattended = Answer::No; ///< what a question is answered with where nobody can be asked
};

/// A dialog that asks where to save.
struct SaveQuestion {
    std::string filter;  ///< pairs of description and pattern, each followed by "|"
    int filterIndex = 1; ///< the pair chosen at first, from 1
    bool overwritePrompt = true;
    std::string defaultName; ///< proposed file name
    std::string folder;      ///< where the dialog starts, UTF-8; the home folder when that does not exist
    /// What a name typed without an extension gets while each of the pairs is chosen, without a dot; empty or
    /// left out: nothing.
    std::vector<std::string> extensions;
};

/// A dialog that asks which file to open.
struct OpenQuestion {
    std::string filter;  ///< as of a `SaveQuestion`
    int filterIndex = 1; ///< the pair chosen at first, from 1
    std::string folder;  ///< where the dialog starts, UTF-8; the home folder when that does not exist
};

/// Questions and messages to the operator. May serve events while it waits for the answer.
class Prompts {
public:
    virtual ~Prompts() = default;
    virtual Answer Show(const Message& message) = 0;
    /// Shows a message that needs no answer, for whoever must not be held up: it may return while the message
    /// is on the screen.
    virtual void Tell(const Message& message) { Show(message); }
    /// @return the chosen path, UTF-8, or nothing when the operator cancelled
    [[nodiscard]] virtual std::optional<std::string> AskSaveName(const SaveQuestion& question) = 0;
    [[nodiscard]] virtual std::optional<std::string> AskOpenName(const OpenQuestion& question) = 0;

    /// The same as `AskSaveName` for whoever must not be held up: it may return while the dialog is open.
    /// `chosen` is called with the path, and not at all when the operator cancelled.
    virtual void AskSaveNameLater(const SaveQuestion& question,
                                  const std::function<void(const std::string&)>& chosen)
    {
        if (const std::optional<std::string> path = AskSaveName(question))
            chosen(*path);
    }
};

} // namespace quorvane
