#pragma once

#include "ShownText.h"
#include "SlideDesignModels.h"

#include <QGlyphRun>
#include <QList>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>
#include <QSizeF>
#include <QStringList>
#include <QTextBoundaryFinder>

#include <limits>
#include <memory>
#include <optional>

class QTextLayout;

namespace quenara {

struct RenderCaches;

/// How far a text may be shrunk to fit, and into how many lines it may be laid out.
struct TextLimits
{
    double smallestFit = 0.45;
    int lineMaximum = std::numeric_limits<int>::max();

    bool operator==(const TextLimits &) const = default;
};

/// A text laid out in a box. All lengths are in canvas units and independent of any device, so that
/// the lines of a slide break alike at every size it is drawn at.
class TextBlock
{
public:
    /// The factor that a slide's text is shrunk by at most.
    static constexpr double smallestFit = TextLimits().smallestFit;

    /// The characters of a text that are laid out at most, far more than can be read on a slide:
    /// one that is longer is cut there. What it costs to lay a text out depends on what there is
    /// room for, not on its length.
    static constexpr qsizetype longestText = 32'000;

    /// Wraps \a text between words. Shrinks it, within \a limits, until it fits into \a box with
    /// every word whole. A word that is too long for a line even then is broken inside, and what
    /// does not fit is truncated.
    TextBlock(const TextElementProperties &text, const QSizeF &box, const TextLimits &limits = {});
    ~TextBlock();
    TextBlock(const TextBlock &) = delete;
    TextBlock &operator=(const TextBlock &) = delete;

    /// The factor that the font is shrunk by, from the limits' smallestFit to 1.
    double fit() const { return m_fit; }

    /// Whether the text does not fit even at its smallest, so that it ends in an ellipsis.
    bool isCut() const { return m_isCut; }

    /// Whether a letter is shown as a box, since no face of the machine has it.
    [[nodiscard]] bool lacksLetters();

    /// The shown text of each line, without what ends it.
    [[nodiscard]] QStringList lines() const;

    /// The lines of the shown text in units of their own, beginning at the left edge of the box and
    /// at the top of the bounds.
    const QTextLayout &layout() const { return *m_layout; }

    /// The map between the given text and that of the layout.
    const TextOffsetMap &offsets() const { return m_shown.offsets; }

    /// The length of one unit of the layout in canvas units.
    [[nodiscard]] double unit() const;

    /// What the lines cover, in the box's coordinates. Vertically centred in the box.
    QRectF bounds() const { return m_bounds; }

    /// What letters that are placed exactly cover, in the box's coordinates.
    [[nodiscard]] QRectF letterBounds(RenderCaches &caches);

    /// What letters and emoji cover at most.
    [[nodiscard]] QRectF inkBounds(RenderCaches &caches);

    /// Where lines stand: at the nearest row of device pixels, unless they are turned, or exactly.
    /// Exact is meant for letters too small for a difference; those of less than 64 device pixels
    /// take longer.
    enum class Placement { onWholeRows, exact };

    /// Draws in the painter's pen, with the box's top left at the origin of the painter's
    /// coordinates.
    void draw(QPainter &painter, RenderCaches &caches,
              Placement placement = Placement::onWholeRows);

private:
    /// Letters of one line, in the layout's units.
    struct LineLetters
    {
        QGlyphRun run;
        double baseline = 0;
    };

    struct GlyphOutline
    {
        QPainterPath path;
        QPointF position;
        double baseline = 0;
    };

    bool setBeginning(qsizetype length);
    void setShown(const ShownText &shown);
    void layOut(double fit);
    bool isWithinBox() const;
    bool doesFit() const { return m_hasWholeWords && isWithinBox(); }
    bool mayBreak(int position);
    double unitAt(double fit) const;
    std::optional<bool> wouldFit(double fit, const QSizeF &lines, bool isOfOneFace) const;
    void shrink();
    void truncate();
    void gatherGlyphs();
    void gatherLetters(const QTextLine &line, int start, int end);
    void traceGlyphs(RenderCaches &caches);
    void drawEmoji(QPainter &painter, RenderCaches &caches);
    void drawOnPage(QPainter &painter);
    void drawOutlines(QPainter &painter, RenderCaches &caches, Placement placement);

    TextElementProperties m_text;
    QSizeF m_box;
    TextLimits m_limits;
    ShownText m_shown;
    std::unique_ptr<QTextLayout> m_layout;
    double m_fit = 1;
    bool m_isCut = false;
    bool m_hasWholeWords = true;
    std::optional<QTextBoundaryFinder> m_breaks; ///< where lines may end, once that is asked for
    QRectF m_bounds;
    bool m_areGathered = false;
    std::optional<bool> m_lacksLetters; ///< once that is asked for
    QList<LineLetters> m_letters;
    QList<QGlyphRun> m_emoji; ///< in a face that has bitmaps instead of outlines
    QList<GlyphOutline> m_outlines; ///< of the letters; empty until they are needed
    QRectF m_ink; ///< what the outlines cover, in the layout's units
};

} // namespace quenara
