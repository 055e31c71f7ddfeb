#pragma once

#include "app/Texts.h"
#include "graph/ChartPage.h"

#include <QDialog>
#include <QPageLayout>
#include <QPrinter>
#include <functional>

class QPrintPreviewWidget;
class QPushButton;

namespace quorvane {

/// The page as it will be printed, upright or across, in a window beside the others. Unlike the toolkit's own
/// it opens no dialog that serves events itself, so that it can be used while a run goes on.
class PreviewWindow final : public QDialog {
public:
    using Print = std::function<void(const ChartPage&, QPageLayout::Orientation)>;

    /// @param print  asks for the printer and prints
    PreviewWindow(ChartPage page, const Texts& texts, Print print, QWidget* parent);
    ~PreviewWindow() override;

private:
    void AddButtons();
    void SetCaptions(const Texts& texts);
    void Turn(QPageLayout::Orientation orientation);

    const ChartPage page_;
    const Print print_;
    QPrinter printer_{QPrinter::HighResolution};
    QPrintPreviewWidget* view_;
    QPushButton* upright_;
    QPushButton* across_;
    QPushButton* paper_;
    QPushButton* close_;
};

} // namespace quorvane
