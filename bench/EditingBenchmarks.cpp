#include "EditingBenchmarks.h"

#include "BenchStore.h"
#include "EveryEdit.h"
#include "ProjectGenerator.h"
#include "Show.h"
#include "SlideSearch.h"

#include <cstring>
#include <vector>

namespace quenara::bench {

namespace {

constexpr ProjectSize manySlides{.slideCount = 10'000, .itemCount = 200};
constexpr ProjectSize someSlides{.slideCount = 1'000, .itemCount = 20};
constexpr double editLimit = 4e6; ///< nanoseconds, with many slides
constexpr int editCount = 60;
constexpr qsizetype stride = 166; ///< spreads the edited slides over the whole show
constexpr double frame = 1e9 / 60; ///< nanoseconds
constexpr double heapLimit = 8.0 * 1024 * 1024;

/// A store on a generated project.
struct Workspace : BenchStore
{
    explicit Workspace(const ProjectSize &size) : BenchStore(generateProject(size)) {}

    QString slideID(qsizetype absolute) const
    {
        return slideAt(store.project(), *positionAt(store.project(), absolute)).id;
    }

    /// Selects the slide and its last layer.
    void select(const QString &id)
    {
        store.selectSlide(id, true);
        store.selectElement(store.slideWithID(id)->design.elements.constLast().id);
    }

    void rewriteText()
    {
        const QString text = QStringLiteral("Edit %1").arg(++m_editNumber);
        store.updateSelectedSlide([&text](Slide &slide) {
            slide.design.elements[0].text = TextElementProperties::lyric(text);
        });
    }

    /// Takes one step of a drag.
    void drag()
    {
        store.updateSelectedElement([](SlideElement &element) { element.frame.x += 1; });
    }

private:
    int m_editNumber = 0;
};

/// A plain copy of the bytes of all slide records.
double copyOfTheSlides(const ZelvoProject &project)
{
    std::vector<std::byte> bytes(std::size_t(slideCount(project)) * sizeof(Slide));
    return nanoseconds([&](benchmark::State &state) {
        for ([[maybe_unused]] auto iteration : state) {
            std::byte *end = bytes.data();
            for (const ServiceItem &item : project.serviceItems) {
                const std::size_t count = std::size_t(item.slides.size()) * sizeof(Slide);
                std::memcpy(end, static_cast<const void *>(item.slides.constData()), count);
                end += count;
            }
            benchmark::DoNotOptimize(bytes.data());
            benchmark::ClobberMemory();
        }
    });
}

Figure heapGrowth()
{
    const double atFirst = heapInUse();
    Workspace workspace(manySlides);
    const double before = heapInUse();
    for (int i = 1; i <= editCount; ++i) {
        workspace.store.selectSlide(workspace.slideID(i * stride), true);
        workspace.rewriteText();
    }
    return {.name = QStringLiteral("heap growth of 60 edits"),
            .value = heapInUse() - before,
            .yardstickName = QStringLiteral("heap of the whole project"),
            .yardstick = before - atFirst,
            .unit = Figure::Unit::bytes,
            .limit = heapLimit};
}

/// The slowest of many things that were measured.
struct Worst
{
    const char *name = "";
    double value = 0;

    void take(const char *other, double time)
    {
        if (time > value)
            *this = {other, time};
    }
};

struct WorstTimes
{
    Worst edit;
    Worst undo;
    Worst redo;
};

/// Measures every edit of the slide, its undo and its redo, each by the fastest of several runs.
void measureEdits(Workspace &workspace, const QString &slideID, WorstTimes &worst)
{
    constexpr int runs = 12;
    WorkspaceStore &store = workspace.store;
    // Each operation has to drop a flattened show, so one is made before it.
    const auto timeOf = [&store](Times &times, const std::function<void()> &operation) {
        benchmark::DoNotOptimize(store.flattenedSlides().size());
        times.measure(operation);
    };
    for (const test::NamedEdit &edit : test::everyEdit()) {
        Times editing;
        Times undoing;
        Times redoing;
        bool isStep = true; // false where an edit has nothing to do
        for (int i = 0; i < runs && isStep; ++i) {
            workspace.select(slideID);
            const ZelvoProject before = store.project();
            timeOf(editing, [&] { edit.run(store); });
            isStep = store.undoStore().undoStack().constLast() == before;
            if (!isStep)
                break;
            timeOf(undoing, [&] { store.undo(); });
            timeOf(redoing, [&] { store.redo(); });
            store.undo();
        }
        if (!isStep)
            continue;
        worst.edit.take(edit.name, editing.best());
        worst.undo.take(edit.name, undoing.best());
        worst.redo.take(edit.name, redoing.best());
    }
}

/// The worst of all edits at both ends and in the middle of a show, with a full history.
QList<Figure> worstEdits(const ProjectSize &size, double limit)
{
    Workspace workspace(size);
    workspace.select(workspace.slideID(size.slideCount / 2));
    for (int i = 0; i < editCount; ++i)
        workspace.rewriteText();
    WorstTimes worst;
    for (const int place : {0, size.slideCount / 2, size.slideCount - 1})
        measureEdits(workspace, workspace.slideID(place), worst);

    const double yardstick = copyOfTheSlides(workspace.store.project());
    const auto figure = [&](const char *what, const Worst &slowest) {
        return Figure{.name =
                          QStringLiteral("%1 slides, %2: %3")
                              .arg(size.slideCount)
                              .arg(QString::fromLatin1(what), QString::fromLatin1(slowest.name)),
                      .value = slowest.value,
                      .yardstickName = QStringLiteral("memcpy of the slide records"),
                      .yardstick = yardstick,
                      .limit = limit};
    };
    return {figure("edit", worst.edit), figure("undo", worst.undo), figure("redo", worst.redo)};
}

/// A drag on the last slide of an item in which every slide has a photograph of its own.
Figure dragAmongImages()
{
    Workspace workspace({.slideCount = 25, .itemCount = 1, .imageCount = 25});
    workspace.select(workspace.slideID(24));
    workspace.store.beginGesture();
    return {.name = QStringLiteral("a step of a drag among 25 pictures"),
            .value = nanosecondsOf([&] { workspace.drag(); }, [] {}),
            .yardstickName = QStringLiteral("memcpy of the slide records"),
            .yardstick = copyOfTheSlides(workspace.store.project()),
            .limit = editLimit};
}

/// Each letter that is typed to find a slide, the slowest of the first letters and of a few words.
Figure letterOfASearch(const WorkspaceStore &store)
{
    const SlideSearch search(store.flattenedSlides());
    Worst letter;
    for (const char *words : {"a", "e", "s", "t", "verse", "the morning light"}) {
        const QString typed = QString::fromLatin1(words);
        Times times;
        for (int i = 0; i < 5; ++i) {
            times.measure(
                [&] { benchmark::DoNotOptimize(search.likeliest(search.find(typed), typed, 0)); });
        }
        letter.take(words, times.best());
    }
    return {.name = QStringLiteral("a letter in the search for a slide: %1")
                        .arg(QString::fromLatin1(letter.name)),
            .value = letter.value,
            .yardstickName = QStringLiteral("memcpy of the slide records"),
            .yardstick = copyOfTheSlides(store.project()),
            .limit = frame};
}

} // namespace

QList<Figure> editingFigures()
{
    QList<Figure> figures{heapGrowth()};
    figures += worstEdits(manySlides, editLimit) + worstEdits(someSlides, editLimit / 10);

    Workspace workspace(manySlides);
    WorkspaceStore &store = workspace.store;
    const double yardstick = copyOfTheSlides(store.project());
    const auto add = [&](const char *name, double value) {
        figures.append({.name = QString::fromLatin1(name),
                        .value = value,
                        .yardstickName = QStringLiteral("memcpy of the slide records"),
                        .yardstick = yardstick});
    };
    workspace.select(workspace.slideID(manySlides.slideCount / 2));
    store.goLive();
    const auto drag = [&workspace] { workspace.drag(); };
    const GestureID gesture = store.beginGesture();
    add("a step of a drag", nanosecondsOf(drag, [] {}));
    store.endGesture(gesture);
    add("the next slide live",
        nanosecondsOf([&] { store.nextLive(); }, [&] { store.previousLive(); }));
    const auto readShow = [&] { benchmark::DoNotOptimize(store.flattenedSlides().size()); };
    add("the flattened show after an edit", nanosecondsOf(readShow, drag));
    figures.append(letterOfASearch(store));
    add("the search made of a show",
        nanosecondsOf([&] { benchmark::DoNotOptimize(SlideSearch(store.flattenedSlides())); },
                      [] {}));
    add("the flattened show again", nanosecondsOf(readShow, [] {}));
    figures.append(dragAmongImages());
    return figures;
}

} // namespace quenara::bench
