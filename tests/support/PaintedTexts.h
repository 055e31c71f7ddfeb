#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPicture>
#include <QStringList>
#include <QWidget>

namespace quorvane {

/// Paper that keeps nothing but the texts that are painted on it, in turn; a line may come in pieces.
class TextPaper final : public QPaintDevice {
public:
    explicit TextPaper(QSize size) : size_(size) {}
    [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine_; }
    [[nodiscard]] const QStringList& Texts() const { return engine_.texts; }

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return size_.width();
        case PdmHeight:
            return size_.height();
        case PdmDevicePixelRatio:
        case PdmDepth:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return 96; // dots per inch
        }
    }

private:
    struct Engine final : QPaintEngine {
        Engine() : QPaintEngine(AllFeatures) {}
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override {}
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawPath(const QPainterPath&) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        void drawTextItem(const QPointF&, const QTextItem& item) override { texts += item.text(); }
        [[nodiscard]] Type type() const override { return User; }
        QStringList texts;
    };
    QSize size_;
    mutable Engine engine_;
};

[[nodiscard]] inline QStringList PaintedTexts(QWidget& window)
{
    TextPaper paper(window.size());
    window.render(&paper);
    return paper.Texts();
}

[[nodiscard]] inline QStringList PaintedTexts(const QPicture& picture)
{
    TextPaper paper(picture.boundingRect().size());
    QPainter painter(&paper);
    painter.drawPicture(0, 0, picture);
    painter.end();
    return paper.Texts();
}

} // namespace quorvane
