#include "ProjectFileService.h"

#include "FileReplacement.h"
#include "ProjectCodec.h"
#include "ProjectNormalizer.h"

#include <QFile>
#include <QFileInfo>

namespace quenara {

namespace {

QByteArray contents(const QUrl &url)
{
    // A pipe or a device might never come to its end.
    QFile file(url.toLocalFile());
    if (!url.isLocalFile() || !QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        throw ProjectFileError(ProjectFileError::unableToRead);
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw ProjectFileError(ProjectFileError::unableToRead);
    return bytes;
}

} // namespace

ZelvoProject ProjectFileService::load(const QUrl &url, const QDateTime &now)
{
    std::optional<DecodedDocument> document = ProjectCodec::decode(contents(url));
    if (!document)
        throw ProjectFileError(ProjectFileError::unsupportedFormat);
    if (const auto *legacy = std::get_if<LegacyQuenaraDocument>(&*document))
        return ProjectNormalizer::project(*legacy, now);
    return ProjectNormalizer::normalized(std::get<ZelvoProject>(std::move(*document)));
}

void ProjectFileService::save(const ZelvoProject &project, const QUrl &url, const QDateTime &now)
{
    const std::optional<QByteArray> bytes =
        ProjectCodec::encode(ProjectNormalizer::normalizedForSave(project, now));
    if (!bytes || !url.isLocalFile() || !replaceFile(url.toLocalFile(), *bytes))
        throw ProjectFileError(ProjectFileError::unableToWrite);
}

} // namespace quenara
