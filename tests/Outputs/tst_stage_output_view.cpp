#include "GuiTestSupport.h"
#include "OutputModeBadge.h"
#include "ProjectTemplates.h"
#include "SlideView.h"
#include "StageMonitor.h"
#include "StageTexts.h"

#include <QPaintEvent>
#include <QTimer>

using namespace quenara;
using namespace quenara::test;

namespace tst_stage_output_view {

namespace {

ZelvoProject withoutLiveBody()
{
    ZelvoProject project = showOf({2, 1});
    project.serviceItems[0].slides[0].body.clear();
    return project;
}

/// Notes which widgets are painted.
class PaintLog : public QObject
{
    Q_OBJECT

public:
    explicit PaintLog(QWidget &window)
    {
        for (QWidget *widget : window.findChildren<QWidget *>())
            widget->installEventFilter(this);
    }

    QSet<QWidget *> painted;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted.insert(qobject_cast<QWidget *>(watched));
        return false;
    }
};

} // namespace

class TestStageOutputView : public GuiTest
{
    Q_OBJECT

private slots:
    void itShowsTheTextsOfTheWorkspaceAndFollowsThem()
    {
        StageMonitor stage(showOf({2, 0, 1}));
        const auto check = [&stage] {
            const StageTexts texts = stageTexts(stage.world.store.state());
            QCOMPARE(stage.text("currentSection"), texts.currentSectionTitle);
            QCOMPARE(stage.text("slideCount"), texts.slideCountText);
            QCOMPARE(stage.text("currentText"), texts.currentStageText);
            QCOMPARE(stage.text("nextText"), texts.nextStageText);
        };
        check();
        stage.world.store.nextLive();
        check();
        stage.world.store.toggleLogo();
        check();
        stage.world.store.updateSelectedSlide(
            [](Slide &slide) { slide.body = QStringLiteral("Amen"); });
        check();
        stage.world.store.newBlankProject();
        check();
    }

    void theLiveSlideAndTheOneAfterItAreDrawn()
    {
        StageMonitor stage(showOf({2, 1}));
        const auto slides = stage.view.findChildren<SlideView *>();
        QCOMPARE(slides.size(), 2);
        stage.world.store.nextLive();
        const auto show = stage.world.store.flattenedSlides();
        for (const SlideView *view : slides) {
            const bool isCurrent = view->accessibleName() == QStringLiteral("Current slide");
            QCOMPARE(view->slide(), show.at(isCurrent ? 1 : 2).slide);
        }
    }

    void theTitleBesideNextIsTheQueuedSlides()
    {
        StageMonitor stage(showOf({3}));
        QCOMPARE(stage.text("queuedTitle"), QStringLiteral("Title of A1"));
        stage.world.store.queueSlide(QStringLiteral("A3"));
        QCOMPARE(stage.text("queuedTitle"), QStringLiteral("Title of A3"));
        QCOMPARE(stage.text("nextText"), QStringLiteral("Words of A2"));
        stage.world.store.queueSlide(std::nullopt);
        QCOMPARE(stage.text("queuedTitle"), QString());
    }

    void withNothingLiveItSaysSoAndDrawsTheEmptyState()
    {
        StageMonitor stage(ProjectTemplates::blankProject(someTime()));
        QCOMPARE(stage.text("currentSection"), QStringLiteral("No Section"));
        QCOMPARE(stage.text("slideCount"), QStringLiteral("0 / 0"));
        QCOMPARE(stage.text("currentText"), QStringLiteral("No live slide"));
        QCOMPARE(stage.text("nextText"), QStringLiteral("No next slide"));
        const QImage image = stage.image();
        const auto *slide = stage.view.findChild<SlideView *>();
        QVERIFY(!slide->slide());
        const QPoint middle = slide->mapTo(&stage.view, slide->slideRect().center());
        QCOMPARE(image.pixel(middle), qRgb(0, 0, 0));
    }

    void blackoutAndLogoChangeTheWordsAndTheBadgeAlone_data()
    {
        QTest::addColumn<OutputMode>("mode");
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("badge");
        QTest::newRow("blackout") << OutputMode::blackout << QStringLiteral("BLACKOUT")
                                  << QStringLiteral("BLACKOUT");
        QTest::newRow("logo") << OutputMode::logo << QStringLiteral("LOGO / HOLDING")
                              << QStringLiteral("LOGO");
    }

    void blackoutAndLogoChangeTheWordsAndTheBadgeAlone()
    {
        QFETCH(OutputMode, mode);
        QFETCH(QString, words);
        QFETCH(QString, badge);
        StageMonitor stage(showOf({2, 1}));
        const auto *slide = stage.view.findChild<SlideView *>();
        const std::optional<Slide> live = slide->slide();
        QCOMPARE(stage.part<OutputModeBadge>("outputMode")->accessibleName(),
                 QStringLiteral("LIVE"));
        if (mode == OutputMode::blackout) {
            stage.world.store.toggleBlackout();
        } else {
            stage.world.store.toggleLogo();
        }
        QCOMPARE(stage.text("currentText"), words);
        QCOMPARE(stage.part<OutputModeBadge>("outputMode")->accessibleName(), badge);
        QCOMPARE(slide->slide(), live);
        QCOMPARE(stage.text("currentSection"), QStringLiteral("Item A"));
        QCOMPARE(stage.text("slideCount"), QStringLiteral("1 / 3"));
        QCOMPARE(stage.text("nextText"), QStringLiteral("Words of A2"));
    }

