#include "ProjectFileService.h"

#include "FileReading.h"
#include "FileReplacement.h"
#include "ProjectCodec.h"
#include "ProjectNormalizer.h"

#include <QFileInfo>

#include <algorithm>
#include <new>
#include <utility>

namespace quenara {

namespace {

ZelvoProject loaded(const QUrl &url, const QDateTime &now)
{
    json::MediaDetacher bytes;
    bytes.reserve(qsizetype(std::min(QFileInfo(url.toLocalFile()).size(), largestFile)));
    if (!readFile(url, [&bytes](QByteArrayView piece) { bytes.append(piece); }))
        throw ProjectFileError(ProjectFileError::unableToRead);
    std::optional<DecodedDocument> document = ProjectCodec::decode(bytes.finish());
    if (!document)
        throw ProjectFileError(ProjectFileError::unsupportedFormat);
    if (const auto *legacy = std::get_if<LegacyQuenaraDocument>(&*document))
        return ProjectNormalizer::project(*legacy, now);
    return ProjectNormalizer::normalized(std::get<ZelvoProject>(std::move(*document)));
}

/// False if the project could not be written.
bool write(const ZelvoProject &project, const QUrl &url, QString *version)
{
    const QByteArray bytes = ProjectCodec::encode(project);
    return bytes.size() <= largestFile && url.isLocalFile()
        && replaceFile(url.toLocalFile(), bytes, version);
}

} // namespace

// A document may need more memory than there is, which is a failure like any other.

ZelvoProject ProjectFileService::load(const QUrl &url, const QDateTime &now)
{
    try {
        return loaded(url, now);
    } catch (const std::bad_alloc &) {
        throw ProjectFileError(ProjectFileError::unableToRead);
    }
}

ZelvoProject ProjectFileService::save(ZelvoProject project, const QUrl &url, const QDateTime &now,
                                      QString *version)
{
    try {
        project = ProjectNormalizer::normalizedForSave(std::move(project), now);
        if (write(project, url, version))
            return project;
    } catch (const std::bad_alloc &) {
        // Falls through to the error below.
    }
    throw ProjectFileError(ProjectFileError::unableToWrite);
}

} // namespace quenara
