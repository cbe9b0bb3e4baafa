#pragma once

#include "SlideMedia.h"

#include <QUrl>

#include <optional>

namespace quenara {

/// The image in a file as media to embed: all bytes of the file, the MIME type that its content
/// (not its name) tells, and the file's name. Nothing if the file cannot be read, is no image that
/// can be shown, ends before its image does, or is too large to be part of a document. Needs a
/// QGuiApplication.
[[nodiscard]] std::optional<SlideMedia> imageFromFile(const QUrl &url);

/// The same for the bytes of such a file, to be called \a name.
[[nodiscard]] std::optional<SlideMedia> imageFromBytes(const QByteArray &bytes,
                                                       const QString &name);

} // namespace quenara
