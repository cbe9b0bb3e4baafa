#pragma once

#include "TextBlock.h"
#include "TextOffsetMap.h"

class QTextLine;

namespace quenara {

/// Where the characters of a text layer stand as it is painted, for editing them there. Positions
/// count in the stored text; points and rectangles are canvas units from the top left of the
/// layer's box.
class TextLayoutGeometry
{
public:
    TextLayoutGeometry(TextElementProperties text, const QSizeF &size);

    /// The text as it is laid out in the box without its padding.
    TextBlock &block() { return m_block; }

    /// Before the character at \a position: without width, as high as its line. Goes along behind
    /// spacing that is not painted because a line ends in it.
    QRectF caret(qsizetype position) const;

    /// What the characters from \a start up to \a end cover, at least one piece a line. A break
    /// counts as wide as a space.
    QList<QRectF> pieces(qsizetype start, qsizetype end) const;

    /// The position nearest to \a point.
    qsizetype positionAt(const QPointF &point) const;

    // By lines as they are wrapped.
    int lineCount() const;
    int lineOf(qsizetype position) const;
    qsizetype startOfLine(int line) const;
    qsizetype endOfLine(int line) const;
    qsizetype positionInLine(int line, double x) const;

private:
    QRectF pieceOf(const QTextLine &line, int character) const;
    QRectF toBox(const QRectF &rect) const;
    double spacingBefore(qsizetype position) const;
    double spaceWidth() const;

    TextElementProperties m_text;
    TextBlock m_block;
    TextOffsetMap m_positions;
};

} // namespace quenara
