#include "options/GuidePictures.h"

#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QPixmapCache>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <algorithm>

namespace quorvane {
namespace {

QString PathOf(const QTextDocument& document, const QTextFormat& format)
{
    return u':' + document.baseUrl().resolved(QUrl(format.toImageFormat().name())).path();
}

/// What margins and lists take of the width at `position`.
qreal TakenAt(const QTextDocument& document, int position)
{
    const QTextBlock block = document.findBlock(position);
    int indent = block.blockFormat().indent();
    if (const QTextList* const list = block.textList())
        indent += list->format().indent();
    return 2 * document.documentMargin() + indent * document.indentWidth();
}

/// Scaled once for each size: the painter's own scaling blurs or tears small letters.
QPixmap ScaledPicture(const QString& path, const QSize& size)
{
    const QString key = QStringLiteral("%1 %2x%3").arg(path).arg(size.width()).arg(size.height());
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture =
            QPixmap::fromImage(QImage(path).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        QPixmapCache::insert(key, picture);
    }
    return picture;
}

} // namespace

QSizeF GuidePictures::intrinsicSize(QTextDocument* document, int position, const QTextFormat& format)
{
    const QSizeF natural = PixelsOf(PathOf(*document, format)).toSizeF() / pixelRatio_;
    if (natural.isEmpty())
        return {};
    return natural * std::clamp((room_ - TakenAt(*document, position)) / natural.width(), 0.0, 1.0);
}

void GuidePictures::drawObject(QPainter* painter, const QRectF& place, QTextDocument* document,
                               int /*position*/, const QTextFormat& format)
{
    const qreal ratio = painter->device()->devicePixelRatio();
    const QSize size = (place.size() * ratio).toSize();
    if (size.isEmpty())
        return;
    QPixmap picture = ScaledPicture(PathOf(*document, format), size);
    picture.setDevicePixelRatio(ratio);
    painter->drawPixmap(place.topLeft(), picture);
}

QSize GuidePictures::PixelsOf(const QString& path)
{
    const auto known = pixels_.constFind(path);
    if (known != pixels_.constEnd())
        return *known;
    return *pixels_.insert(path, QImageReader(path).size().expandedTo({0, 0}));
}

} // namespace quorvane
