#pragma once

#include <QList>
#include <QPageSize>
#include <QRectF>

namespace quenara {

/// Where things stand on a page of several slides, in pixels of `resolution` from the top left of
/// the sheet, which lies on its side.
struct HandoutLayout
{
    static constexpr int resolution = 300; ///< an inch: what printers show of a picture

    /// A place for one slide: its picture, as large as that has room for, over its titles.
    struct Cell
    {
        QRectF picture;
        QRectF section; ///< one line of text
        QRectF slide; ///< likewise
    };

    QList<Cell> cells; ///< row by row
    QRectF footer; ///< one line of text

    /// As many rows as columns.
    [[nodiscard]] static HandoutLayout of(const QPageSize &paper, int columns);
};

/// The size of text that fills a line of that height, in the unit of \a line.
[[nodiscard]] double textSizeIn(const QRectF &line);

} // namespace quenara
