#pragma once

#include "app/LocaleItems.h"
#include "app/Texts.h"
#include "measure/JournalRecovery.h"

#include <QDialog>
#include <memory>

namespace Ui {
class FrmRecovery;
}

namespace quorvane {

/// Offers the readings of a run that ended with its program: what they are, and what is to become of them.
/// They are left for another time unless a button says otherwise, and they are discarded only after a
/// question.
class FrmRecovery final : public QDialog {
public:
    enum class Choice { Later, Restore, SaveAs, Discard };

    FrmRecovery(const LeftOverRun& run, const Texts& texts, const LocaleItems& locale, QWidget* parent);
    ~FrmRecovery() override;

    /// What was chosen when the dialog has closed.
    [[nodiscard]] Choice Chosen() const { return chosen_; }

private:
    void SetCaptions();
    void ShowRun(const LeftOverRun& run, const LocaleItems& locale);
    void Choose(Choice choice);
    void DiscardClick();

    const Texts& texts_;
    std::unique_ptr<Ui::FrmRecovery> ui_;
    Choice chosen_ = Choice::Later;
};

} // namespace quorvane
