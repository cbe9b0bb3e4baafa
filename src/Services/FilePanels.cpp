#include "FilePanels.h"

#include "ProjectFileService.h"

#include <QImageReader>
#include <QMimeDatabase>

namespace quenara {

namespace {

QString projectSuffix()
{
    return QLatin1Char('.') + QLatin1String(ProjectFileService::fileExtension);
}

FilePanel::Filter projectFilter()
{
    return {QStringLiteral("Quenara projects"), {QLatin1Char('*') + projectSuffix()}};
}

/// The names of all pictures that can be read on this machine.
QStringList picturePatterns()
{
    // Nothing in what these hold tells them from other files.
    static const QList<QByteArray> unrecognizable{"image/svg+xml-compressed", "image/vnd.wap.wbmp",
                                                  "image/x-tga", "image/x-xbitmap"};
    // Cameras and browsers use it for JPEG, lists of file types not always.
    QStringList patterns{QStringLiteral("*.jfif")};
    for (const QByteArray &name : QImageReader::supportedMimeTypes()) {
        const QMimeType type = QMimeDatabase().mimeTypeForName(QLatin1String(name));
        if (type.name().startsWith(QLatin1String("image/")) && !unrecognizable.contains(name))
            patterns += type.globPatterns();
    }
    patterns.sort();
    patterns.removeDuplicates();
    return patterns;
}

} // namespace

FilePanel zelvoProjectOpenPanel()
{
    // The first choice shows both types that the panel accepts.
    const FilePanel::Filter jsonFilter{QStringLiteral("JSON files"), {QStringLiteral("*.json")}};
    const FilePanel::Filter both{QStringLiteral("Quenara projects and JSON files"),
                                 projectFilter().patterns + jsonFilter.patterns};
    return {.kind = FilePanel::Kind::open,
            .content = FilePanel::Content::project,
            .title = QStringLiteral("Open Quenara Project"),
            .filters = {both, projectFilter(), jsonFilter},
            .fileName = {},
            .defaultSuffix = {}};
}

FilePanel zelvoImageOpenPanel()
{
    const FilePanel::Filter allFiles{QStringLiteral("All files"), {QStringLiteral("*")}};
    return {.kind = FilePanel::Kind::open,
            .content = FilePanel::Content::image,
            .title = QStringLiteral("Choose Image"),
            .filters = {{QStringLiteral("All pictures"), picturePatterns()}, allFiles},
            .fileName = {},
            .defaultSuffix = {}};
}

FilePanel zelvoProjectSavePanel(const QString &defaultName)
{
    const bool hasSuffix = defaultName.endsWith(projectSuffix());
    return {.kind = FilePanel::Kind::save,
            .content = FilePanel::Content::project,
            .title = QStringLiteral("Save Quenara Project"),
            .filters = {projectFilter()},
            .fileName = hasSuffix ? defaultName : defaultName + projectSuffix(),
            .defaultSuffix = QLatin1String(ProjectFileService::fileExtension)};
}

FilePanel exportedPagesPanel(const QString &defaultName)
{
    const QString suffix = QStringLiteral("pdf");
    return {.kind = FilePanel::Kind::save,
            .content = FilePanel::Content::exported,
            .title = QStringLiteral("Export as PDF"),
            .filters = {{QStringLiteral("PDF documents"), {QStringLiteral("*.") + suffix}}},
            .fileName = QStringLiteral("%1.%2").arg(defaultName, suffix),
            .defaultSuffix = suffix};
}

FilePanel exportedPicturesPanel()
{
    return {.kind = FilePanel::Kind::folder,
            .content = FilePanel::Content::exported,
            .title = QStringLiteral("Choose Where the Folder of Pictures Goes"),
            .filters = {},
            .fileName = {},
            .defaultSuffix = {}};
}

QString proposedName(const QString &projectName)
{
    constexpr qsizetype longestName = 200; // that file systems have room for in all writings
    return projectName.isEmpty() ? QStringLiteral("Quenara") : projectName.left(longestName);
}

} // namespace quenara
