#pragma once

#include <QHash>
#include <QPainterPath>
#include <QRawFont>

namespace quenara {

/// The outlines of the large letters that were drawn. A font takes longer to give an outline than
/// it takes to fill it.
class GlyphOutlineCache
{
public:
    /// More than the letters of a service.
    static constexpr qsizetype usualMaximum = 8192;

    explicit GlyphOutlineCache(qsizetype maximum = usualMaximum) : m_maximum(maximum) {}

    /// The outline of a glyph, its origin at the left end of the baseline.
    QPainterPath outline(const QRawFont &font, quint32 glyph);

    /// How many outlines are held; never more than the maximum, at which the cache begins anew.
    qsizetype count() const { return m_count; }

private:
    qsizetype m_maximum;
    qsizetype m_count = 0;
    QHash<QRawFont, QHash<quint32, QPainterPath>> m_fonts;
};

} // namespace quenara
