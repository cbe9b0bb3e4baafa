#include "TextLayoutGeometry.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>
#include <utility>

namespace quenara {

namespace {

double heightOf(const QTextLine &line)
{
    return line.ascent() + line.descent();
}

/// The offset in the shown text before what ends \a line, a break or the space it is wrapped at.
int endOf(const QTextLayout &layout, const QTextLine &line)
{
    const int end = line.textStart() + line.textLength();
    return line.lineNumber() + 1 < layout.lineCount() ? layout.previousCursorPosition(end) : end;
}

} // namespace

TextLayoutGeometry::TextLayoutGeometry(TextElementProperties text, const QSizeF &size)
    : m_text(std::move(text)), m_block(m_text, size - 2 * QSizeF(m_text.padding, m_text.padding))
{}

QRectF TextLayoutGeometry::caret(qsizetype position) const
{
    const QTextLine line = m_block.layout().lineAt(lineOf(position));
    return toBox({line.cursorToX(int(m_block.offsets().shown(position))) + spacingBefore(position),
                  line.y(), 0, heightOf(line)});
}

/// The width that spacing right before \a position would have if it were shown, in the layout's
/// units. Negative in a right-to-left text.
double TextLayoutGeometry::spacingBefore(qsizetype position) const
{
    const qsizetype count = m_block.offsets().leftOutBefore(position);
    const QString leftOut = m_text.text.sliced(position - count, count);
    if (!QStringView(leftOut).trimmed().isEmpty())
        return 0;
    const bool isRightToLeft = m_block.layout().text().isRightToLeft();
    return (isRightToLeft ? -1 : 1) * double(count) * spaceWidth();
}

QList<QRectF> TextLayoutGeometry::pieces(qsizetype start, qsizetype end) const
{
    const QTextLayout &layout = m_block.layout();
    const int first = int(m_block.offsets().shown(start));
    const int last = int(m_block.offsets().shown(end));
    QList<QRectF> pieces;
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        const int lineEnd = std::min(last, line.textStart() + line.textLength());
        QRectF piece;
        for (int at = std::max(first, line.textStart()); at < lineEnd;
             at = layout.nextCursorPosition(at)) {
            const QRectF next = pieceOf(line, at);
            const bool isBeside = next.left() <= piece.right() && piece.left() <= next.right();
            if (!piece.isNull() && !isBeside)
                pieces.append(toBox(std::exchange(piece, QRectF())));
            piece |= next;
        }
        if (!piece.isNull())
            pieces.append(toBox(piece));
    }
    return pieces;
}

QRectF TextLayoutGeometry::pieceOf(const QTextLine &line, int character) const
{
    const double leading = line.cursorToX(character, QTextLine::Leading);
    const bool isBreak = m_block.layout().text().at(character) == QChar::LineSeparator;
    const double trailing =
        isBreak ? leading + spaceWidth() : line.cursorToX(character, QTextLine::Trailing);
    return QRectF(QPointF(leading, line.y()), QPointF(trailing, line.y() + heightOf(line)))
        .normalized();
}

qsizetype TextLayoutGeometry::positionAt(const QPointF &point) const
{
    int line = 0;
    while (line + 1 < lineCount()
           && point.y() >= toBox({0, m_block.layout().lineAt(line + 1).y(), 0, 0}).y())
        ++line;
    return positionInLine(line, point.x());
}

int TextLayoutGeometry::lineCount() const
{
    return m_block.layout().lineCount();
}

/// What is not laid out for lack of room counts as part of the last line.
int TextLayoutGeometry::lineOf(qsizetype position) const
{
    const QTextLine line =
        m_block.layout().lineForTextPosition(int(m_block.offsets().shown(position)));
    return line.isValid() ? line.lineNumber() : lineCount() - 1;
}

qsizetype TextLayoutGeometry::startOfLine(int line) const
{
    return m_block.offsets().stored(m_block.layout().lineAt(line).textStart());
}

qsizetype TextLayoutGeometry::endOfLine(int line) const
{
    const QTextLayout &layout = m_block.layout();
    return m_block.offsets().stored(endOf(layout, layout.lineAt(line)));
}

qsizetype TextLayoutGeometry::positionInLine(int line, double x) const
{
    const QTextLayout &layout = m_block.layout();
    const QTextLine target = layout.lineAt(line);
    const int nearest = target.xToCursor((x - m_text.padding) / m_block.unit());
    return m_block.offsets().stored(std::min(nearest, endOf(layout, target)));
}

QRectF TextLayoutGeometry::toBox(const QRectF &rect) const
{
    const double unit = m_block.unit();
    return {m_text.padding + rect.x() * unit,
            m_text.padding + m_block.bounds().top() + rect.y() * unit, rect.width() * unit,
            rect.height() * unit};
}

double TextLayoutGeometry::spaceWidth() const
{
    return QFontMetricsF(m_block.layout().font()).horizontalAdvance(u' ');
}

} // namespace quenara
