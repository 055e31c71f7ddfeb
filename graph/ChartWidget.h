#pragma once

#include "app/Texts.h"
#include "graph/ChartControl.h"

#include <QPicture>
#include <QWidget>
#include <memory>

namespace quorvane {

/// The chart on the screen, on paper and in files.
class ChartWidget final : public QWidget, public ChartControl {
public:
    explicit ChartWidget(QWidget* parent = nullptr);
    ~ChartWidget() override;

    /// Legend, axis titles, notice of simulated values, accessible name.
    void SetCaptions(const Texts& texts);
    /// `hint` gives the text shown beside the mouse for the time under it; an empty one shows nothing.
    void OnHover(std::function<QString(ChartTime)> hint);
    /// The chart as it stands, in `size` units of 1/96 inch; later readings do not change it.
    [[nodiscard]] QPicture Frozen(QSize size);

    [[nodiscard]] ChartTime BottomMinimum() const override;
    [[nodiscard]] ChartTime BottomMaximum() const override;
    void SetBottomMinimum(ChartTime time) override;
    void SetBottomMaximum(ChartTime time) override;
    [[nodiscard]] double LeftMaximum() const override;
    void SetLeftMaximum(double value) override;
    void SetView(ChartView view) override;
    void AddPoint(std::int16_t series, ChartTime time, double value) override;
    void ClearPoints() override;
    void SetInLegend(std::int16_t series, bool shown) override;
    void SetSimulated(bool simulated) override;
    void SetAutoRepaint(bool on) override;
    void Repaint() override;
    void SetMouseZoom(bool on) override;
    void UndoZoom() override;
    void OnRedraw(std::function<void()> handler) override;
    void OnUserZoom(std::function<void()> handler) override;
    void DrawLevel(LineStyle style, double level) override;

private:
    class Plot; ///< the library's side; its header is heavy and stays in the source file
    std::unique_ptr<Plot> plot_;
};

} // namespace quorvane
