#include "ExtremeBenchmarks.h"

#include "Identifier.h"
#include "ProjectCodec.h"
#include "ProjectTemplates.h"
#include "WalkThrough.h"

#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTimeZone>

#include <optional>

namespace quenara::bench {

namespace {

// What a document of a megabyte may cost, and one of 10,000 layers.
constexpr double smallOpening = 1e9; ///< nanoseconds
constexpr double smallMemory = 200e6; ///< bytes beyond the program's own
constexpr double smallStep = 100e6; ///< nanoseconds
constexpr double longestWait = 1e9; ///< nanoseconds for anything in a document of 10 MB

struct Extreme
{
    const char *name;
    QByteArray document;
    bool isSmall; ///< whether it keeps to what a small document may cost
};

/// As many words as have \a size characters.
QString words(qsizetype size)
{
    return QStringLiteral("Great is the morning, bright with mercy. ")
        .repeated(size / 40)
        .first(size);
}

ZelvoProject startingProject()
{
    return ProjectTemplates::demoProject(
        QDateTime(QDate(2026, 3, 1), QTime(9, 30), QTimeZone::utc()).toUTC());
}

SlideElement layer(SlideElementKind kind, std::int64_t zIndex)
{
    SlideElement layer;
    layer.id = newIdentifier();
    layer.name = QStringLiteral("Layer");
    layer.kind = kind;
    layer.frame = {200, 200, 800, 300};
    layer.zIndex = zIndex;
    return layer;
}

/// The demo service, the first slide of which \a edit changes.
template<class Edit>
QByteArray withFirstSlide(Edit edit)
{
    ZelvoProject project = startingProject();
    edit(project.serviceItems.first().slides.first());
    return ProjectCodec::encode(project);
}

/// The demo service with only \a count layers that \a make gives on its first slide.
template<class Make>
QByteArray withLayers(int count, Make make)
{
    return withFirstSlide([&](Slide &slide) {
        slide.design.elements.clear();
        for (int i = 0; i < count; ++i)
            slide.design.elements.append(make(i));
    });
}

QByteArray emptySlides(qsizetype count)
{
    const QByteArray slides = QByteArray("{},").repeated(count).chopped(1);
    return R"({"id":"A","name":"A","schemaVersion":2,"kind":"custom",)"
           R"("updatedAt":"2026-03-01T09:30:00Z","serviceItems":[{"id":"B","title":"B",)"
           R"("type":"custom","orderIndex":0,"slides":[)"
        + slides + "]}]}";
}

/// In the flat layout of older documents.
QByteArray emptyLegacySlides(qsizetype count)
{
    return R"({"title":"A","slides":[)" + QByteArray("{},").repeated(count).chopped(1) + "]}";
}

QByteArray withName(const QString &name)
{
    ZelvoProject project = startingProject();
    project.name = name;
    return ProjectCodec::encode(project);
}

SlideElement shapeLayer(int zIndex)
{
    SlideElement shape = layer(SlideElementKind::shape, zIndex);
    shape.shape = ShapeProperties{.fill = RGBAColor::amber, .stroke = {}};
    return shape;
}

SlideElement textLayer(const QString &text, int zIndex = 0)
{
    SlideElement element = layer(SlideElementKind::text, zIndex);
    element.text = TextElementProperties::lyric(text);
    return element;
}

SlideElement lowerThirdLayer(const QString &text)
{
    SlideElement element = layer(SlideElementKind::lowerThird, 0);
    element.lowerThird =
        LowerThirdProperties{.title = text, .subtitle = text, .fill = {}, .accent = {}};
    return element;
}

QList<Extreme> extremes()
{
    constexpr qsizetype large = 10'000'000;
    const QString text = words(large);
    return {
        {"300,000 empty slides", emptySlides(300'000), true},
        {"300,000 empty slides of the older layout", emptyLegacySlides(300'000), true},
        {"10,000 layers", withLayers(10'000, shapeLayer), true},
        {"700 lyrics with shadows",
         withLayers(700, [](int i) { return textLayer(QStringLiteral("Grace"), i); }), true},
        {"a project name of 250,000 characters", withName(words(250'000)), true},
        {"a subtitle of 100,000 characters",
         withLayers(1, [](int) { return lowerThirdLayer(words(100'000)); }), true},
        {"a project name of 10 MB", withName(text), false},
        {"a title of 10 MB", withFirstSlide([&](Slide &slide) { slide.title = text; }), false},
        {"a text of 10 MB", withLayers(1, [&](int) { return textLayer(text); }), false},
        {"a text of 10 MB without a space",
         withLayers(1, [](int) { return textLayer(QString(large, u'M')); }), false},
        {"a subtitle of 10 MB", withLayers(1, [&](int) { return lowerThirdLayer(text); }), false},
        {"a layer's name of 10 MB",
         withLayers(1,
                    [&](int) {
                        SlideElement element = shapeLayer(0);
                        element.name = text;
                        return element;
                    }),
         false},
    };
}

QList<Figure> figuresOf(const Extreme &extreme, const QString &path)
{
    Times parsing;
    parsing.measure(
        [&] { benchmark::DoNotOptimize(QJsonDocument::fromJson(extreme.document).isNull()); });
    const WalkThrough taken = walkThrough(path);
    const auto figure = [&](const char *what, double value, std::optional<double> limit) {
        return Figure{
            .name = QStringLiteral("%1: %2").arg(QLatin1String(extreme.name), QLatin1String(what)),
            .value = value,
            .yardstickName = QStringLiteral("QJsonDocument, parsing"),
            .yardstick = parsing.best(),
            .limit = limit};
    };
    const double wait = extreme.isSmall ? smallStep : longestWait;
    QList<Figure> figures{
        figure("opened", taken.opening, extreme.isSmall ? smallOpening : longestWait),
        figure("the slowest step", taken.slowestStep, wait),
        figure("a letter of the title", taken.letter,
               extreme.isSmall ? std::nullopt : std::optional(longestWait))};
    if (extreme.isSmall) {
        figures.append({.name = QStringLiteral("%1: memory").arg(QLatin1String(extreme.name)),
                        .value = taken.memory,
                        .yardstickName = QStringLiteral("the file"),
                        .yardstick = double(extreme.document.size()),
                        .unit = Figure::Unit::bytes,
                        .limit = smallMemory});
    }
    return figures;
}

} // namespace

QList<Figure> extremeFigures()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("extreme.quenara"));
    QList<Figure> figures;
    for (const Extreme &extreme : extremes()) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)
            || file.write(extreme.document) != extreme.document.size())
            qFatal("cannot write %s", qPrintable(path));
        file.close();
        figures += figuresOf(extreme, path);
    }
    return figures;
}

} // namespace quenara::bench
