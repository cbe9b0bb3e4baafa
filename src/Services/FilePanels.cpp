#include "FilePanels.h"

#include "ProjectFileService.h"

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
    static const QStringList patterns = {
        QStringLiteral("*.png"),  QStringLiteral("*.jpg"),  QStringLiteral("*.jpeg"),
        QStringLiteral("*.webp"), QStringLiteral("*.gif"),  QStringLiteral("*.bmp"),
        QStringLiteral("*.tif"),  QStringLiteral("*.tiff"), QStringLiteral("*.svg"),
    };
    return {.kind = FilePanel::Kind::open,
            .content = FilePanel::Content::image,
            .title = QStringLiteral("Choose Image"),
            .filters = {{QStringLiteral("Images"), patterns}},
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

} // namespace quenara
