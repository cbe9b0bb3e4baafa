#include "DisplayOutputView.h"
#include "Fonts.h"
#include "GuiTestSupport.h"
#include "InterfaceStyle.h"
#include "ProjectTemplates.h"
#include "RenderCaches.h"
#include "TestSupport.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_display_output_view {

namespace {

constexpr QSize screen(960, 540);

/// A display view on a world of its own, at the size of a screen.
struct AudienceScreen
{
    World world;
    RenderCaches caches;
    DisplayOutputView view{world.store, caches};

    AudienceScreen() { view.resize(screen); }
    explicit AudienceScreen(const ZelvoProject &project) : world(project) { view.resize(screen); }

    QImage image() { return view.grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

QImage black(const QSize &size = screen)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
}

QImage imageOf(const std::optional<Slide> &slide)
{
    QImage image = black();
    QPainter painter(&image);
    paintAnew({.slide = slide}, painter, image.rect());
    painter.end();
    return image;
}

} // namespace

class TestDisplayOutputView : public GuiTest
{
    Q_OBJECT

private slots:
    void liveShowsTheLiveSlide()
    {
        AudienceScreen display;
        QCOMPARE(display.image(),
                 imageOf(display.world.store.slideWithID(display.world.store.liveSlideID())));
        display.world.store.nextLive();
        QCOMPARE(display.image(),
                 imageOf(display.world.store.slideWithID(display.world.store.liveSlideID())));
    }

