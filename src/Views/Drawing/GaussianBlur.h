#pragma once

#include <QImage>

namespace quenara {

/// How a Gaussian is applied to a picture that is yet to be painted: where it is wide, to a smaller
/// one, which holds all that is left of it.
struct BlurPlan
{
    /// In pixels; one below a third counts as none, one beyond all measure as ten million.
    explicit BlurPlan(double standardDeviation);

    bool isNone() const { return sigma == 0; }

    int reduction = 1; ///< how many pixels each way one of the smaller picture stands for
    double sigma = 0; ///< in pixels of the smaller picture
    int reach = 0; ///< how far the blur goes beyond what it blurs, in whole pixels
};

/// \a image blurred like a Gaussian of standard deviation \a sigma pixels, by three box passes
/// each way. What lies outside the picture counts as transparent, so that its edges fade. Takes
/// Format_Alpha8 and Format_ARGB32_Premultiplied and gives back the same.
QImage gaussianBlurred(const QImage &image, double sigma);

} // namespace quenara
