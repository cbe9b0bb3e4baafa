#include "Records.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_storage_sharing {

namespace {

/// A show with images in it.
ZelvoProject illustratedShow()
{
    ZelvoProject project = showOf({3, 2, 3});
    const SlideMedia media{QByteArray("data:image/png;base64,") + QByteArray(100'000, 'A'),
                           u"big.png"_s, u"image/png"_s};
    for (ServiceItem &item : project.serviceItems) {
        for (Slide &slide : item.slides) {
            slide.image = media;
            slide.design.background.image = media;
            slide.design.background.video = VideoBackground{u"film"_s, media.dataUrl};
        }
    }
    return project;
}

const Slide &slideAt(const ZelvoProject &project, qsizetype item, qsizetype slide)
{
    return project.serviceItems.at(item).slides.at(slide);
}

/// For each slide of \a after, whether it shares its storage with the slide at the same place of
/// \a before.
QList<bool> sharedSlides(const ZelvoProject &before, const ZelvoProject &after)
{
    QList<bool> shared;
    for (qsizetype i = 0; i < after.serviceItems.size(); ++i) {
        for (qsizetype j = 0; j < after.serviceItems.at(i).slides.size(); ++j)
            shared.append(isSharedWith(slideAt(before, i, j), slideAt(after, i, j)));
    }
    return shared;
}

} // namespace

class TestStorageSharing : public QObject
{
    Q_OBJECT

private slots:
    void aCopyIsToldFromWhatIsShared()
    {
        const ZelvoProject project = illustratedShow();
        ZelvoProject copy = project;
        QVERIFY(isSharedWith(copy, project));
        copy.serviceItems.detach();
        QVERIFY(copy == project);
        QVERIFY(!isSharedWith(copy, project));
        QVERIFY(isSharedWith(copy.serviceItems.at(0), project.serviceItems.at(0)));
        QVERIFY(!isSharedWith(u"long word"_s.mid(1), u"long word"_s.mid(1)));
    }

    void anEditCopiesOnlyThePathToWhatItChanges()
    {
        World world(illustratedShow());
        world.store.selectSlide(u"C2"_s, true);
        world.store.updateSelectedSlide(
            [](Slide &slide) { slide.design.elements[0].text->text = u"new"_s; });
        const ZelvoProject &after = world.store.project();
        const ZelvoProject &before = world.store.undoStore().undoStack().last();

        QVERIFY(isSharedWith(after.serviceItems.at(0), before.serviceItems.at(0)));
        QVERIFY(isSharedWith(after.serviceItems.at(1), before.serviceItems.at(1)));
        QCOMPARE(sharedSlides(before, after),
                 (QList<bool>{true, true, true, true, true, true, false, true}));

        const Slide &edited = slideAt(after, 2, 1);
        const Slide &original = slideAt(before, 2, 1);
        QVERIFY(isSharedWith(edited.title, original.title));
        QVERIFY(isSharedWith(edited.image, original.image));
        QVERIFY(isSharedWith(edited.design.background, original.design.background));
        QVERIFY(isSharedWith(edited.design.elements.at(1), original.design.elements.at(1)));
        QVERIFY(isSharedWith(edited.design.elements.at(0).text->fontFamily,
                             original.design.elements.at(0).text->fontFamily));
    }

    void anEditOfTheProjectsNameCopiesNoItem()
    {
        World world(illustratedShow());
        world.store.updateProjectName(u"new"_s);
        QVERIFY(isSharedWith(world.store.project().serviceItems,
                             world.store.undoStore().undoStack().last().serviceItems));
    }

    void anEditThatChangesNothingCopiesNothing()
    {
        World world(illustratedShow());
        world.store.moveSelectedSlide(-1);
        QVERIFY(isSharedWith(world.store.project(), world.store.undoStore().undoStack().last()));
    }

    void theConstructorSharesAnOrderedProject()
    {
        const ZelvoProject project = illustratedShow();
        QVERIFY(isSharedWith(World(project).store.project(), project));
    }

