#pragma once

#include "app/LocalClock.h"
#include "app/Prompts.h"
#include "graph/ChartPage.h"
#include "graph/ChartWidget.h"
#include "graph/FrmPrint.h"

#include <QPageLayout>

class QPrinter;

namespace quorvane {

/// The chart on paper, in files and on the clipboard: as it stood when it was asked for, whatever is
/// measured while dialogs are open; they hold nothing up.
class ChartOutput {
public:
    /// @param parent  of the dialogs
    ChartOutput(ChartWidget& chart, const ApplicationState& state, const MeasurementArrays& arrays,
                const Texts& texts, const LocaleItems& locale, const LocalClock& clock, Prompts& prompts,
                QWidget* parent);

    // These return at once, and the dialogs follow.
    /// Shows the page in a window of its own.
    void Preview();
    /// Asks for the printer, or for a PDF file, and prints the page. Returns at once: a run that goes on
    /// takes its readings while the dialog is open, though not while a printer's driver works.
    void Print();
    /// Asks for a name and saves the chart, as large as on the screen: as a picture of twice the screen's
    /// pixels, or as a page of lines and texts when the name ends in ".pdf".
    void SaveImage();

    /// Puts the same picture onto the clipboard.
    void Copy();

    /// The page as things stand.
    [[nodiscard]] ChartPage Page() const;
    /// Prints `page`, as often as the printer was told, and tells the operator when that fails.
    void PrintOn(QPrinter& printer, const ChartPage& page);

private:
    [[nodiscard]] FrozenChart Picture() const;
    void Save(const FrozenChart& picture, const std::string& name);
    void AskForPrinter(const ChartPage& page, QPageLayout::Orientation orientation);
    void PrintAs(const PrintChoice& choice, const ChartPage& page);
    void PrintToFile(const PrintChoice& choice, const ChartPage& page);
    [[nodiscard]] SaveQuestion WhereToSave(const std::string& filter,
                                           std::vector<std::string> extensions) const;
    void TellFailure(int textId, const std::string& reason);

    ChartWidget& chart_;
    const ApplicationState& state_;
    const MeasurementArrays& arrays_;
    const Texts& texts_;
    const LocaleItems& locale_;
    const LocalClock& clock_;
    Prompts& prompts_;
    QWidget* parent_;
    SystemPrinters printers_;
};

} // namespace quorvane
