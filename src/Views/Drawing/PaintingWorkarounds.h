#pragma once

#include <QBrush>
#include <QCache>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <QRectF>

#include <functional>
#include <utility>

namespace quenara {

// What makes up for faults of Qt's raster painting, with the release that each was seen in. The
// table of work-arounds in ARCHITECTURE.md names the test that shows when one can go.

/// Fills with one colour leave the upper halves of the processor's vector registers in use (Qt
/// 6.4.2 with AVX2). Until something declares them unused, arithmetic in the lower halves takes up
/// to four times as long: 2.4 ms instead of 0.6 ms for a blur of 657 x 264 pixels. This declares
/// it, and does nothing on a processor without such registers.
void releaseVectorRegisters();

/// What covers more than 95 runs of pixels is filled by Qt's threads while the caller waits for
/// them (Qt 6.4.2). For a window's worth of pixels the wait takes longer than the filling, and on a
/// busy machine it has no bound. This has \a paint called for one band of \a bounds (the painter's
/// coordinates) after another, from top to bottom, each low enough to be filled without threads.
/// \a runs is the most runs of pixels that \a paint fills in one row. On a page, where nothing
/// waits and the seams would show, it is called once.
void paintInBands(QPainter &painter, const QRectF &bounds, int runs,
                  const std::function<void()> &paint);

/// QPainter::fillPath() in bands, for a shape without holes or notches.
void fillInBands(QPainter &painter, const QPainterPath &path, const QBrush &brush);

/// Bitmaps of a font's glyphs are held for the last ten scales that the font was painted at (Qt
/// 6.4.2). A show is seen at more scales than that, so that Qt would render the glyphs again for
/// every slide. This gives each scale a font of its own.
class ScaledFontCache
{
public:
    /// A font that looks the same as \a font to the pixel, for a painter that is scaled by \a scale
    /// and transformed in no other way.
    QRawFont font(const QRawFont &font, double scale);

private:
    static constexpr qsizetype maximum = 256; ///< more than the scales of all texts in sight

    QCache<std::pair<QRawFont, double>, QRawFont> m_fonts{maximum};
};

/// \a font with glyph bitmaps of its own, which go with its last copy; it looks the same to the
/// pixel. Fonts of one face and size share those that were drawn, and hold all of them until the
/// program ends (Qt 6.4.2). The boxes that stand for letters of no font stay as they are.
[[nodiscard]] QRawFont withOwnBitmaps(const QRawFont &font);

/// A face rounds the outlines that it gives differently after it was used at another size (Qt
/// 6.4.2). This loads the face in \a fileName for the caller alone, unhinted, so that its outlines
/// are always the same to the last bit.
[[nodiscard]] QRawFont unsharedFont(const QString &fileName, double pixelSize);

} // namespace quenara
