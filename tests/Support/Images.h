#pragma once

#include "SlideMedia.h"

#include <QImage>

namespace quenara::test {

/// Red, green, blue and white quarters, from the top left on.
QImage quarters(const QSize &size);

/// True if the image shows these quarters upright, as far as a lossy format tells.
bool showsQuarters(const QImage &image);

/// The bytes of a file in \a format.
QByteArray encoded(const QImage &image, const char *format);

SlideMedia mediaOf(const QByteArray &bytes);

} // namespace quenara::test
