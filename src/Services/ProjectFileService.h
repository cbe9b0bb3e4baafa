#pragma once

#include "ProjectFileError.h"
#include "ProjectModels.h"

#include <QDateTime>
#include <QString>
#include <QUrl>

namespace quenara {

/// Reads and writes project files. Stateless: a failure leaves nothing behind.
struct ProjectFileService
{
    /// The project document type: its file name extension, and the MIME type by that extension.
    static constexpr const char *fileExtension = "quenara";
    static constexpr const char *mimeType = "application/x-quenara";

    /// The project in the file, migrated and normalized. \a now stands in for a missing time of
    /// update. Throws ProjectFileError: unableToRead, or unsupportedFormat for what is neither a
    /// current nor a legacy document.
    [[nodiscard]] static ZelvoProject load(const QUrl &url, const QDateTime &now);

    /// Writes \a project, normalized and updated at \a now, as replaceFile() does, which gives
    /// \a version. Returns the project as the file holds it: what normalizing adds has new
    /// identifiers each time. Throws ProjectFileError: unableToWrite; or ProjectEncodingError.
    static ZelvoProject save(ZelvoProject project, const QUrl &url, const QDateTime &now,
                             QString *version = nullptr);
};

} // namespace quenara
