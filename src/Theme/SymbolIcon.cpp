#include "SymbolIcon.h"

#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

namespace quenara {

namespace {

constexpr int disabledAlpha = 100;

QPixmap renderedSymbol(const QByteArray &svg, const QSize &size, const QColor &color, int alpha)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(svg).render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(image.rect(), QColor(0, 0, 0, alpha));
    painter.end();
    return QPixmap::fromImage(image);
}

/// Renders the symbol once for each look and size in device pixels that is asked for.
class SymbolEngine : public QIconEngine
{
public:
    SymbolEngine(QByteArray svg, const QColor &color, const QColor &onColor)
        : m_svg(std::move(svg)), m_color(color), m_onColor(onColor.isValid() ? onColor : color)
    {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const double ratio = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        const Look look{size, mode == QIcon::Disabled, state == QIcon::On};
        const auto known = m_pixmaps.constFind(look);
        if (known != m_pixmaps.cend())
            return *known;
        return *m_pixmaps.insert(look,
                                 renderedSymbol(m_svg, size, look.isOn ? m_onColor : m_color,
                                                look.isDisabled ? disabledAlpha : 255));
    }

    QIconEngine *clone() const override { return new SymbolEngine(*this); }

private:
    struct Look
    {
        QSize size;
        bool isDisabled;
        bool isOn;

        bool operator==(const Look &) const = default;
        friend size_t qHash(const Look &look, size_t seed = 0)
        {
            return qHashMulti(seed, look.size, look.isDisabled, look.isOn);
        }
    };

    QByteArray m_svg;
    QColor m_color;
    QColor m_onColor;
    QHash<Look, QPixmap> m_pixmaps;
};

} // namespace

QIcon symbolIcon(const QString &symbol, const QColor &color, const QColor &onColor)
{
    QFile file(QStringLiteral(":/icons/%1.svg").arg(symbol));
    const bool opened = file.open(QIODevice::ReadOnly);
    Q_ASSERT_X(opened, "symbolIcon", qPrintable(symbol));
    return QIcon(new SymbolEngine(opened ? file.readAll() : QByteArray(), color, onColor));
}

} // namespace quenara