    void aTranslucentSlideLiesOnBlackAndNotOnTheOneBefore()
    {
        AudienceScreen display;
        WorkspaceStore &store = display.world.store;
        const auto setBackground = [&](qsizetype slide, const RGBAColor &color) {
            store.selectSlide(store.flattenedSlides().at(slide).id(), true);
            store.updateSelectedSlide(
                [&](Slide &edited) { edited.design = designOver(solidBackground(color)); });
        };
        setBackground(1, {0, 0.5, 1, 0.5});
        setBackground(0, {1, 1, 1, 1});
        store.goLive();
        display.view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&display.view));
        store.nextLive();
        const QImage shown = display.view.screen()->grabWindow(display.view.winId()).toImage();
        QCOMPARE(shown.convertToFormat(QImage::Format_RGB32),
                 imageOf(store.slideWithID(store.liveSlideID())));
        QCOMPARE(shown.pixelColor(1, 1), QColor(0, 64, 128));
    }

    void nothingIsLeftOfTheSlideBefore_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<CanvasSize>("canvas");
        QTest::newRow("a screen of the slide's shape") << QSize(960, 540) << CanvasSize{1920, 1080};
        QTest::newRow("a screen not quite of it") << QSize(1366, 768) << CanvasSize{1920, 1080};
        QTest::newRow("bars above and below") << QSize(1000, 999) << CanvasSize{1920, 1080};
        QTest::newRow("bars beside") << QSize(853, 333) << CanvasSize{1920, 1080};
        QTest::newRow("an upright slide") << QSize(960, 540) << CanvasSize{1080, 1920};
        QTest::newRow("hardly a slide") << QSize(960, 540) << CanvasSize{1, 4000};
    }

    void nothingIsLeftOfTheSlideBefore()
    {
        QFETCH(QSize, size);
        QFETCH(CanvasSize, canvas);
        AudienceScreen display;
        WorkspaceStore &store = display.world.store;
        display.view.resize(size);
        display.view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&display.view));
        for (const GradientDirection direction : allCases<GradientDirection>()) {
            SlideDesign next = designOver(SlideBackground::defaultDark());
            next.background.gradient->direction = direction;
            next.canvasSize = canvas;
            QImage fresh(size, QImage::Format_RGB32);
            fresh.fill(Qt::black);
            QPainter painter(&fresh);
            paintAnew({.slide = slideWith(next)}, painter, fresh.rect());
            painter.end();
            // All white, then the next.
            for (const SlideDesign &design : {designOver(solidBackground({1, 1, 1, 1})), next}) {
                store.updateSelectedSlide([&](Slide &edited) { edited.design = design; });
                store.goLive();
                QCoreApplication::processEvents();
            }
            const QImage shown = display.view.screen()->grabWindow(display.view.winId()).toImage();
            QCOMPARE(shown.convertToFormat(QImage::Format_RGB32), fresh);
        }
    }

    void selectingAndQueueingChangesNothing()
    {
        AudienceScreen display;
        const QImage before = display.image();
        display.world.store.queueNext();
        display.world.store.selectSlide(display.world.store.flattenedSlides().at(4).id(), true);
        QCOMPARE(display.image(), before);
    }

    void liveWithoutALiveSlideShowsTheRenderersEmptyState()
    {
        AudienceScreen display(ProjectTemplates::blankProject(someTime()));
        QVERIFY(!display.world.store.liveSlideID());
        QCOMPARE(display.image(), black());
    }

    void blackoutIsPureBlackAndLiveShowsTheSameSlideAgain()
    {
        AudienceScreen display;
        const QImage live = display.image();
        display.world.store.toggleBlackout();
        QCOMPARE(display.image(), black());
        display.world.store.toggleBlackout();
        QCOMPARE(display.image(), live);
    }

    void logoIsTheHoldingScreenWhateverTheLiveSlideIs()
    {
        AudienceScreen display;
        display.world.store.toggleLogo();
        const QImage holding = display.image();
        QVERIFY(holding != black());
        display.world.store.nextLive();
        QVERIFY(display.image() != holding);
        display.world.store.toggleLogo();
        QCOMPARE(display.image(), holding);
    }

    void theHoldingScreenIsNotScaledWithTheWindow()
    {
        AudienceScreen display;
        display.world.store.toggleLogo();
        // The bar under the name: 360 points wide and 6 high at any size of the window.
        for (const QSize &size : {QSize(960, 540), QSize(1920, 1080), QSize(1280, 1024)}) {
            display.view.resize(size);
            const QImage image = display.image();
            const QRgb amber = qRgb(0xf0, 0xb8, 0x4a);
            int widest = 0;
            int rows = 0;
            for (int y = 0; y < image.height(); ++y) {
                int run = 0;
                for (int x = 0; x < image.width(); ++x)
                    run += image.pixel(x, y) == amber ? 1 : 0;
                widest = std::max(widest, run);
                rows += run == 360 ? 1 : 0;
            }
            QCOMPARE(widest, 360);
            QVERIFY(rows >= 5 && rows <= 6);
            QCOMPARE(image.pixel(0, 0), qRgb(0, 0, 0));
        }
    }

    void theHoldingScreenStaysTheSameToTheLastPixelWhateverElseIsDrawn()
    {
        AudienceScreen display;
        display.world.store.toggleLogo();
        const QImage holding = display.image();
        QImage elsewhere(400, 60, QImage::Format_RGB32);
        QPainter painter(&elsewhere);
        for (const double size : {10.0, 11.0, 13.0, 15.0, 24.0}) {
            painter.setFont(systemFont(size, QFont::Bold));
            painter.drawText(10, 40, QStringLiteral("Logo Live Queued"));
        }
        painter.end();
        QCOMPARE(display.image(), holding);
    }

    void theSafeAreaGuideOfTheEditorIsNeverDrawn()
    {
        AudienceScreen display;
        const std::optional<Slide> live =
            display.world.store.slideWithID(display.world.store.liveSlideID());
        QVERIFY(live->design.safeAreaEnabled);
        QImage guided = black();
        QPainter painter(&guided);
        paintAnew({.slide = live, .showSafeArea = true}, painter, guided.rect());
        painter.end();
        QVERIFY(display.image() != guided);
        QCOMPARE(display.image(), imageOf(live));
    }

    void theAppearanceChangesNothing()
    {
        AudienceScreen display;
        for (const auto mode : {OutputMode::live, OutputMode::logo}) {
            if (mode == OutputMode::logo)
                display.world.store.toggleLogo();
            display.view.setPalette(interfacePalette(ZelvoTheme::dark()));
            display.view.setStyleSheet(interfaceStyleSheet(ZelvoTheme::dark()));
            const QImage dark = display.image();
            display.view.setPalette(interfacePalette(ZelvoTheme::light()));
            display.view.setStyleSheet(interfaceStyleSheet(ZelvoTheme::light()));
            QCOMPARE(display.image(), dark);
        }
    }

    void everyPixelOfTheWindowIsPaintedWhateverItsShape()
    {
        AudienceScreen display;
        display.view.resize(700, 700);
        QImage image(700, 700, QImage::Format_ARGB32);
        image.fill(magenta);
        display.view.render(&image);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                QVERIFY(image.pixel(x, y) != magenta);
        }
    }

    void thePointerIsHiddenOverIt()
    {
        AudienceScreen display;
        QCOMPARE(display.view.cursor().shape(), Qt::BlankCursor);
    }
};

QUENARA_GUI_TEST(TestDisplayOutputView)

} // namespace tst_display_output_view

#include "tst_display_output_view.moc"
