#include "Symbols.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace quenara {

namespace {

QPixmap renderedSymbol(const QString &symbol, const QSize &size, const QColor &color)
{
    const QString path = QStringLiteral(":/icons/%1.svg").arg(symbol);
    Q_ASSERT_X(QFile::exists(path), "paintSymbol", qPrintable(symbol));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(path).render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    return QPixmap::fromImage(image);
}

} // namespace

void paintSymbol(QPainter &painter, const QRect &place, const QString &symbol, const QColor &color)
{
    const QSize size = place.size() * painter.device()->devicePixelRatio();
    const QString key = QStringLiteral("%1 %2 %3x%4")
                            .arg(symbol, color.name(QColor::HexArgb))
                            .arg(size.width())
                            .arg(size.height());
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = renderedSymbol(symbol, size, color);
        QPixmapCache::insert(key, pixmap);
    }
    painter.drawPixmap(place, pixmap);
}

} // namespace quenara
