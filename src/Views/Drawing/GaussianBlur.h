#pragma once

#include <QImage>

namespace quenara {

/// How an image is painted and blurred by a Gaussian. For a wide blur it is painted smaller, which
/// loses nothing that the blur would leave.
struct BlurPlan
{
    /// \a standardDeviation is in pixels. Less than a third of one counts as no blur, more than ten
    /// million as ten million.
    explicit BlurPlan(double standardDeviation);

    int reduction = 1; ///< how many pixels each way one pixel of the smaller image stands for
    double sigma = 0; ///< standard deviation in pixels of the smaller image
    int reach = 0; ///< how far beyond its content the blur is seen, in whole pixels
};

/// \a image blurred like a Gaussian of standard deviation \a sigma pixels, by three box passes
/// each way. What lies outside the image counts as transparent, so that its edges fade. Takes
/// Format_Alpha8 and Format_ARGB32_Premultiplied and returns the same format.
[[nodiscard]] QImage gaussianBlurred(const QImage &image, double sigma);

} // namespace quenara
