#include "TextBlock.h"

#include "DeviceLayer.h"
#include "EmojiText.h"
#include "SlideFonts.h"

#include <QFontMetricsF>
#include <QHash>
#include <QRawFont>
#include <QTextLayout>

#include <algorithm>

namespace quenara {

namespace {

/// The pixel size at which texts are laid out before they are scaled to their own: large enough
/// that rounding inside the font engine does not show.
constexpr int layoutPixelSize = 128;
constexpr double fitTolerance = 0.25; // canvas units of the font size
constexpr double finestFit = 1e-9; // for sizes beyond all measure
constexpr double smallestFontSize = 0.1;
constexpr double largestCachedGlyph = 64; // device pixels; Qt keeps pictures of glyphs up to here
constexpr char16_t ellipsis = u'\u2026';

Qt::Alignment alignmentOf(TextAlignmentValue alignment)
{
    switch (alignment) {
    case TextAlignmentValue::left:
        return Qt::AlignLeft | Qt::AlignAbsolute;
    case TextAlignmentValue::center:
        return Qt::AlignHCenter;
    case TextAlignmentValue::right:
        break;
    }
    return Qt::AlignRight | Qt::AlignAbsolute;
}

QString withLineSeparators(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (QChar &character : text) {
        if (QStringView(u"\n\v\f\r\u0085\u2029").contains(character))
            character = QChar::LineSeparator;
    }
    return text;
}

} // namespace

TextBlock::TextBlock(const TextElementProperties &text, const QSizeF &box, const TextLimits &limits)
    : m_text(text), m_box(std::max(0.0, box.width()), std::max(0.0, box.height())),
      m_limits(limits), m_string(withLineSeparators(text.displayText())),
      m_layout(std::make_unique<QTextLayout>())
{
    layOut(1);
    if (doesFit())
        return;
    double fits = m_limits.smallestFit;
    double tooLarge = 1;
    const double closeEnough = std::max(finestFit, fitTolerance / text.fontSize);
    while (tooLarge - fits > closeEnough) {
        const double middle = (fits + tooLarge) / 2;
        layOut(middle);
        (doesFit() ? fits : tooLarge) = middle;
    }
    layOut(fits);
    if (!doesFit())
        truncate();
}

TextBlock::~TextBlock() = default;

void TextBlock::layOut(double fit)
{
    m_fit = fit;
    const double unit = std::max(smallestFontSize, m_text.fontSize * fit) / layoutPixelSize;
    QFont font = slideFont(m_text.fontFamily, m_text.weight, layoutPixelSize);
    font.setLetterSpacing(QFont::AbsoluteSpacing, m_text.characterSpacing / unit);
    QTextOption option(alignmentOf(m_text.alignment));
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(true);

    const double width = m_box.width() / unit;
    const double spacing = std::max(0.0, layoutPixelSize * (m_text.lineHeight - 1));
    m_layout->setText(m_string);
    m_layout->setFont(font);
    m_layout->setFormats(emojiFormats(m_string));
    m_layout->setTextOption(option);
    m_layout->beginLayout();
    double y = 0;
    QRectF covered;
    for (QTextLine line = m_layout->createLine(); line.isValid(); line = m_layout->createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(width);
        line.setPosition({0, y});
        covered |= QRectF(line.naturalTextRect().left(), y, line.naturalTextWidth(),
                          line.ascent() + line.descent());
        y += line.height() + spacing;
        if (covered.height() * unit > m_box.height()
            || m_layout->lineCount() > m_limits.lineMaximum)
            break; // it does not fit, whatever follows
    }
    m_layout->endLayout();
    m_bounds = QRectF(covered.left() * unit, (m_box.height() - covered.height() * unit) / 2,
                      covered.width() * unit, covered.height() * unit);
}

bool TextBlock::doesFit() const
{
    return m_bounds.height() <= m_box.height() && m_layout->lineCount() <= m_limits.lineMaximum;
}

void TextBlock::truncate()
{
    const double unit = m_text.fontSize * m_fit / layoutPixelSize;
    int fitting = 0;
    while (fitting < std::min(m_layout->lineCount(), m_limits.lineMaximum)
           && m_layout->lineAt(fitting).rect().bottom() * unit <= m_box.height())
        ++fitting;
    const QTextLine last = m_layout->lineAt(std::max(0, fitting - 1));
    QString rest = m_string.mid(last.textStart(), last.textLength());
    while (!rest.isEmpty() && rest.back().isSpace())
        rest.chop(1);
    const QString elided = QFontMetricsF(m_layout->font())
                               .elidedText(rest + QChar(ellipsis) + QChar(ellipsis), Qt::ElideRight,
                                           m_box.width() / unit);
    m_string = m_string.first(last.textStart()) + elided;
    if (!m_string.endsWith(QChar(ellipsis)))
        m_string += QChar(ellipsis);
    while (m_string.endsWith(QStringLiteral("\u2026\u2026")))
        m_string.chop(1);
    layOut(m_fit);
}

QStringList TextBlock::lines() const
{
    QStringList lines;
    for (int i = 0; i < m_layout->lineCount(); ++i) {
        const QTextLine line = m_layout->lineAt(i);
        QString text = m_layout->text().mid(line.textStart(), line.textLength());
        lines.append(text.remove(QChar::LineSeparator));
    }
    return lines;
}

QRectF TextBlock::inkBounds() const
{
    const double overhang = std::max(smallestFontSize, m_text.fontSize * m_fit) / 4;
    return m_bounds.adjusted(-overhang, -overhang, overhang, overhang);
}

void TextBlock::draw(QPainter &painter, Placement placement)
{
    const double unit = std::max(smallestFontSize, m_text.fontSize * m_fit) / layoutPixelSize;
    painter.save();
    painter.translate(0, m_bounds.top());
    painter.scale(unit, unit);
    const bool isSmall = deviceScale(painter) * layoutPixelSize < largestCachedGlyph;
    if (isSmall && placement == Placement::onWholeRows) {
        m_layout->draw(&painter, {});
    } else {
        traceGlyphs();
        drawOutlines(painter);
    }
    painter.restore();
}

/// Qt would ask the font for the outline of every glyph of the text anew each time it is drawn.
void TextBlock::traceGlyphs()
{
    if (m_isTraced)
        return;
    m_isTraced = true;
    for (const QGlyphRun &run : m_layout->glyphRuns()) {
        const QRawFont font = run.rawFont();
        if (font.familyName() == emojiFontFamily()) {
            m_colourRuns.append(run);
            continue;
        }
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> positions = run.positions();
        QHash<quint32, QPainterPath> paths;
        for (qsizetype i = 0; i < glyphs.size(); ++i) {
            auto path = paths.constFind(glyphs.at(i));
            if (path == paths.cend())
                path = paths.insert(glyphs.at(i), font.pathForGlyph(glyphs.at(i)));
            m_outlines.append({*path, positions.at(i)});
        }
    }
}

/// Glyph by glyph: one path of them all takes the rasterizer longer.
void TextBlock::drawOutlines(QPainter &painter) const
{
    for (const QGlyphRun &run : m_colourRuns)
        painter.drawGlyphRun({}, run);
    painter.save();
    painter.setBrush(painter.pen().color());
    painter.setPen(Qt::NoPen);
    const QTransform origin = painter.worldTransform();
    for (const GlyphOutline &glyph : m_outlines) {
        painter.setWorldTransform(QTransform::fromTranslate(glyph.position.x(), glyph.position.y())
                                  * origin);
        painter.drawPath(glyph.path);
    }
    painter.restore();
}

} // namespace quenara
