#pragma once

#include "graph/ChartControl.h"

#include <QRect>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>

namespace quorvane {

/// What belongs to the mouse and to the keyboard's focus, drawn above the chart; no part of its picture.
class ChartOverlay final : public QWidget {
public:
    explicit ChartOverlay(QWidget* parent);

    /// @param text  asked at every painting, so that it follows the readings under a mouse that rests
    void SetHint(std::function<QString(QPoint)> text) { hint_ = std::move(text); }
    /// Where a marker and the hint are shown; `area` is what they may cover.
    void ShowHint(QPoint mouse, QRect area);
    void HideHint();
    void ShowBand(QRect band);
    void HideBand();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void DrawHint(class QPainter& painter) const;

    std::function<QString(QPoint)> hint_;
    std::optional<QPoint> mouse_;
    QRect area_;
    QRect band_;
};

} // namespace quorvane
