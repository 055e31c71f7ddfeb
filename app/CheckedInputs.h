#pragma once

#include "app/Prompts.h"

#include <QObject>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

class CheckedBox;

/// The boxes of a window, of numbers mostly, that are looked at while the operator types and checked when he
/// leaves them. A refused one is told, shows what is stored again, and keeps the focus.
class CheckedInputs final : public QObject {
public:
    struct Input {
        CheckedBox* box;
        std::function<bool(std::string_view text)> edited; ///< takes what was typed; false: refused
        std::function<bool(std::string_view text)> left;   ///< whether the box may be left so
        std::function<std::string()> stored;               ///< what is stored, as it is shown
        std::function<Message()> refusal;
    };

    /// @param tell  shows a message and returns when the operator has read it
    CheckedInputs(std::vector<Input> inputs, std::function<void(const Message&)> tell);

    /// Going to this control leaves a box unchecked: the button that gives everything up.
    void SetWayOut(const QWidget* control) { wayOut_ = control; }

    /// Shows what is stored. That is no change by the operator.
    void Fill();
    /// Checks all, in their order. The first that is refused is told, and gets the focus.
    /// @return whether none is refused
    [[nodiscard]] bool Validate();
    /// Checks one.
    bool Check(const CheckedBox* box);
    /// Checks those that were typed in and not left since; for whoever goes on without the focus moving.
    [[nodiscard]] bool CheckEdited();
    /// Takes what was typed and not left yet, where it can be taken; nothing is told about the rest.
    void TakeEdited();

private:
    void Edited(const Input& input);
    void Leave(const Input& input);
    bool CheckInput(const Input& input);
    void Refuse(const Input& input);

    const std::vector<Input> inputs_;
    std::set<const CheckedBox*> edited_; ///< typed in, and neither accepted nor shown anew since
    std::function<void(const Message&)> tell_;
    const QWidget* wayOut_ = nullptr;
    bool telling_ = false;
};

} // namespace quorvane
