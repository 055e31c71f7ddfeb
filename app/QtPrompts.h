#pragma once

#include "app/Prompts.h"
#include "app/Texts.h"

#include <QPointer>
#include <QWidget>

namespace quorvane {

/// Questions and messages as windows of the toolkit. A box that comes up while another one is open stands in
/// front of that one.
class QtPrompts final : public Prompts {
public:
    explicit QtPrompts(const Texts& texts) : texts_(texts) {}

    /// The window that boxes belong to; may end before this object. None before the first call.
    void SetParent(QWidget* window) { window_ = window; }

    /// A question cannot be left without an answer: Escape and the close box do nothing to it.
    Answer Show(const Message& message) override;
    void Tell(const Message& message) override;
    [[nodiscard]] std::optional<std::string> AskSaveName(const SaveQuestion& question) override;
    [[nodiscard]] std::optional<std::string> AskOpenName(const OpenQuestion& question) override;
    void AskSaveNameLater(const SaveQuestion& question,
                          const std::function<void(const std::string&)>& chosen) override;

private:
    [[nodiscard]] QWidget* Parent() const;

    const Texts& texts_;
    QPointer<QWidget> window_;
};

} // namespace quorvane
