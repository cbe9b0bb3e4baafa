#include "TextBlock.h"

#include "DevicePixels.h"
#include "PaintingWorkarounds.h"
#include "RenderCaches.h"
#include "SlideFonts.h"

#include <QRawFont>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace quenara {

namespace {

/// The pixel size at which texts are laid out before they are scaled to their own: large enough
/// that rounding inside the font engine does not show.
constexpr int layoutPixelSize = 128;
constexpr double fitTolerance = 0.25; // canvas units of the font size
constexpr double finestFit = 1e-9; // of the font size, however large that is
constexpr double smallestFontSize = 0.1;
constexpr double largestCachedGlyph = 64; // device pixels; Qt holds bitmaps of smaller glyphs
constexpr qsizetype firstBeginning = 2000; // characters of a long text that are tried first

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

/// Whether a character is of a script without spaces of which only a dictionary tells the words.
bool needsDictionary(QChar character)
{
    switch (character.script()) {
    case QChar::Script_Thai:
    case QChar::Script_Lao:
    case QChar::Script_Khmer:
    case QChar::Script_Myanmar:
        return true;
    default:
        return false;
    }
}

/// How far down a line at \a baseline is moved to stand on a whole row of device pixels.
double toWholeRow(const QTransform &toDevice, double baseline)
{
    if (toDevice.type() > QTransform::TxScale)
        return 0;
    const double row = toDevice.map(QPointF(0, baseline)).y();
    return (std::floor(row + 0.5) - row) / toDevice.m22();
}

} // namespace

TextBlock::TextBlock(const TextElementProperties &text, const QSizeF &box, const TextLimits &limits)
    : m_text(text), m_box(std::max(0.0, box.width()), std::max(0.0, box.height())),
      m_limits(limits), m_layout(std::make_unique<QTextLayout>())
{
    QTextOption option(alignmentOf(m_text.alignment));
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(true);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    m_layout->setTextOption(option);
    m_layout->setCacheEnabled(true); // so that drawing shapes nothing again
    m_layout->setFont(slideFont(m_text.fontFamily, m_text.weight, layoutPixelSize));
    for (qsizetype length = firstBeginning; !setBeginning(length);)
        length *= 4;
}

/// Lays out no more than the first \a length characters of the text. False if there is room for
/// more of them.
bool TextBlock::setBeginning(qsizetype length)
{
    const bool isWhole = m_text.text.size() <= std::min(length, longestText);
    setShown(shownText(m_text, std::min(length, longestText)));
    if (isWhole) {
        layOut(1);
        const bool isBlank = m_shown.text.trimmed().isEmpty(); // of which nothing can be missed
        if (isBlank || doesFit())
            return true;
    }
    layOut(m_limits.smallestFit);
    m_isCut = !isWithinBox();
    if (m_isCut) {
        truncate();
    } else if (isWhole) {
        if (m_hasWholeWords)
            shrink();
    } else if (length < longestText) {
        return false;
    } else {
        m_isCut = true;
        setShown(truncated(m_shown, m_shown.text.size()));
        layOut(m_fit);
    }
    return true;
}

TextBlock::~TextBlock() = default;

void TextBlock::setShown(const ShownText &shown)
{
    m_shown = shown;
    m_breaks.reset();
    m_layout->setText(shown.text);
    // Of two that overlap, the later one counts.
    m_layout->setFormats(shown.scripts + shown.emoji);
}

double TextBlock::unit() const
{
    return unitAt(m_fit);
}

double TextBlock::unitAt(double fit) const
{
    return std::max(smallestFontSize, m_text.fontSize * fit) / layoutPixelSize;
}

void TextBlock::layOut(double fit)
{
    m_fit = fit;
    if (m_text.characterSpacing != 0) {
        QFont font = m_layout->font();
        font.setLetterSpacing(QFont::AbsoluteSpacing, m_text.characterSpacing / unit());
        m_layout->setFont(font);
    }
    const double width = m_box.width() / unit();
    const double spacing = std::max(0.0, layoutPixelSize * (m_text.lineHeight - 1));
    m_layout->beginLayout();
    double y = 0;
    QRectF covered;
    m_hasWholeWords = true;
    for (QTextLine line = m_layout->createLine(); line.isValid(); line = m_layout->createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(width);
        line.setPosition({0, y});
        covered |= QRectF(line.naturalTextRect().left(), y, line.naturalTextWidth(),
                          line.ascent() + line.descent());
        y += line.height() + spacing;
        m_hasWholeWords = m_hasWholeWords && mayBreak(line.textStart() + line.textLength());
        if (covered.height() * unit() > m_box.height()
            || m_layout->lineCount() > m_limits.lineMaximum)
            break; // it does not fit, whatever follows
    }
    m_layout->endLayout();
    m_bounds = QRectF(covered.left() * unit(), (m_box.height() - covered.height() * unit()) / 2,
                      covered.width() * unit(), covered.height() * unit());
}

