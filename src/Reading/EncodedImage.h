#pragma once

#include <QByteArrayView>

namespace quenara {

/// Whether the bytes of an image file end before the image does, as far as its structure tells: of
/// a JPEG, PNG, GIF, WebP or BMP. Qt's readers paint what is there of some of these. Of other
/// formats and of what is no image, false.
[[nodiscard]] bool endsEarly(QByteArrayView image);

} // namespace quenara
