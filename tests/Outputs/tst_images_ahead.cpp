#include "DisplayOutputView.h"
#include "GuiTestSupport.h"
#include "Images.h"
#include "RenderCaches.h"
#include "TestSupport.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_images_ahead {

namespace {

using Send = void (WorkspaceStore::*)();

constexpr QSize screen(480, 270);
constexpr QSize photographSize(640, 360);
constexpr qsizetype photographBytes = qsizetype(640) * 360 * 4;

SlideMedia photograph(int hue)
{
    QImage image(photographSize, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(hue, 200, 200));
    return mediaOf(encoded(image, "PNG"));
}

/// Slides that differ in their photographs alone, behind everything and in a layer that is turned
/// and fades.
ZelvoProject photographs(int count)
{
    ZelvoProject project = showOf({count});
    for (int i = 0; i < count; ++i) {
        SlideDesign &design = project.serviceItems.first().slides[i].design;
        design.background.kind = SlideBackgroundKind::image;
        design.background.image = photograph(10 * i);
        SlideElement layer = rectangleLayer(QStringLiteral("image"), {300, 200, 500, 400}, {}, 1);
        layer.kind = SlideElementKind::image;
        layer.image = photograph(10 * i + 5);
        layer.rotation = 10;
        layer.opacity = 0.5;
        design.elements = {layer};
    }
    return project;
}

/// A display that stands on a screen.
struct Display
{
    explicit Display(const ZelvoProject &project) : world(project)
    {
        view.resize(screen);
        view.show();
    }

    /// Until nothing is left to do.
    static void rest()
    {
        constexpr int more = 50; // passes than there are images
        for (int pass = 0; pass < more; ++pass)
            QCoreApplication::processEvents();
    }

    /// What is held for images then.
    qsizetype heldAtRest()
    {
        rest();
        return held();
    }

    /// Of all images and the media they come from, once the live slide is painted.
    qsizetype held()
    {
        view.grab();
        return caches.images.byteCount();
    }

    World world;
    RenderCaches caches;
    DisplayOutputView view{world.store, caches};
};

} // namespace

class TestImagesAhead : public GuiTest
{
    Q_OBJECT

private slots:
    void imagesAreThereBeforeTheirSlideIsSent_data()
    {
        QTest::addColumn<bool>("isFarAway");
        QTest::addColumn<Send>("send");
        QTest::newRow("the next one") << false << &WorkspaceStore::nextLive;
        QTest::newRow("the queued one") << true << &WorkspaceStore::goLive;
        QTest::newRow("the one before") << false << &WorkspaceStore::previousLive;
    }

    void imagesAreThereBeforeTheirSlideIsSent()
    {
        QFETCH(bool, isFarAway);
        QFETCH(Send, send);
        Display display(photographs(7));
        WorkspaceStore &store = display.world.store;
        store.queueSlide(slideID(display, 2));
        store.goLive();
        store.queueSlide(slideID(display, isFarAway ? 5 : 2));
        const qsizetype atRest = display.heldAtRest();
        (store.*send)();
        QCOMPARE(display.held(), atRest);
    }

    void otherSlidesImagesAreNotDecoded()
    {
        Display display(photographs(6));
        const qsizetype atRest = display.heldAtRest();
        display.world.store.queueSlide(slideID(display, 4));
        display.world.store.goLive();
        QVERIFY(display.held() > atRest + photographBytes);
    }

    /// Two images are missing, and the live slide is painted before the first of them is made
    /// ready.
    void eachImageIsMadeReadyOnceAllEventsAreHandled()
    {
        Display display(photographs(2));
        qsizetype before = display.caches.images.byteCount();
        int passesThatDecoded = 0;
        for (int pass = 0; pass < 20; ++pass) {
            QCoreApplication::processEvents();
            const qsizetype now = display.caches.images.byteCount();
            passesThatDecoded += now > before ? 1 : 0;
            before = now;
        }
        QCOMPARE(passesThatDecoded, 2);
    }

    void imagesThatOthersHaveTakenTheRoomOfAreMadeReadyAgain()
    {
        Display display(photographs(4));
        display.heldAtRest();
        for (int hue = 200; hue < 330; ++hue)
            display.caches.images.filling(photograph(hue), {.area = screen * 2});
        display.world.store.queueSlide(slideID(display, 2));
        display.heldAtRest();
        const auto isHeld = [&](int index) {
            const SlideMedia &media = *display.world.store.project()
                                           .serviceItems.first()
                                           .slides.at(index)
                                           .design.background.image;
            const qsizetype before = display.caches.images.byteCount();
            display.caches.images.filling(media, {.area = screen});
            return display.caches.images.byteCount() == before;
        };
        QVERIFY(isHeld(1));
        QVERIFY(isHeld(2));
        QVERIFY(!isHeld(3));
    }

    void aLayerThatIsDraggedIsMadeReadyOnceItIsLetGo()
    {
        Display display(photographs(4));
        WorkspaceStore &store = display.world.store;
        store.selectSlide(slideID(display, 2), true);
        store.selectElement(QStringLiteral("image"));
        const qsizetype before = display.heldAtRest();
        const GestureID drag = store.beginGesture();
        for (int width = 600; width < 640; ++width) {
            store.updateSelectedElement(
                [width](SlideElement &layer) { layer.frame.width = width; });
            QCOMPARE(display.heldAtRest(), before);
        }
        store.endGesture(drag);
        const qsizetype atRest = display.heldAtRest();
        QVERIFY(atRest > before);
        store.goLive();
        QCOMPARE(display.held(), atRest);
    }

    void otherSlidesAreMadeReadyWhileALayerIsDragged()
    {
        Display display(photographs(4));
        WorkspaceStore &store = display.world.store;
        store.selectElement(QStringLiteral("image"));
        const GestureID drag = store.beginGesture();
        store.updateSelectedElement([](SlideElement &layer) { layer.frame.width = 600; });
        store.queueSlide(slideID(display, 3));
        QVERIFY(store.hasOpenGesture());
        const qsizetype atRest = display.heldAtRest();
        store.goLive();
        QCOMPARE(display.held(), atRest);
        store.endGesture(drag);
    }

    void aDisplayThatIsHiddenStopsPreparing()
    {
        Display display(photographs(4));
        const qsizetype shown = display.held();
        display.view.hide();
        Display::rest();
        QCOMPARE(display.caches.images.byteCount(), shown);
    }

    void aDisplayThatIsNotShownPreparesNothing()
    {
        Display display(photographs(4));
        const qsizetype atRest = display.heldAtRest();
        display.view.hide();
        display.world.store.nextLive();
        Display::rest();
        QCOMPARE(display.caches.images.byteCount(), atRest);
    }

    void anImageIsReadyAtTheSizeThatTheDisplayHasByThen()
    {
        Display display(photographs(4));
        display.heldAtRest();
        display.view.resize(screen * 2);
        const qsizetype atRest = display.heldAtRest();
        display.world.store.nextLive();
        QCOMPARE(display.held(), atRest);
    }

private:
    static QString slideID(const Display &display, int index)
    {
        return display.world.store.project().serviceItems.first().slides.at(index).id;
    }
};

QUENARA_GUI_TEST(TestImagesAhead)

} // namespace tst_images_ahead

#include "tst_images_ahead.moc"
