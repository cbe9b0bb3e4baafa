#pragma once

#include <QImage>
#include <QRectF>
#include <QSize>

namespace quenara {

/// \a part of \a image (in its pixels) with \a size pixels, by a Lanczos filter of two lobes as
/// wide as the larger of an old and a new pixel: what is reduced shows no patterns that are not
/// there, what is enlarged no steps. What has its size already is copied, and one colour stays that
/// colour. Takes Format_RGB32 and Format_ARGB32_Premultiplied and returns the same format; null if
/// there is nothing to take or no memory.
[[nodiscard]] QImage resampled(const QImage &image, const QRectF &part, const QSize &size);

} // namespace quenara
