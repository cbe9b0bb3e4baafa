#include "TestSupport.h"

#include "EveryEdit.h"
#include "Files.h"
#include "Images.h"
#include "ProjectTemplates.h"

#include <QFile>
#include <QTimeZone>

#include <algorithm>

namespace quenara::test {

std::optional<QUrl> PreparedPanels::run(const FilePanel &panel)
{
    asked.append(panel);
    whileOpen();
    return answer;
}

QDateTime someTime()
{
    return QDateTime(QDate(2026, 3, 1), QTime(9, 30), QTimeZone::utc()).toUTC();
}

namespace {

Slide namedSlide(const QString &id, std::int64_t orderIndex)
{
    Slide slide =
        ProjectTemplates::slide(QStringLiteral("Title of ") + id, QStringLiteral("Words of ") + id,
                                orderIndex, QStringLiteral("centerLyric"));
    slide.id = id;
    slide.design.elements[0].id = id + QStringLiteral(".lyric");
    slide.design.elements[1].id = id + QStringLiteral(".line");
    return slide;
}

} // namespace

ZelvoProject showOf(const QList<int> &slideCounts)
{
    ZelvoProject project{.id = QStringLiteral("show"),
                         .name = QStringLiteral("A Show"),
                         .schemaVersion = ZelvoProject::currentSchemaVersion,
                         .kind = ProjectKind::service,
                         .updatedAt = someTime(),
                         .serviceItems = {}};
    for (const int count : slideCounts) {
        const qsizetype index = project.serviceItems.size();
        const QString name(QChar(u'A' + char16_t(index)));
        ServiceItem item{.id = name,
                         .title = QStringLiteral("Item ") + name,
                         .type = ServiceItemType::song,
                         .orderIndex = index,
                         .subtitle = std::nullopt,
                         .slides = {}};
        for (int i = 0; i < count; ++i)
            item.slides.append(namedSlide(name + QString::number(i + 1), i));
        project.serviceItems.append(item);
    }
    return project;
}

World::World() : World(ProjectTemplates::demoProject(someTime())) {}

World::World(const ZelvoProject &project)
    : store(project,
            {.preferences = preferences,
             .panels = panels,
             .now = [this] { return now; },
             .askAboutChangedFile =
                 [this](const QString &name) {
                     changedFiles.append(name);
                     return changedFileAnswer;
                 }})
{}

QUrl World::fileUrl(const QString &name) const
{
    return QUrl::fromLocalFile(folder.filePath(name));
}

QUrl World::written(const QString &name, const QByteArray &bytes, const Caller &caller) const
{
    writeFile(folder.filePath(name), bytes, caller);
    return fileUrl(name);
}

void World::offerImage(const Caller &caller)
{
    panels.answer = written(QStringLiteral("image.png"), encoded(quarters({8, 8}), "PNG"), caller);
}

void World::run(const NamedEdit &edit, const Caller &caller)
{
    offerImage(caller);
    edit.run(store);
}

Slide World::slide(const Caller &caller) const
{
    const auto slide = store.slideWithID(store.selectedSlideID());
    if (!slide)
        fail(QStringLiteral("no slide is selected"), caller);
    return *slide;
}

SlideElement World::layer(const QString &id, const Caller &caller) const
{
    const QList<SlideElement> layers = slide(caller).design.elements;
    const auto found = std::find_if(layers.begin(), layers.end(),
                                    [&](const SlideElement &layer) { return layer.id == id; });
    if (found == layers.end())
        fail(QStringLiteral("there is no layer \"%1\"").arg(id), caller);
    return *found;
}

Snapshot snapshotOf(const WorkspaceStore &store)
{
    return {store.state(), store.undoStore().undoStack(), store.undoStore().redoStack()};
}

Selection selectionOf(const WorkspaceState &state)
{
    return {state.selectedServiceItemID, state.selectedSlideID, state.queuedSlideID,
            state.liveSlideID, state.selectedElementID};
}

QStringList slideIDs(const ZelvoProject &project)
{
    QStringList ids;
    for (const ServiceItem &item : project.serviceItems) {
        for (const Slide &slide : item.slides)
            ids.append(slide.id);
    }
    return ids;
}

QString dataPath(const QString &name)
{
    return QStringLiteral(QUENARA_TEST_DATA "/") + name;
}

QByteArray dataBytes(const QString &name)
{
    QFile file(dataPath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace quenara::test
