#include "DisplayOutputView.h"
#include "Fonts.h"
#include "GuiTestSupport.h"
#include "InterfaceStyle.h"
#include "PictureCache.h"
#include "ProjectTemplates.h"
#include "TestSupport.h"

using namespace quenara;
using namespace quenara::test;

namespace {

constexpr QSize screen(960, 540);

/// A display view on a world of its own, at the size of a screen.
struct AudienceScreen
{
    World world;
    PictureCache pictures;
    DisplayOutputView view{world.store, pictures};

    AudienceScreen() { view.resize(screen); }
    explicit AudienceScreen(const ZelvoProject &project) : world(project) { view.resize(screen); }

    QImage picture() { return view.grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

QImage black(const QSize &size = screen)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
}

QImage pictureOf(const std::optional<Slide> &slide)
{
    QImage image = black();
    QPainter painter(&image);
    SlideRendererView{.slide = slide}.paint(painter, image.rect());
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
        QCOMPARE(display.picture(),
                 pictureOf(display.world.store.slideWithID(display.world.store.liveSlideID())));
        display.world.store.nextLive();
        QCOMPARE(display.picture(),
                 pictureOf(display.world.store.slideWithID(display.world.store.liveSlideID())));
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
                 pictureOf(store.slideWithID(store.liveSlideID())));
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
            SlideRendererView{.slide = slideWith(next)}.paint(painter, fresh.rect());
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
        const QImage before = display.picture();
        display.world.store.queueNext();
        display.world.store.selectSlide(display.world.store.flattenedSlides().at(4).id(), true);
        QCOMPARE(display.picture(), before);
    }

    void liveWithoutALiveSlideShowsTheRenderersEmptyState()
    {
        AudienceScreen display(ProjectTemplates::blankProject(someTime()));
        QVERIFY(!display.world.store.liveSlideID());
        QCOMPARE(display.picture(), black());
    }

    void blackoutIsPureBlackAndLiveShowsTheSameSlideAgain()
    {
        AudienceScreen display;
        const QImage live = display.picture();
        display.world.store.toggleBlackout();
        QCOMPARE(display.picture(), black());
        display.world.store.toggleBlackout();
        QCOMPARE(display.picture(), live);
    }

    void logoIsTheHoldingScreenWhateverTheLiveSlideIs()
    {
        AudienceScreen display;
        display.world.store.toggleLogo();
        const QImage holding = display.picture();
        QVERIFY(holding != black());
        display.world.store.nextLive();
        QVERIFY(display.picture() != holding);
        display.world.store.toggleLogo();
        QCOMPARE(display.picture(), holding);
    }

    void theHoldingScreenIsNotScaledWithTheWindow()
    {
        AudienceScreen display;
        display.world.store.toggleLogo();
        // The bar under the name: 360 points wide and 6 high at any size of the window.
        for (const QSize &size : {QSize(960, 540), QSize(1920, 1080), QSize(1280, 1024)}) {
            display.view.resize(size);
            const QImage image = display.picture();
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
        const QImage holding = display.picture();
        QImage elsewhere(400, 60, QImage::Format_RGB32);
        QPainter painter(&elsewhere);
        for (const double size : {10.0, 11.0, 13.0, 15.0, 24.0}) {
            painter.setFont(systemFont(size, QFont::Bold));
            painter.drawText(10, 40, QStringLiteral("Logo Live Queued"));
        }
        painter.end();
        QCOMPARE(display.picture(), holding);
    }

    void theSafeAreaGuideOfTheEditorIsNeverDrawn()
    {
        AudienceScreen display;
        const std::optional<Slide> live =
            display.world.store.slideWithID(display.world.store.liveSlideID());
        QVERIFY(live->design.safeAreaEnabled);
        QImage guided = black();
        QPainter painter(&guided);
        SlideRendererView{.slide = live, .showSafeArea = true}.paint(painter, guided.rect());
        painter.end();
        QVERIFY(display.picture() != guided);
        QCOMPARE(display.picture(), pictureOf(live));
    }

    void theAppearanceChangesNothing()
    {
        AudienceScreen display;
        for (const auto mode : {OutputMode::live, OutputMode::logo}) {
            if (mode == OutputMode::logo)
                display.world.store.toggleLogo();
            display.view.setPalette(interfacePalette(ZelvoTheme::dark()));
            display.view.setStyleSheet(interfaceStyleSheet(ZelvoTheme::dark()));
            const QImage dark = display.picture();
            display.view.setPalette(interfacePalette(ZelvoTheme::light()));
            display.view.setStyleSheet(interfaceStyleSheet(ZelvoTheme::light()));
            QCOMPARE(display.picture(), dark);
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

QUENARA_GUI_TEST_MAIN(TestDisplayOutputView)
#include "tst_display_output_view.moc"
