#include "PaintingEffort.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace quenara {

namespace {

constexpr double mostPixels = 64.0 * 1024 * 1024; // of an image in memory

// Nanoseconds that Qt's rasterizer takes.
constexpr double ofAnElement = 2000;
constexpr double ofAnOpaquePixel = 0.4;
constexpr double ofATranslucentPixel = 0.6;
constexpr double ofAGradientPixel = 2;
constexpr double ofAnImagePixel = 6;
constexpr double ofAnOutlinePixel = 40;
constexpr double ofAPassedPixel = 0.22; ///< of the outline, in the same row, left of one
constexpr double ofACorner = 300;
constexpr double ofADash = 1500;
constexpr double ofARoundPixel = 1000; ///< of the width of a line that ends or turns round
constexpr double ofAGlyph = 300;

/// The length of the outline of a glyph, in heights of its line.
constexpr double outlineOfAGlyph = 5;

/// What is between the two numbers of the part of a line that lies in a range.
double lengthWithin(double from, double to, double least, double most)
{
    return std::abs(std::clamp(to, least, most) - std::clamp(from, least, most));
}

/// How many pixels of \a image the outline crosses, and how many corners it has.
struct Outline
{
    double length = 0;
    double corners = 0;

    Outline(const QPainterPath &path, const QTransform &toPixels, const QRectF &image)
    {
        QPointF last;
        for (int i = 0; i < path.elementCount(); ++i) {
            const QPainterPath::Element element = path.elementAt(i);
            const QPointF point = toPixels.map(QPointF(element));
            if (!element.isMoveTo())
                add(last, point, image);
            last = point;
            ++corners;
        }
    }

private:
    /// Its rows, and of them the columns within the image: what is beside it is not walked along.
    void add(const QPointF &from, const QPointF &to, const QRectF &image)
    {
        const double rows = lengthWithin(from.y(), to.y(), image.top(), image.bottom());
        const bool isWithin = rows > 0
            || (from.y() == to.y() && from.y() >= image.top() && from.y() <= image.bottom());
        length += rows;
        if (isWithin)
            length += lengthWithin(from.x(), to.x(), image.left(), image.right());
    }
};

/// What an outline of \a length takes that has painted what is \a covered: each of its pixels is
/// put behind those of its row that are left of it.
double outlineEffort(double length, const QRectF &covered)
{
    const double rows = std::max(1.0, covered.height());
    const double passed = std::min(std::max(1.0, covered.width()), length / rows);
    return length * (ofAnOutlinePixel + ofAPassedPixel * passed);
}

double areaOf(const QRectF &rectangle)
{
    return rectangle.isEmpty() ? 0 : rectangle.width() * rectangle.height();
}

/// How many pixels one unit becomes at most.
double scaleOf(const QTransform &transform)
{
    return std::max(std::hypot(transform.m11(), transform.m12()),
                    std::hypot(transform.m21(), transform.m22()));
}

/// Counts what a painter asks it to paint.
class CountingEngine : public QPaintEngine
{
public:
    CountingEngine(const QSizeF &size, double most)
        : QPaintEngine(AllFeatures), m_image(QPointF(), size), m_most(most)
    {}

    double effort() const { return m_effort; }

    bool begin(QPaintDevice * /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState & /*state*/) override {}
    Type type() const override { return User; }

    void drawPath(const QPainterPath &path) override
    {
        m_effort += ofAnElement;
        if (!(m_effort <= m_most))
            return;
        if (state->brush().style() != Qt::NoBrush)
            countFill(path);
        if (state->pen().style() != Qt::NoPen)
            countStroke(path);
    }

    void drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) override
    {
        QPainterPath path;
        path.addPolygon(QPolygonF(QList<QPointF>(points, points + count)));
        if (mode != PolylineMode)
            path.closeSubpath();
        drawPath(path);
    }

    void drawPixmap(const QRectF &area, const QPixmap & /*pixmap*/,
                    const QRectF & /*part*/) override
    {
        countImage(area);
    }

    void drawImage(const QRectF &area, const QImage & /*image*/, const QRectF & /*part*/,
                   Qt::ImageConversionFlags /*flags*/) override
    {
        countImage(area);
    }

