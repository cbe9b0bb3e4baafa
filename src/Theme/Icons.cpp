#include "Icons.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

namespace quenara {

namespace {

/// Renders the symbol afresh at each size and pixel ratio that is asked for.
class SymbolEngine : public QIconEngine
{
public:
    SymbolEngine(QByteArray svg, const QColor &color) : m_svg(std::move(svg)), m_color(color) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const double ratio = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
    }

    /// \a size is in device pixels, as the icon asks its engine for them.
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        QSvgRenderer(m_svg).render(&painter);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), m_color);
        if (mode == QIcon::Disabled) {
            painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
            painter.fillRect(image.rect(), QColor(0, 0, 0, disabledAlpha));
        }
        painter.end();
        return QPixmap::fromImage(image);
    }

    QIconEngine *clone() const override { return new SymbolEngine(*this); }

private:
    static constexpr int disabledAlpha = 100;

    QByteArray m_svg;
    QColor m_color;
};

} // namespace

QIcon tintedIcon(const QString &name, const QColor &color)
{
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    const bool opened = file.open(QIODevice::ReadOnly);
    Q_ASSERT_X(opened, "tintedIcon", qPrintable(name));
    return QIcon(new SymbolEngine(opened ? file.readAll() : QByteArray(), color));
}

} // namespace quenara
