#pragma once

#include <QTableView>

class QAction;

namespace quorvane {

/// The live table's view. The rows copied with Ctrl+C are tab-separated, as spreadsheets take them. A row
/// behind a gap has a thick dashed line above it and the sign of a broken line beside its number.
class LiveTable final : public QTableView {
public:
    explicit LiveTable(QWidget* parent = nullptr);

    /// Rows and headings in the font operators know the table by, where it is installed.
    /// @param font  of the window
    void SetFonts(const QFont& font);
    void SetCopyText(const QString& text);
    /// Makes the columns wide enough for their headings and usual values.
    void FitColumns();
    /// With more than six rows, makes the sixth from the end the top one: six rows are in sight, and the
    /// newest always stands at the same place, with room below it in a tall window.
    void ShowNewest();
    /// High enough for the six rows, or the newest would be out of sight in a small window.
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void updateGeometries() override;

private:
    [[nodiscard]] int NewestTop() const;
    void CopySelection() const;

    QAction* copy_;
};

} // namespace quorvane