    void drawTextItem(const QPointF &position, const QTextItem &item) override
    {
        const double height = item.ascent() + item.descent();
        const QRectF line(position.x(), position.y() - item.ascent(), item.width(), height);
        const double glyphs = double(item.text().size());
        m_effort += ofAnElement + ofAGlyph * glyphs;
        const QRectF shown = state->transform().mapRect(line) & m_image;
        if (shown.isEmpty() || line.isEmpty())
            return;
        const double ofOne = std::min(scaleOf(state->transform()) * height, m_image.height());
        m_effort += ofAnOutlinePixel * outlineOfAGlyph * ofOne * glyphs
            + pixelOf(state->pen().brush()) * areaOf(shown);
    }

private:
    double pixelOf(const QBrush &brush) const
    {
        if (brush.style() != Qt::SolidPattern)
            return ofAGradientPixel;
        return brush.isOpaque() && state->opacity() >= 1 ? ofAnOpaquePixel : ofATranslucentPixel;
    }

    void countImage(const QRectF &area)
    {
        m_effort +=
            ofAnElement + ofAnImagePixel * areaOf(state->transform().mapRect(area) & m_image);
    }

    void countFill(const QPainterPath &path)
    {
        const QTransform &toPixels = state->transform();
        const Outline outline(path, toPixels, m_image);
        const QRectF covered = toPixels.mapRect(path.controlPointRect()) & m_image;
        m_effort += outlineEffort(outline.length, covered) + ofACorner * outline.corners
            + pixelOf(state->brush()) * areaOf(covered);
    }

    void countStroke(const QPainterPath &path)
    {
        const QTransform &toPixels = state->transform();
        const QPen &pen = state->pen();
        const double scale = pen.isCosmetic() ? 1 : scaleOf(toPixels);
        const double width = std::max(1.0, pen.widthF() * scale);
        const QRectF reached = m_image.adjusted(-width, -width, width, width);
        const Outline line(path, toPixels, reached);
        const QRectF covered =
            toPixels.mapRect(path.controlPointRect()).adjusted(-width, -width, width, width)
            & m_image;
        if (covered.isEmpty())
            return;
        const double widthWithin = std::min(width, m_image.width() + m_image.height());
        const double dashes = line.length * dashesPerPixel(pen, scale);
        const double pieces = line.corners + dashes;
        const double area = std::min(areaOf(covered), (line.length + width * pieces) * width);
        const double roundEnds = pen.capStyle() == Qt::RoundCap ? 2 * dashes + line.corners : 0;
        const double roundTurns = pen.joinStyle() == Qt::RoundJoin ? line.corners : 0;
        m_effort += outlineEffort(2 * line.length + 2 * widthWithin * pieces, covered)
            + ofACorner * line.corners + ofADash * dashes
            + ofARoundPixel * widthWithin * (roundEnds + roundTurns) + pixelOf(pen.brush()) * area;
    }

    static double dashesPerPixel(const QPen &pen, double scale)
    {
        const QList<qreal> pattern = pen.dashPattern();
        const double units = std::accumulate(pattern.cbegin(), pattern.cend(), 0.0);
        const double unit = scale * (pen.widthF() > 0 ? pen.widthF() : 1); // of the pattern
        const double length = units * unit;
        return length > 0 ? double(pattern.size()) / 2 / length : 0;
    }

    QRectF m_image;
    double m_most;
    double m_effort = 0;
};

/// An image of which nothing is kept.
class CountingDevice : public QPaintDevice
{
public:
    CountingDevice(const QSize &size, double most) : m_size(size), m_engine(size, most) {}

    QPaintEngine *paintEngine() const override { return &m_engine; }
    double effort() const { return m_engine.effort(); }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        constexpr int bitsPerPixel = 32;
        constexpr int dotsPerInch = 96;
        constexpr double millimetersPerInch = 25.4;
        const auto millimeters = [](int dots) {
            return int(millimetersPerInch * dots / dotsPerInch);
        };
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmWidthMM:
            return millimeters(m_size.width());
        case PdmHeightMM:
            return millimeters(m_size.height());
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return dotsPerInch;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        case PdmDepth:
            return bitsPerPixel;
        default:
            return 0; // a table of colours
        }
    }

private:
    QSize m_size;
    mutable CountingEngine m_engine;
};

} // namespace

double paintingEffort(const QByteArray &drawing, double most)
{
    QSvgRenderer renderer(drawing);
    const QSizeF size = renderer.defaultSize();
    if (!renderer.isValid() || size.isEmpty())
        return 0;
    const double scale = std::min(1.0, std::sqrt(mostPixels / areaOf({QPointF(), size})));
    CountingDevice device((size * scale).toSize().expandedTo({1, 1}), most);
    QPainter painter(&device);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(QPointF(), size * scale));
    painter.end();
    return std::isfinite(device.effort()) ? device.effort()
                                          : std::numeric_limits<double>::infinity();
}

} // namespace quenara
