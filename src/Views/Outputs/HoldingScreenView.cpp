#include "HoldingScreenView.h"

#include "Fonts.h"
#include "PaintingWorkarounds.h"
#include "ZelvoTheme.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QRawFont>

#include <cmath>

namespace quenara {

namespace {

constexpr double rowSpacing = 18;
constexpr double nameSize = 68;
constexpr double barWidth = 360;
constexpr double barHeight = 6;
constexpr double emptyRowSize = 24;

/// The outline of \a text, its origin at the left end of the baseline.
QPainterPath outlineOf(const QString &text, const QRawFont &font)
{
    const QList<quint32> glyphs = font.glyphIndexesForString(text);
    const QList<QPointF> advances =
        font.advancesForGlyphIndexes(glyphs, QRawFont::SeparateAdvances | QRawFont::KernedAdvances);
    QPainterPath outline;
    QPointF pen;
    for (qsizetype i = 0; i < glyphs.size(); ++i) {
        outline.addPath(font.pathForGlyph(glyphs.at(i)).translated(pen));
        pen += advances.at(i);
    }
    return outline;
}

} // namespace

void HoldingScreenView::paint(QPainter &painter, const QRectF &area) const
{
    painter.fillRect(area, Qt::black);

    // An empty line of text holds the third row open under the bar.
    // The same screen must come out the same to the last pixel, whatever was painted before it.
    const QRawFont nameFont = unsharedFont(QStringLiteral(":/fonts/Inter-Bold.otf"), nameSize);
    const QPainterPath name = outlineOf(QStringLiteral("Quenara"), nameFont);
    const double nameHeight = nameFont.ascent() + nameFont.descent();
    const double emptyRowHeight = QFontMetricsF(systemFont(emptyRowSize, QFont::Normal)).height();
    const double height = nameHeight + rowSpacing + barHeight + rowSpacing + emptyRowHeight;
    const double top = area.center().y() - height / 2;
    const double nameLeft = area.center().x() - name.boundingRect().center().x();

    const QColor color = ZelvoTheme::dark().accentHover; // in either scheme
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(name.translated(nameLeft, top + nameFont.ascent()), color);
    // The bar lies on whole points, so that its edges are sharp.
    painter.fillRect(QRectF(std::round(area.center().x() - barWidth / 2),
                            std::round(top + nameHeight + rowSpacing), barWidth, barHeight),
                     color);
    painter.restore();
}

} // namespace quenara
