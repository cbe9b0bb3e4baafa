#include "ProjectFileService.h"

#include "FileReading.h"
#include "FileReplacement.h"
#include "ProjectCodec.h"
#include "ProjectNormalizer.h"

#include <new>

namespace quenara {

namespace {

ZelvoProject loaded(const QUrl &url, const QDateTime &now)
{
    std::optional<QByteArray> bytes = wholeFile(url);
    if (!bytes)
        throw ProjectFileError(ProjectFileError::unableToRead);
    std::optional<DecodedDocument> document = ProjectCodec::decode(*std::move(bytes));
    if (!document)
        throw ProjectFileError(ProjectFileError::unsupportedFormat);
    if (const auto *legacy = std::get_if<LegacyQuenaraDocument>(&*document))
        return ProjectNormalizer::project(*legacy, now);
    return ProjectNormalizer::normalized(std::get<ZelvoProject>(std::move(*document)));
}

bool isSaved(const ZelvoProject &project, const QUrl &url, const QDateTime &now)
{
    const std::optional<QByteArray> bytes =
        ProjectCodec::encode(ProjectNormalizer::normalizedForSave(project, now));
    return bytes && bytes->size() <= largestFile && url.isLocalFile()
        && replaceFile(url.toLocalFile(), *bytes);
}

} // namespace

// A document may need more memory than there is; the service goes on all the same.

ZelvoProject ProjectFileService::load(const QUrl &url, const QDateTime &now)
{
    try {
        return loaded(url, now);
    } catch (const std::bad_alloc &) {
        throw ProjectFileError(ProjectFileError::unableToRead);
    }
}

void ProjectFileService::save(const ZelvoProject &project, const QUrl &url, const QDateTime &now)
{
    try {
        if (isSaved(project, url, now))
            return;
    } catch (const std::bad_alloc &) {
        // Like any other reason.
    }
    throw ProjectFileError(ProjectFileError::unableToWrite);
}

} // namespace quenara
