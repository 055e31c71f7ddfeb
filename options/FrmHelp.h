#pragma once

#include "app/Texts.h"
#include "options/AboutDetails.h"

#include <QDialog>
#include <QList>
#include <memory>
#include <vector>

class QLabel;

namespace Ui {
class FrmHelp;
}

namespace quorvane {

/// About the program: its name and licence, and what support asks for first, to be copied for a mail. It
/// serves no events itself, so it can stand open while a run goes on.
class FrmHelp final : public QDialog {
public:
    FrmHelp(const ApplicationState& state, const Texts& texts, QWidget* parent);
    ~FrmHelp() override;

    /// Shows the facts as they are known now.
    void Refresh();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void SetFonts();
    void SetCaptions();
    void ShowRows();
    void OpenFolder();
    void CopyDetails();
    void Tell(int id);

    const ApplicationState& state_;
    const Texts& texts_;
    std::vector<AboutRow> rows_;
    QList<QLabel*> facts_; ///< captions and values
    std::unique_ptr<Ui::FrmHelp> ui_;
};

} // namespace quorvane
