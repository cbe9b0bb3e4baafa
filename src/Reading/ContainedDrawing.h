#pragma once

#include <QByteArray>

namespace quenara {

/// What a drawing and the drawings in it may still hold, all together.
struct DrawingAllowance
{
    int imagesWithin = 2; ///< levels of images within images
    /// Each as often as it is painted, an image as several by its size.
    qint64 elements = 100'000;
    /// Of paths, as often as they are painted; one of a text is as many as take as long.
    qint64 characters = qint64(16) << 20U;
    qint64 imagePixels = qint64(64) << 20U;
    double paintingEffort = 2e9; ///< as paintingEffort() counts it; thrice that of one within
};

/// The drawing (SVG, compressed or not) without all that leads out of its own bytes: references
/// that neither name a part of it ("#...") nor hold an image ("data:") are gone, and so are the
/// document type, processing instructions and imported style sheets. Its entities are not expanded.
///
/// Empty if the bytes are no well-formed XML, hold or take to paint more than \a allowance, from
/// which that is taken, or are nested too deeply.
[[nodiscard]] QByteArray containedDrawing(const QByteArray &bytes, DrawingAllowance &allowance);

} // namespace quenara
