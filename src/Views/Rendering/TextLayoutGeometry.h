#pragma once

#include "TextBlock.h"

class QTextLine;

namespace quenara {

/// Where the characters of a text layer are painted, so that they can be edited there. Positions
/// are offsets into the stored text. Points and rectangles are in canvas units from the top left of
/// the layer's box.
class TextLayoutGeometry
{
public:
    TextLayoutGeometry(TextElementProperties text, const QSizeF &size);

    /// The text as it is laid out in the box without its padding.
    TextBlock &block() { return m_block; }

    /// The caret before the character at \a position: without width, as high as the line. Behind
    /// spacing at the end of a line, which is not painted, it stands as if that were.
    [[nodiscard]] QRectF caret(qsizetype position) const;

    /// What the characters from \a start up to \a end cover: one or more pieces for each line. A
    /// break counts as wide as a space.
    [[nodiscard]] QList<QRectF> pieces(qsizetype start, qsizetype end) const;

    /// The position nearest to \a point.
    [[nodiscard]] qsizetype positionAt(const QPointF &point) const;

    // Lines are counted as they are wrapped.
    [[nodiscard]] int lineCount() const;
    [[nodiscard]] int lineOf(qsizetype position) const;
    [[nodiscard]] qsizetype startOfLine(int line) const;
    [[nodiscard]] qsizetype endOfLine(int line) const;
    [[nodiscard]] qsizetype positionInLine(int line, double x) const;

private:
    QRectF pieceOf(const QTextLine &line, int character) const;
    QRectF toBox(const QRectF &rect) const;
    double spacingBefore(qsizetype position) const;
    double spaceWidth() const;

    TextElementProperties m_text;
    TextBlock m_block;
};

} // namespace quenara
