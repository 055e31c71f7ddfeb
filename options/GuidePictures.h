#pragma once

#include <QHash>
#include <QObject>
#include <QTextObjectInterface>

namespace quorvane {

/// Draws a document's pictures as wide as there is room for, and never larger than their own pixels are on
/// the screen. A picture that is missing takes no room.
class GuidePictures final : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    using QObject::QObject;

    /// @param room        width of the window that shows the document, in the layout's pixels
    /// @param pixelRatio  pixels of the screen for one of the layout's
    void SetRoom(int room, qreal pixelRatio)
    {
        room_ = room;
        pixelRatio_ = pixelRatio;
    }

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& place, QTextDocument* document, int position,
                    const QTextFormat& format) override;

private:
    QSize PixelsOf(const QString& path);

    int room_ = 0;
    qreal pixelRatio_ = 1;
    QHash<QString, QSize> pixels_; ///< sizes of the files that were asked for
};

} // namespace quorvane
