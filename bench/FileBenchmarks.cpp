#include "FileBenchmarks.h"

#include "ProjectCodec.h"
#include "ProjectGenerator.h"
#include "ProjectNormalizer.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <functional>

namespace quenara::bench {

namespace {

double timeOf(const std::function<qsizetype()> &operation)
{
    return nanoseconds([&](benchmark::State &state) {
        for ([[maybe_unused]] auto iteration : state)
            benchmark::DoNotOptimize(operation());
    });
}

} // namespace

QList<Figure> fileFigures()
{
    const ZelvoProject project = ProjectNormalizer::normalized(generateProject({}));
    const QByteArray bytes = ProjectCodec::encode(project).value();
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    const double parsing = timeOf([&] { return QJsonDocument::fromJson(bytes).object().size(); });
    const double writing = timeOf([&] { return document.toJson().size(); });
    const QString parser = QStringLiteral("QJsonDocument, parsing");
    const QString writer = QStringLiteral("QJsonDocument, writing");
    return {
        {.name = QStringLiteral("a document of %1 MB decoded").arg(bytes.size() / 1'000'000),
         .value = timeOf([&] { return qsizetype(ProjectCodec::decode(bytes).has_value()); }),
         .yardstickName = parser,
         .yardstick = parsing},
        {.name = QStringLiteral("a project normalized"),
         .value =
             timeOf([&] { return ProjectNormalizer::normalized(project).serviceItems.size(); }),
         .yardstickName = parser,
         .yardstick = parsing},
        {.name = QStringLiteral("a project encoded"),
         .value = timeOf([&] { return ProjectCodec::encode(project)->size(); }),
         .yardstickName = writer,
         .yardstick = writing},
    };
}

} // namespace quenara::bench
