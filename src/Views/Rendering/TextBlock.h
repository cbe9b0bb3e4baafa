#pragma once

#include "SlideDesignModels.h"

#include <QGlyphRun>
#include <QList>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>
#include <QSizeF>
#include <QStringList>

#include <memory>

class QTextLayout;

namespace quenara {

/// A text laid out in a box. Everything is in canvas units and independent of any device, so that
/// a slide breaks its lines alike at every size it is drawn at.
class TextBlock
{
public:
    /// The smallest factor that a text is shrunk by to fit; below it, it is truncated.
    static constexpr double smallestFit = 0.45;

    /// Wraps \a text at words, then inside a word that alone is too long, and shrinks it as far as
    /// it must to fit into \a box.
    TextBlock(const TextElementProperties &text, const QSizeF &box);
    ~TextBlock();
    TextBlock(const TextBlock &) = delete;
    TextBlock &operator=(const TextBlock &) = delete;

    /// The factor the font is shrunk by: smallestFit to 1.
    double fit() const { return m_fit; }

    QStringList lines() const;

    /// What the lines cover, in the box's coordinates; vertically centred in it.
    QRectF bounds() const { return m_bounds; }

    /// The bounds with room for what letters reach beyond their line.
    QRectF inkBounds() const;

    /// How letters of less than 64 device pixels are placed; larger ones are always exact.
    enum class Placement { onWholeRows, exact };

    /// Draws in the painter's pen, the box's top left at the origin of its coordinates.
    void draw(QPainter &painter, Placement placement = Placement::onWholeRows);

private:
    struct GlyphOutline
    {
        QPainterPath path;
        QPointF position;
    };

    void layOut(double fit);
    void truncate();
    void traceGlyphs();
    void drawOutlines(QPainter &painter) const;

    const TextElementProperties &m_text;
    QSizeF m_box;
    QString m_string;
    std::unique_ptr<QTextLayout> m_layout;
    double m_fit = 1;
    QRectF m_bounds;
    bool m_isTraced = false;
    QList<GlyphOutline> m_outlines;
    QList<QGlyphRun> m_colourRuns; ///< drawn as the pictures they are
};

} // namespace quenara
