#include "HandoutLayout.h"

namespace quenara {

namespace {

constexpr double millimetre = HandoutLayout::resolution / 25.4;
constexpr double margin = 12 * millimetre;
constexpr double columnGap = 6 * millimetre;
constexpr double rowGap = 4 * millimetre;
constexpr double footerHeight = 4 * millimetre;
constexpr double largeLine = 5 * millimetre; ///< of titles where there are few on a page
constexpr double smallLine = 3.8 * millimetre;
constexpr double titleGap = millimetre;
constexpr int manyColumns = 3;
constexpr double lineHeight = 1.4; ///< of the text's size

HandoutLayout::Cell cellIn(const QRectF &area, double line)
{
    const double titlesTop = area.bottom() - 2 * line;
    const QRectF first(area.left(), titlesTop, area.width(), line);
    return {.picture = {area.topLeft(), QPointF(area.right(), titlesTop - titleGap)},
            .section = first,
            .slide = first.translated(0, line)};
}

} // namespace

HandoutLayout HandoutLayout::of(const QPageSize &paper, int columns)
{
    const QRectF sheet(QPointF(), QSizeF(paper.sizePixels(resolution).transposed()));
    const QRectF inner = sheet.adjusted(margin, margin, -margin, -margin);
    HandoutLayout layout;
    layout.footer = {inner.left(), inner.bottom() - footerHeight, inner.width(), footerHeight};
    const double line = columns < manyColumns ? largeLine : smallLine;
    const double across = (inner.width() + columnGap) / columns;
    const double down = (inner.height() - footerHeight) / columns;
    for (int row = 0; row < columns; ++row) {
        for (int column = 0; column < columns; ++column) {
            layout.cells.append(cellIn({inner.left() + column * across, inner.top() + row * down,
                                        across - columnGap, down - rowGap},
                                       line));
        }
    }
    return layout;
}

double textSizeIn(const QRectF &line)
{
    return line.height() / lineHeight;
}

} // namespace quenara
