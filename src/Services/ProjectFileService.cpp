#include "ProjectFileService.h"

#include "ProjectCodec.h"
#include "ProjectNormalizer.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

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

/// Brings what was last renamed in \a folder to the disk, where the platform has a way to. The file
/// itself is safe already; without this a loss of power might bring the old one back.
void synchronize(const QString &folder)
{
#ifdef Q_OS_UNIX
    const int descriptor =
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
#else
    Q_UNUSED(folder)
#endif
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
    QSaveFile file(url.toLocalFile());
    if (!bytes || !url.isLocalFile() || !file.open(QIODevice::WriteOnly)
        || file.write(*bytes) != bytes->size() || !file.commit())
        throw ProjectFileError(ProjectFileError::unableToWrite);
    synchronize(QFileInfo(url.toLocalFile()).canonicalPath());
}

} // namespace quenara
