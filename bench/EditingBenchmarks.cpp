#include "EditingBenchmarks.h"

#include "ProjectGenerator.h"
#include "Show.h"
#include "WorkspaceStore.h"

#include <QSettings>
#include <QTemporaryDir>

#include <cstring>
#include <vector>

namespace quenara::bench {

namespace {

constexpr ProjectSize size{.slideCount = 10'000, .itemCount = 200};
constexpr int editCount = 60;
constexpr int stride = 166; ///< spreads the edited slides over the whole show
constexpr double heapLimit = 8.0 * 1024 * 1024;

class NoPanels : public FilePanelRunner
{
public:
    std::optional<QUrl> run(const FilePanel & /*panel*/) override { return std::nullopt; }
};

/// A store on the generated project, with preferences of its own.
struct Workspace
{
    QTemporaryDir folder;
    QSettings preferences{folder.filePath(QStringLiteral("preferences.ini")), QSettings::IniFormat};
    NoPanels panels;
    WorkspaceStore store{generateProject(size), {.preferences = preferences, .panels = panels}};

    QString slideID(qsizetype absolute) const
    {
        return slideAt(store.project(), *positionAt(store.project(), absolute)).id;
    }

    void rewriteText()
    {
        const QString text = QStringLiteral("Edit %1").arg(++m_editNumber);
        store.updateSelectedSlide([&text](Slide &slide) {
            slide.design.elements[0].text = TextElementProperties::lyric(text);
        });
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
                std::memcpy(end, item.slides.constData(), count);
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
    Workspace workspace;
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

} // namespace

QList<Figure> editingFigures()
{
    QList<Figure> figures{heapGrowth()};
    Workspace workspace;
    WorkspaceStore &store = workspace.store;
    const double yardstick = copyOfTheSlides(store.project());
    const auto add = [&](const char *name, double value) {
        figures.append({.name = QString::fromLatin1(name),
                        .value = value,
                        .yardstickName = QStringLiteral("memcpy of the slide records"),
                        .yardstick = yardstick});
    };
    const auto undo = [&store] { store.undo(); };
    const auto redo = [&store] { store.redo(); };

    // From the middle of the show, with a full history.
    store.selectSlide(workspace.slideID(size.slideCount / 2), true);
    store.goLive();
    for (int i = 0; i < editCount; ++i)
        workspace.rewriteText();
    add("an edit of a slide's text", nanosecondsOf([&] { workspace.rewriteText(); }, [] {}));
    add("an undo", nanosecondsOf(undo, redo));
    undo();
    add("a redo", nanosecondsOf(redo, undo));
    add("the next slide live",
        nanosecondsOf([&] { store.nextLive(); }, [&] { store.previousLive(); }));
    add("the flattened show", nanoseconds([&](benchmark::State &state) {
            for ([[maybe_unused]] auto iteration : state)
                benchmark::DoNotOptimize(store.flattenedSlides().size());
        }));
    return figures;
}

} // namespace quenara::bench