    void aSlideWithoutABodyShowsItsTitle()
    {
        StageMonitor stage(withoutLiveBody());
        QCOMPARE(stage.text("currentText"), QStringLiteral("Title of A1"));
    }

    void theBadgeIsOnTheColourOfItsModeInBothSchemes_data()
    {
        QTest::addColumn<const ZelvoTheme *>("theme");
        QTest::newRow("dark") << &ZelvoTheme::dark();
        QTest::newRow("light") << &ZelvoTheme::light();
    }

    void theBadgeIsOnTheColourOfItsModeInBothSchemes()
    {
        QFETCH(const ZelvoTheme *, theme);
        StageMonitor stage;
        StageMonitor::setTheme(*theme);
        const auto background = [&stage] {
            const QImage image = stage.image();
            const auto *badge = stage.part<OutputModeBadge>("outputMode");
            return image.pixelColor(badge->mapTo(&stage.view, QPoint(badge->width() / 2, 2)));
        };
        QCOMPARE(background(), theme->live);
        stage.world.store.toggleBlackout();
        QCOMPARE(background(), theme->blackout);
        stage.world.store.toggleLogo();
        QCOMPARE(background(), theme->accent);
    }

    void everyAreaHasItsColourInBothSchemes()
    {
        StageMonitor stage(showOf({1}));
        for (const ZelvoTheme *theme : {&ZelvoTheme::dark(), &ZelvoTheme::light()}) {
            StageMonitor::setTheme(*theme);
            const QImage image = stage.image();
            QCOMPARE(image.pixelColor(600, 3), theme->panelHeaderBackground);
            QCOMPARE(image.pixelColor(3, 700), theme->appBackground);
            QCOMPARE(image.pixelColor(1177, 700), theme->panelBackground);
            QCOMPARE(image.pixelColor(790, 700), theme->separator);
            QCOMPARE(stage.part("currentText")->palette().color(QPalette::WindowText),
                     theme->primaryText);
            QCOMPARE(stage.part("nextText")->palette().color(QPalette::WindowText),
                     theme->secondaryText);
        }
    }

    void theClockAdvancesWithoutAChangeOfTheStoreAndRepaintsNothingElse()
    {
        StageMonitor stage;
        stage.now = stage.now.addMSecs(990);
        stage.view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&stage.view));
        QCoreApplication::processEvents();
        auto *clock = stage.part<ClockView>("stageClock");
        PaintLog log(stage.view);
        stage.now = QDateTime(stage.now.date(), QTime(10, 32, 8));
        QTRY_COMPARE(clock->text(), QStringLiteral("10:32:08 AM"));
        QTRY_VERIFY(log.painted.contains(clock));
        for (QWidget *widget : log.painted)
            QVERIFY(widget == clock || widget->isAncestorOf(clock));
    }

    void aChangeOfTheStoreRepaintsOnlyWhatDiffers()
    {
        StageMonitor stage(showOf({3, 1}));
        stage.view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&stage.view));
        QCoreApplication::processEvents();
        PaintLog log(stage.view);
        auto *queuedTitle = stage.part("queuedTitle");
        stage.world.store.queueSlide(QStringLiteral("A3"));
        QTRY_VERIFY(log.painted.contains(queuedTitle));
        for (QWidget *widget : log.painted)
            QVERIFY(widget == queuedTitle || widget->isAncestorOf(queuedTitle));

        log.painted.clear();
        stage.world.store.selectElement(QStringLiteral("A1.line"));
        QCoreApplication::processEvents();
        QVERIFY(log.painted.isEmpty());
    }

    void everyTextIsReadWithWhatItIs()
    {
        StageMonitor stage(showOf({2}));
        const auto described = [&stage](const char *name) {
            return stage.part<QWidget>(name)->accessibleDescription();
        };
        QCOMPARE(described("currentSection"), QStringLiteral("Current section"));
        QCOMPARE(described("slideCount"), QStringLiteral("Place in the show"));
        QCOMPARE(described("stageClock"), QStringLiteral("Time"));
        QCOMPARE(described("outputMode"), QStringLiteral("Output mode"));
        QCOMPARE(described("currentText"), QStringLiteral("Current words"));
        QCOMPARE(described("queuedTitle"), QStringLiteral("Queued slide"));
        QCOMPARE(described("nextText"), QStringLiteral("Next words"));
        QCOMPARE(stage.part<QWidget>("stageClock")->accessibleName(),
                 QStringLiteral("10:32:07 AM"));
    }

    void itHasNoControls()
    {
        StageMonitor stage;
        for (const QWidget *widget : stage.view.findChildren<QWidget *>())
            QCOMPARE(widget->focusPolicy(), Qt::NoFocus);
    }
};

QUENARA_GUI_TEST(TestStageOutputView)

} // namespace tst_stage_output_view

#include "tst_stage_output_view.moc"
