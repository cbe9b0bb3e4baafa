#pragma once

#include <QImage>

namespace quenara {

/// The largest standard deviation there is, in pixels; larger ones are cut to it.
inline constexpr double largestSigma = 200;

/// \a image blurred like a Gaussian of standard deviation \a sigma pixels, by three box passes
/// each way, at a reduced size where sigma is large. What lies outside the picture counts as
/// transparent, so that its edges fade. Takes Format_Alpha8 and Format_ARGB32_Premultiplied and
/// gives back the same; a sigma below a third of a pixel changes nothing.
QImage gaussianBlurred(const QImage &image, double sigma);

/// How far a blur of \a sigma reaches beyond what it blurs, in whole pixels.
int blurReach(double sigma);

/// By how much a picture can be smaller than it is shown when a blur of \a sigma is to follow: what
/// is left of it needs no more pixels.
int blurReduction(double sigma);

} // namespace quenara