/// Whether a line may end before the character at \a position, without breaking a word.
bool TextBlock::mayBreak(int position)
{
    const QString &text = m_shown.text;
    if (position >= text.size() || text.at(position - 1) == QChar::LineSeparator)
        return true;
    if (!m_breaks)
        m_breaks = QTextBoundaryFinder(QTextBoundaryFinder::Line, text);
    m_breaks->setPosition(position);
    return m_breaks->isAtBoundary()
        || (needsDictionary(text.at(position - 1)) && needsDictionary(text.at(position)));
}

bool TextBlock::isWithinBox() const
{
    return m_bounds.height() <= m_box.height() && m_layout->lineCount() <= m_limits.lineMaximum;
}

/// Whether the text fits if it is shrunk by \a fit, as far as that follows from \a lines: the width
/// and height of its lines when it was shrunk further. Lines that are not too wide at \a fit break
/// as they did. Larger letters never give fewer lines, nor lower ones if the text \a isOfOneFace.
std::optional<bool> TextBlock::wouldFit(double fit, const QSizeF &lines, bool isOfOneFace) const
{
    constexpr double rounding = 1; // of the layout's units, inside the font engine
    const bool isLow = lines.height() * unitAt(fit) <= m_box.height();
    if (m_text.characterSpacing == 0 && (lines.width() + rounding) * unitAt(fit) < m_box.width())
        return isLow;
    if (isOfOneFace && !isLow)
        return false;
    return std::nullopt;
}

/// Searches for the largest factor that fits, between the smallest, which does, and 1, which does
/// not.
void TextBlock::shrink()
{
    double fits = m_limits.smallestFit;
    double tooLarge = 1;
    QSizeF lines = m_bounds.size() / unit();
    const QList<QGlyphRun> runs = m_layout->glyphRuns();
    const bool isOfOneFace = std::all_of(runs.begin(), runs.end(), [&](const QGlyphRun &run) {
        return run.rawFont() == runs.constFirst().rawFont();
    });
    const double closeEnough = std::max(finestFit, fitTolerance / m_text.fontSize);
    while (tooLarge - fits > closeEnough) {
        const double middle = (fits + tooLarge) / 2;
        std::optional<bool> isFit = wouldFit(middle, lines, isOfOneFace);
        if (!isFit) {
            layOut(middle);
            isFit = doesFit();
            if (*isFit)
                lines = m_bounds.size() / unit();
        }
        (*isFit ? fits : tooLarge) = middle;
    }
    layOut(fits);
}

/// Ends the last line that fits in an ellipsis, for which characters at its end may have to go.
void TextBlock::truncate()
{
    const ShownText shown = m_shown;
    const QString &whole = shown.text;
    int fitting = 0;
    while (fitting < std::min(m_layout->lineCount(), m_limits.lineMaximum)
           && m_layout->lineAt(fitting).rect().bottom() * unit() <= m_box.height())
        ++fitting;
    const int lineCount = std::max(1, fitting);
    const QTextLine last = m_layout->lineAt(lineCount - 1);
    const int start = last.textStart();
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme,
                                   whole.first(start + last.textLength()));
    characters.toEnd();
    QList<qsizetype> ends; // where the text may be cut, the last first
    for (qsizetype at = characters.position(); at > start; at = characters.toPreviousBoundary()) {
        if (!whole.at(at - 1).isSpace() && whole.at(at - 1) != ellipsis)
            ends.append(at);
    }
    ends.append(start);
    const auto cutAt = [&](qsizetype kept) {
        setShown(truncated(shown, kept));
        layOut(m_fit);
        const QTextLine end = m_layout->lineAt(std::min(lineCount, m_layout->lineCount()) - 1);
        return end.textStart() + end.textLength() == m_layout->text().size();
    };
    // Far more than fit may have to go, as signs without a width do.
    const auto best = std::partition_point(ends.cbegin(), ends.cend() - 1,
                                           [&](qsizetype kept) { return !cutAt(kept); });
    cutAt(*best);
}

