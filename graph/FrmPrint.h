#pragma once

#include "app/Texts.h"
#include "graph/Printers.h"

#include <QDialog>
#include <QPageLayout>
#include <functional>
#include <memory>
#include <string>

namespace Ui {
class FrmPrint;
}

namespace quorvane {

/// How and where a page is to be printed.
struct PrintChoice {
    QString printer; ///< empty: into `file`
    QString file;    ///< PDF
    QPageSize paper;
    QPageLayout::Orientation orientation = QPageLayout::Landscape;
    int copies = 1; ///< of a printer
};

/// Asks for printer, paper, copies and orientation; behind the printers a PDF file can be chosen. Unlike the
/// system's dialog it serves no events itself, so it can stand open while a run goes on.
class FrmPrint final : public QDialog {
public:
    struct Parts {
        const Printers& printers;
        const Texts& texts;
        /// Asks where to save, returns at once, and calls its argument with the path unless that is
        /// cancelled.
        std::function<void(const std::function<void(const std::string&)>&)> askFile;
        std::function<void(const PrintChoice&)> print; ///< called when the dialog has closed
    };
    FrmPrint(Parts parts, QPageLayout::Orientation orientation, QWidget* parent);
    ~FrmPrint() override;

private:
    void SetFonts();
    void SetCaptions();
    void ListPrinters();
    void ShowPrinter();
    void Command1Click();
    void Finish(const PrintChoice& choice);
    [[nodiscard]] QString ChosenPrinter() const;
    [[nodiscard]] PrintChoice Choice() const;

    const Parts parts_;
    const QStringList names_;
    QList<QPageSize> papers_; ///< of the chosen printer
    std::unique_ptr<Ui::FrmPrint> ui_;
};

} // namespace quorvane
