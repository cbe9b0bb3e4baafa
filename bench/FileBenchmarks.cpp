#include "FileBenchmarks.h"

#include "ProcessMemory.h"
#include "ProjectCodec.h"
#include "ProjectFileService.h"
#include "ProjectGenerator.h"
#include "ProjectNormalizer.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimeZone>
#include <QUrl>

#include <cstdio>
#include <cstring>
#include <functional>

namespace quenara::bench {

namespace {

constexpr ProjectSize manySlides{.slideCount = 10'000, .itemCount = 200};
constexpr ProjectSize manyImages{.slideCount = 400, .itemCount = 10, .imageCount = 25};

QDateTime now()
{
    return QDateTime(QDate(2026, 3, 1), QTime(9, 30), QTimeZone::utc()).toUTC();
}

double timeOf(const std::function<qsizetype()> &operation)
{
    return nanoseconds([&](benchmark::State &state) {
        for ([[maybe_unused]] auto iteration : state)
            benchmark::DoNotOptimize(operation());
    });
}

/// A generated project as a document and as a file.
class Document
{
public:
    Document(const char *name, const ZelvoProject &project)
        : m_name(QString::fromLatin1(name)), m_project(project),
          m_bytes(ProjectCodec::encode(project))
    {
        QFile file(path());
        if (!file.open(QIODevice::WriteOnly) || file.write(m_bytes) != m_bytes.size())
            qFatal("cannot write %s", qPrintable(path()));
    }

    QString path() const { return m_folder.filePath(QStringLiteral("document.quenara")); }

    Figure loading(double limit) const
    {
        const double parsing =
            timeOf([this] { return QJsonDocument::fromJson(m_bytes).object().size(); });
        return {.name = title("loaded"),
                .value = timeOf([this] {
                    return ProjectFileService::load(QUrl::fromLocalFile(path()), now())
                        .serviceItems.size();
                }),
                .yardstickName = QStringLiteral("QJsonDocument, parsing"),
                .yardstick = parsing,
                .limit = limit * parsing};
    }

    /// Encoding beside a plain copy with \a allowance, in nanoseconds a byte, on top, and beside
    /// QJsonDocument.
    QList<Figure> encoding(double limit, double allowance) const
    {
        QByteArray target(m_bytes.size(), Qt::Uninitialized);
        const double copying = timeOf([&] {
            std::memcpy(target.data(), m_bytes.constData(), std::size_t(m_bytes.size()));
            benchmark::ClobberMemory();
            return target.size();
        });
        const QJsonDocument document = QJsonDocument::fromJson(m_bytes);
        const double writing = timeOf([&] { return document.toJson().size(); });
        const double value = timeOf([this] { return ProjectCodec::encode(m_project).size(); });
        return {{.name = title("encoded"),
                 .value = value,
                 .yardstickName = QStringLiteral("memcpy of the bytes"),
                 .yardstick = copying,
                 .limit = limit * copying + allowance * double(m_bytes.size())},
                {.name = title("encoded"),
                 .value = value,
                 .yardstickName = QStringLiteral("QJsonDocument, writing"),
                 .yardstick = writing,
                 .limit = writing}};
    }

    /// The resident memory that loading adds to a fresh process, at its peak and afterwards.
    QList<Figure> memory(std::optional<double> peakLimit, double settledLimit) const
    {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(),
                      {QString::fromLatin1(memoryArgument), path()});
        process.waitForFinished(-1);
        double peak = 0;
        double settled = 0;
        if (std::sscanf(process.readAllStandardOutput().constData(), "%lf %lf", &peak, &settled)
            != 2)
            qFatal("no memory figures");
        const auto size = double(m_bytes.size());
        const auto figure = [&](const char *what, double value, std::optional<double> limit) {
            return Figure{.name = title(what),
                          .value = value,
                          .yardstickName = QStringLiteral("the file"),
                          .yardstick = size,
                          .unit = Figure::Unit::bytes,
                          .limit = limit ? std::optional(*limit * size) : std::nullopt};
        };
        return {figure("memory at its peak", peak, peakLimit),
                figure("memory when loaded", settled, settledLimit)};
    }

private:
    QString title(const char *what) const
    {
        return QStringLiteral("%1, %2 MB: %3")
            .arg(m_name)
            .arg(m_bytes.size() / 1'000'000)
            .arg(QString::fromLatin1(what));
    }

    QString m_name;
    QTemporaryDir m_folder;
    ZelvoProject m_project;
    QByteArray m_bytes;
};

} // namespace

QList<Figure> fileFigures()
{
    QList<Figure> figures;
    {
        const ZelvoProject project = ProjectNormalizer::normalized(generateProject(manySlides));
        const Document document("10,000 slides", project);
        figures.append(document.loading(0.6));
        figures.append({.name = QStringLiteral("10,000 slides: normalized again"),
                        .value = timeOf([&] {
                            return ProjectNormalizer::normalized(project).serviceItems.size();
                        }),
                        .yardstickName = QStringLiteral("loaded"),
                        .yardstick = figures.constFirst().value});
    }
    const ZelvoProject once = generateProject(manyImages);
    {
        const Document document("25 pictures", once);
        constexpr double allowance = 60e6 / 100e6; // 60 ms for 100 MB
        figures += QList<Figure>{document.loading(1.3)} + document.encoding(1.5, allowance)
            + document.memory(3, 1.1);
    }
    const Document twice("25 pictures twice", ProjectNormalizer::normalized(once));
    return figures + twice.memory(3, 0.6);
}

void reportMemoryOfLoading(const QString &path)
{
    const double before = memoryStatus("VmRSS:");
    const ZelvoProject project = ProjectFileService::load(QUrl::fromLocalFile(path), now());
    std::printf("%f %f\n", memoryStatus("VmHWM:") - before, memoryStatus("VmRSS:") - before);
    benchmark::DoNotOptimize(project.serviceItems.size());
}

} // namespace quenara::bench