bool TextBlock::lacksLetters()
{
    if (m_lacksLetters)
        return *m_lacksLetters;
    gatherGlyphs();
    const auto hasBox = [](const QGlyphRun &run) { return run.glyphIndexes().contains(0); };
    m_lacksLetters = std::any_of(m_letters.begin(), m_letters.end(),
                                 [&](const LineLetters &letters) { return hasBox(letters.run); })
        || std::any_of(m_emoji.begin(), m_emoji.end(), hasBox);
    return *m_lacksLetters;
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

QRectF TextBlock::letterBounds(RenderCaches &caches)
{
    traceGlyphs(caches);
    return {m_ink.topLeft() * unit() + QPointF(0, m_bounds.top()), m_ink.size() * unit()};
}

QRectF TextBlock::inkBounds(RenderCaches &caches)
{
    QRectF ink = letterBounds(caches);
    if (!m_emoji.isEmpty()) {
        // A font does not say what the bitmaps of its glyphs cover.
        const double overhang =
            unit() * layoutPixelSize / 2 + std::max(0.0, -m_text.characterSpacing);
        ink |= m_bounds.adjusted(-overhang, -overhang, overhang, overhang);
    }
    return ink;
}

void TextBlock::draw(QPainter &painter, RenderCaches &caches, Placement placement)
{
    gatherGlyphs();
    painter.save();
    painter.translate(0, m_bounds.top());
    painter.scale(unit(), unit());
    drawEmoji(painter, caches);
    const double scale = deviceScale(painter);
    if (isOnPage(painter)) {
        drawOnPage(painter);
    } else if (scale * layoutPixelSize < largestCachedGlyph
               && placement == Placement::onWholeRows) {
        for (const LineLetters &letters : m_letters) {
            QGlyphRun run = letters.run;
            run.setRawFont(caches.fonts.font(run.rawFont(), scale));
            painter.drawGlyphRun({}, run);
        }
    } else {
        drawOutlines(painter, caches, placement);
    }
    painter.restore();
}

/// Collects the glyphs once. A layout looks for them each time that it is drawn.
void TextBlock::gatherGlyphs()
{
    if (m_areGathered)
        return;
    m_areGathered = true;
    const QList<QTextLayout::FormatRange> &emojis = m_shown.emoji;
    for (const QTextLayout::FormatRange &emoji : emojis)
        m_emoji += m_layout->glyphRuns(emoji.start, emoji.length);
    auto emoji = emojis.begin();
    for (int i = 0; i < m_layout->lineCount(); ++i) {
        const QTextLine line = m_layout->lineAt(i);
        const int end = line.textStart() + line.textLength();
        int start = line.textStart();
        for (; emoji != emojis.end() && emoji->start < end; ++emoji) {
            gatherLetters(line, start, emoji->start);
            start = emoji->start + emoji->length;
            if (start > end)
                break; // it goes on in the next line
        }
        gatherLetters(line, start, end);
    }
}

void TextBlock::gatherLetters(const QTextLine &line, int start, int end)
{
    if (start >= end)
        return;
    for (const QGlyphRun &run : line.glyphRuns(start, end - start))
        m_letters.append({run, line.y() + line.ascent()});
}

/// Draws each emoji that is in sight.
void TextBlock::drawEmoji(QPainter &painter, RenderCaches &caches)
{
    const QTransform toDevice = painter.deviceTransform();
    const QRectF visible = visibleDeviceRect(painter);
    for (const QGlyphRun &run : m_emoji) {
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> positions = run.positions();
        for (qsizetype i = 0; i < glyphs.size(); ++i) {
            const QRectF reach = EmojiImage::reach(run.rawFont()).translated(positions.at(i));
            if (toDevice.mapRect(reach).intersects(visible)) {
                caches.emoji.image(run.rawFont(), glyphs.at(i), deviceScale(painter))
                    .draw(painter, positions.at(i));
            }
        }
    }
}

/// Draws what stays text on the page, where the faces are made a part of the document.
void TextBlock::drawOnPage(QPainter &painter)
{
    for (const LineLetters &letters : m_letters) {
        const QPointF down(0, toWholeRow(painter.deviceTransform(), letters.baseline));
        painter.drawGlyphRun(down, letters.run);
    }
}

/// Collects the outlines once. Qt asks the font for those of large glyphs each time that they are
/// drawn.
void TextBlock::traceGlyphs(RenderCaches &caches)
{
    gatherGlyphs();
    if (!m_outlines.isEmpty())
        return;
    for (const auto &[run, baseline] : m_letters) {
        const QRawFont font = run.rawFont();
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> positions = run.positions();
        for (qsizetype i = 0; i < glyphs.size(); ++i) {
            m_outlines.append(
                {caches.outlines.outline(font, glyphs.at(i)), positions.at(i), baseline});
            m_ink |= m_outlines.constLast().path.controlPointRect().translated(positions.at(i));
        }
    }
}

/// Draws glyph by glyph: the rasterizer takes longer for one path of them all.
void TextBlock::drawOutlines(QPainter &painter, RenderCaches &caches, Placement placement)
{
    traceGlyphs(caches);
    painter.save();
    painter.setBrush(painter.pen().color());
    painter.setPen(Qt::NoPen);
    const QTransform origin = painter.worldTransform();
    const QTransform toDevice = painter.deviceTransform();
    for (const GlyphOutline &glyph : m_outlines) {
        const QPointF down(
            0, placement == Placement::onWholeRows ? toWholeRow(toDevice, glyph.baseline) : 0);
        const QPointF place = glyph.position + down;
        painter.setWorldTransform(QTransform::fromTranslate(place.x(), place.y()) * origin);
        painter.drawPath(glyph.path);
        releaseVectorRegisters(); // for the arithmetic of the next glyph's outline
    }
    painter.restore();
}

} // namespace quenara
