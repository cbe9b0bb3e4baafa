#include "RecoveryBenchmarks.h"

#include "BenchStore.h"
#include "ProjectFileService.h"
#include "ProjectGenerator.h"
#include "ProjectTemplates.h"
#include "SessionRecorder.h"
#include "Show.h"

#include <QCoreApplication>
#include <QDir>

#include <memory>

namespace quenara::bench {

namespace {

constexpr ProjectSize largeProject{
    .slideCount = 10'000, .itemCount = 200, .imageCount = 25, .imageBytes = 2'200'000};
/// All slides in one item, in which an edit makes every one of them be looked at.
constexpr ProjectSize oneItem{.slideCount = 10'000, .itemCount = 1};
constexpr int repetitions = 400;
constexpr double share = 0.99; ///< of the repetitions, which keep to the limits
constexpr double letterLimit = 1e6; ///< nanoseconds more than without a journal
constexpr double stepLimit = 1e5; ///< likewise
constexpr double letterBytes = 4096;
constexpr double returnLimit = 2e9; ///< nanoseconds

/// A saved document, with a journal or without one.
struct Recorded : BenchStore
{
    std::unique_ptr<SessionRecorder> recorder;

    Recorded(const ZelvoProject &project, bool hasJournal) : BenchStore(project)
    {
        if (hasJournal)
            recorder = std::make_unique<SessionRecorder>(store, journals());
        const QUrl file = QUrl::fromLocalFile(folder.filePath(QStringLiteral("show.quenara")));
        ProjectFileService::save(project, file, project.updatedAt);
        store.openProject(file);
        const QString middle =
            slideAt(store.project(), *positionAt(store.project(), slideCount(project) / 2)).id;
        store.selectSlide(middle, true);
        store.selectElement(store.slideWithID(middle)->design.firstTextElementID());
        store.goLive();
    }

    QString journals() const { return folder.filePath(QStringLiteral("recovery")); }

    qint64 journalSize() const
    {
        const QFileInfoList files = QDir(journals()).entryInfoList(QDir::Files);
        return files.isEmpty() ? 0 : files.first().size();
    }

    void typeLetter()
    {
        store.updateSelectedElement([](SlideElement &element) {
            if (element.text)
                element.text->text += QLatin1Char('x');
        });
    }
};

/// The same operation with a journal and without, by turns: other work of the machine meets both.
struct Pair
{
    Times with;
    Times without;

    Pair(const std::function<void()> &recorded, const std::function<void()> &unrecorded)
    {
        for (int i = 0; i < repetitions; ++i) {
            with.measure(recorded);
            without.measure(unrecorded);
        }
    }
};

Figure added(const QString &name, const Pair &pair, double limit)
{
    return {.name = name,
            .value = std::max(pair.with.within(share) - pair.without.within(share), 0.0),
            .yardstickName = QStringLiteral("the same without a journal"),
            .yardstick = pair.without.within(share),
            .limit = limit};
}

/// The letters of one gesture and the steps of the show, in the project of \a size, called \a what.
QList<Figure> journalFigures(const ProjectSize &size, const char *what)
{
    const auto named = [what](const char *name) {
        return QStringLiteral("%1: %2").arg(QString::fromLatin1(what), QString::fromLatin1(name));
    };
    const ZelvoProject project = generateProject(size);
    Recorded without(project, false);
    Recorded with(project, true);
    const GestureID gestureWithout = without.store.beginGesture();
    GestureID gesture = with.store.beginGesture();

    Times first;
    first.measure([&] { with.typeLetter(); });
    const qint64 before = with.journalSize();
    const Pair letters([&] { with.typeLetter(); }, [&] { without.typeLetter(); });
    const double bytes = double(with.journalSize() - before) / repetitions;
    Times finish;
    finish.measure([&] {
        with.store.endGesture(gesture);
        QCoreApplication::sendPostedEvents();
    });
    without.store.endGesture(gestureWithout);
    const Pair steps([&] { with.store.nextLive(); }, [&] { without.store.nextLive(); });

    Times save;
    const QUrl file = QUrl::fromLocalFile(with.folder.filePath(QStringLiteral("saved.quenara")));
    save.measure([&] { ProjectFileService::save(project, file, QDateTime::currentDateTimeUtc()); });
    const auto besideSave = [&](const char *name, const Times &times) {
        return Figure{.name = named(name),
                      .value = times.best(),
                      .yardstickName = QStringLiteral("a save of the project"),
                      .yardstick = save.best()};
    };
    return {added(named("a letter, the journal's part"), letters, letterLimit),
            {.name = named("a letter, bytes"),
             .value = bytes,
             .yardstickName = QStringLiteral("the journal's beginning"),
             .yardstick = double(before),
             .unit = Figure::Unit::bytes,
             .limit = letterBytes},
            besideSave("the first letter after a save", first),
            besideSave("that one brought to the disk", finish),
            added(named("the next slide live, likewise"), steps, stepLimit)};
}

Figure returnOfTheDemo()
{
    Recorded before(ProjectTemplates::demoProject(QDateTime::currentDateTimeUtc()), true);
    before.typeLetter();
    before.recorder->setLeavesUnsavedWork(true);
    before.recorder.reset();
    BenchStore after(ProjectTemplates::blankProject(QDateTime::currentDateTimeUtc()));
    Times times;
    times.measure([&] {
        const QList<LeftOverJournal> journals = leftOverJournals(before.journals());
        if (journals.isEmpty() || !after.store.continueSession(journals.first().session))
            qFatal("the demo service does not come back");
    });
    Times load;
    load.measure([&] { after.store.loadDemoProject(); });
    return {.name = QStringLiteral("the demo service comes back"),
            .value = times.best(),
            .yardstickName = QStringLiteral("it is made from its template"),
            .yardstick = load.best(),
            .limit = returnLimit};
}

} // namespace

QList<Figure> recoveryFigures()
{
    return journalFigures(largeProject, "100 MB")
        + journalFigures(oneItem, "10,000 slides of an item") + QList<Figure>{returnOfTheDemo()};
}

} // namespace quenara::bench