    void theSlidesBeforeAnInsertedOneAreShared()
    {
        World world(illustratedShow());
        world.store.selectSlide(u"A2"_s, true);
        world.store.duplicateSelectedSlide();
        const ZelvoProject &after = world.store.project();
        const ZelvoProject &before = world.store.undoStore().undoStack().last();
        QVERIFY(isSharedWith(slideAt(after, 0, 0), slideAt(before, 0, 0)));
        QVERIFY(isSharedWith(slideAt(after, 0, 1), slideAt(before, 0, 1)));
        QVERIFY(isSharedWith(slideAt(after, 0, 2).design, slideAt(before, 0, 1).design));
        QVERIFY(isSharedWith(slideAt(after, 0, 3).design, slideAt(before, 0, 2).design));
        QVERIFY(isSharedWith(after.serviceItems.at(1), before.serviceItems.at(1)));
        QVERIFY(isSharedWith(after.serviceItems.at(2), before.serviceItems.at(2)));
    }

    void undoAndRedoInstallTheSnapshotsThemselves()
    {
        World world(illustratedShow());
        world.store.deleteSelectedSlide();
        const ZelvoProject edited = world.store.project();
        const ZelvoProject original = world.store.undoStore().undoStack().last();
        world.store.undo();
        QVERIFY(isSharedWith(world.store.project(), original));
        world.store.redo();
        QVERIFY(isSharedWith(world.store.project(), edited));
    }

    void theShowIsMadeOnceForEachProject()
    {
        World world(illustratedShow());
        WorkspaceStore &store = world.store;
        const QList<FlattenedSlide> first = store.flattenedSlides();
        store.nextLive();
        store.saveProjectAs();
        QVERIFY(isSharedWith(store.flattenedSlides(), first));
        store.duplicateSelectedSlide();
        const QList<FlattenedSlide> second = store.flattenedSlides();
        QCOMPARE(second.size(), first.size() + 1);
        QVERIFY(isSharedWith(store.flattenedSlides(), second));
        store.undo();
        QCOMPARE(store.flattenedSlides(), first);
        store.newBlankProject();
        QVERIFY(store.flattenedSlides().isEmpty());
    }

    void aGestureThatComesBackSharesWhatItBeganWith()
    {
        World world(illustratedShow());
        const ZelvoProject before = world.store.project();
        const GestureID gesture = world.store.beginGesture();
        world.store.updateProjectName(u"new"_s);
        world.store.cancelGesture(gesture);
        QVERIFY(isSharedWith(world.store.project(), before));
    }

    void mediaIsSharedByAllThatCarryIt()
    {
        World world(illustratedShow());
        const ZelvoProject &project = world.store.project();
        const QByteArray bytes = slideAt(project, 0, 0).image->dataUrl;
        for (const FlattenedSlide &flattened : world.store.flattenedSlides()) {
            QVERIFY(isSharedWith(flattened.slide.image->dataUrl, bytes));
            QVERIFY(isSharedWith(flattened.slide.design.background.image->dataUrl, bytes));
            QVERIFY(isSharedWith(*flattened.slide.design.background.video->dataUrl, bytes));
        }
        world.store.duplicateSelectedSlide();
        world.store.applyTemplateToSelectedSlide(u"imageBackgroundLyric"_s);
        const Slide copy = *world.store.slideWithID(world.store.selectedSlideID());
        QVERIFY(isSharedWith(copy.image->dataUrl, bytes));
        QVERIFY(isSharedWith(copy.design.background.image->dataUrl, bytes));
    }

    void savingSharesWhatIsNormalizedAlready()
    {
        World world(illustratedShow());
        const QList<ServiceItem> before = world.store.project().serviceItems;
        world.panels.answer = world.fileUrl(u"saved.quenara"_s);
        world.store.saveProject();
        QVERIFY(!world.store.errorMessage());
        QVERIFY(isSharedWith(world.store.project().serviceItems, before));
    }
};

QUENARA_TEST(TestStorageSharing)

} // namespace tst_storage_sharing

#include "tst_storage_sharing.moc"
