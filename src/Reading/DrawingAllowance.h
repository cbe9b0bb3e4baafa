#pragma once

#include <QtGlobal>

namespace quenara {

/// What a drawing and the drawings in it may still hold and take, all together.
struct DrawingAllowance
{
    int imagesWithin = 2; ///< levels of images within images
    /// Each as often as it is painted, a text or an image as several.
    qint64 elements = 100'000;
    /// Of paths, as often as they are painted; one of a text is as many as take as long.
    qint64 characters = qint64(16) << 20U;
    qint64 imagePixels = qint64(64) << 20U;
    double effort = 3e9; ///< nanoseconds, about, to read and paint; thrice those of one within
    /// Of these, what painting a drawing took at its own size, without those within.
    double paintingEffort = 0;

    /// False once that is more than was left.
    [[nodiscard]] bool spend(double nanoseconds)
    {
        effort -= nanoseconds;
        return effort >= 0;
    }
};

} // namespace quenara
