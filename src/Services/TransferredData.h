#pragma once

#include "SlideMedia.h"

#include <QList>
#include <QUrl>

#include <optional>

class QMimeData;

namespace quenara {

// What other programs hand over, by the clipboard or by a drop. Files are told by their names alone
// until they are taken: neither what they hold nor whether they are there.

/// The files of this computer that \a data names.
[[nodiscard]] QList<QUrl> filesIn(const QMimeData &data);

/// The first project, the first text, by its name, among those files.
[[nodiscard]] std::optional<QUrl> projectFileIn(const QMimeData &data);
[[nodiscard]] std::optional<QUrl> textFileIn(const QMimeData &data);

/// Whether imageIn() is worth asking.
[[nodiscard]] bool mayHoldImage(const QMimeData &data);

/// The first image among the files; without files, the image that \a data itself is. As
/// imageFromFile().
[[nodiscard]] std::optional<SlideMedia> imageIn(const QMimeData &data);

} // namespace quenara
