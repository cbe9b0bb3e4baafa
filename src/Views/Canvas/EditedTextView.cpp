#include "EditedTextView.h"

#include "RoundedShapes.h"
#include "TextElementRenderView.h"
#include "ZelvoTheme.h"

namespace quenara {

namespace {

// Points
constexpr double cornerRadius = 10;
constexpr double plateOutlineWidth = 2 * EditedTextView::outlineMargin;
constexpr double caretWidth = 2;
constexpr double preeditLineWidth = 1;

/// The theme's input colour or, where letters of \a text cannot be read on that, the other theme's:
/// slides keep their colours in both schemes.
QColor inputColor(const ZelvoTheme &theme, const QColor &text)
{
    constexpr double leastContrast = 2;
    const QColor opaque = QColor(text.rgb());
    const ZelvoTheme &other =
        theme == ZelvoTheme::dark() ? ZelvoTheme::light() : ZelvoTheme::dark();
    return contrast(opaque, theme.inputBackground) < leastContrast ? other.inputBackground
                                                                   : theme.inputBackground;
}

} // namespace

QRectF scaledCaret(const TextLayoutGeometry &places, qsizetype position, double scale)
{
    const QRectF caret = places.caret(position);
    return {caret.x() * scale - caretWidth / 2, caret.y() * scale, caretWidth,
            caret.height() * scale};
}

void EditedTextView::paint(QPainter &painter, const ZelvoTheme &theme, RenderCaches &caches) const
{
    const double scale = placement.scale;
    const auto scaled = [scale](const QRectF &piece) {
        return QRectF(piece.topLeft() * scale, piece.size() * scale);
    };
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing
                           | QPainter::SmoothPixmapTransform);
    painter.setTransform(placement.fromBox(), true);
    const QRectF box = placement.box();
    const QPainterPath outline =
        continuousRoundedRect(placement.plate().translated(-box.topLeft()), cornerRadius);
    painter.fillPath(outline, inputColor(theme, text.textColor.toColor()));

    for (const QRectF &piece : places.pieces(edit.selectionStart(), edit.selectionEnd()))
        painter.fillRect(scaled(piece), theme.selection);
    painter.setPen(Qt::NoPen);
    TextElementRenderView{text, scale}.paint(painter, QRectF(QPointF(), box.size()), caches,
                                             &places.block());
    for (const QRectF &piece : places.pieces(edit.caret, edit.caret + preedit.text.size())) {
        QRectF line = scaled(piece);
        line.setTop(line.bottom() - preeditLineWidth);
        painter.fillRect(line, theme.accent);
    }
    if (showsCaret)
        painter.fillRect(scaledCaret(places, edit.caret + preedit.caret, scale), theme.accent);

    painter.strokePath(outline, QPen(theme.accent, plateOutlineWidth));
    painter.restore();
}

} // namespace quenara
