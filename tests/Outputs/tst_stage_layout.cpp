#include "FittedText.h"
#include "GuiTestSupport.h"
#include "OutputModeBadge.h"
#include "ProjectTemplates.h"
#include "SlideView.h"
#include "StageMonitor.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_stage_layout {

namespace {

const QString endlessTitle = QStringLiteral("A title that goes on and on, ").repeated(20);

/// One item whose two slides have these words, and with \a title everywhere.
ZelvoProject projectWith(const QString &words, const QString &title)
{
    ZelvoProject project = showOf({2});
    project.serviceItems[0].title = title;
    for (Slide &slide : project.serviceItems[0].slides) {
        slide =
            ProjectTemplates::slide(title, words, slide.orderIndex, QStringLiteral("centerLyric"));
    }
    return project;
}

/// The parts that show something.
QList<QWidget *> shownParts(const QWidget &view)
{
    QList<QWidget *> parts;
    for (QWidget *widget : view.findChildren<QWidget *>()) {
        if (widget->findChildren<QWidget *>().isEmpty())
            parts.append(widget);
    }
    return parts;
}

QRect placeOf(const QWidget &part, const QWidget &view)
{
    return {part.mapTo(&view, QPoint()), part.size()};
}

/// Whether each part of a monitor of that size lies in it, and over no other part.
void checkParts(const ZelvoProject &project, const QSize &size, bool isMagnified)
{
    StageMonitor stage(project);
    stage.view.setMagnified(isMagnified);
    stage.view.resize(size);
    stage.layOut();
    QCOMPARE(stage.view.size(), size);
    const QList<QWidget *> parts = shownParts(stage.view);
    QCOMPARE(parts.size(), 11);
    for (const QWidget *part : parts) {
        const QRect place = placeOf(*part, stage.view);
        QVERIFY2(stage.view.rect().contains(place), qPrintable(part->objectName()));
        for (const QWidget *other : parts) {
            QVERIFY2(part == other || !place.intersects(placeOf(*other, stage.view)),
                     qPrintable(part->objectName() + u'/' + other->objectName()));
        }
    }
}

} // namespace

class TestStageLayout : public GuiTest
{
    Q_OBJECT

private slots:
    void everyPartLiesInTheWindowAndOverNoOther_data()
    {
        QTest::addColumn<ZelvoProject>("project");
        QTest::addColumn<QSize>("size");
        const QString lyric = QStringLiteral("Great is the morning\nBright with your mercy");
        const QString hebrew = QStringLiteral("\u05d4\u05dc\u05dc\u05d5 \u05d0\u05ea ");
        for (const QSize &size : {QSize(900, 540), QSize(901, 773), QSize(1180, 720),
                                  QSize(1920, 540), QSize(1920, 1080), QSize(3840, 2160)}) {
            const auto row = [&](const char *name, const ZelvoProject &project) {
                QTest::addRow("%s in %d x %d", name, size.width(), size.height())
                    << project << size;
            };
            row("a lyric", projectWith(lyric, QStringLiteral("Verse 1")));
            row("an empty project", ProjectTemplates::blankProject(someTime()));
            row("empty words and title", projectWith({}, {}));
            row("long words and titles", projectWith(lyric.repeated(40), endlessTitle));
            row("hundreds of lines",
                projectWith(QStringLiteral("line\n").repeated(400),
                            QStringLiteral("A title\nin\nlines")));
            row("a word without end", projectWith(QString(2000, u'w'), QString(400, u'W')));
            row("right-to-left", projectWith(hebrew.repeated(30), hebrew));
            row("emoji",
                projectWith(QStringLiteral("\U0001f64f\U0001f3fd ").repeated(200),
                            QStringLiteral("\U0001f3b5 Song")));
        }
    }

    void everyPartLiesInTheWindowAndOverNoOther()
    {
        QFETCH(ZelvoProject, project);
        QFETCH(QSize, size);
        checkParts(project, size, false);
    }

    void everyPartLiesOnAScreenOfAnyShapeAndOverNoOther_data()
    {
        QTest::addColumn<ZelvoProject>("project");
        QTest::addColumn<QSize>("size");
        const QString lyric = QStringLiteral("Great is the morning\n").repeated(9);
        for (const QSize &size : {QSize(800, 600), QSize(1366, 768), QSize(1920, 1080),
                                  QSize(1080, 1920), QSize(3440, 1440), QSize(3840, 2160)}) {
            QTest::addRow("%d x %d", size.width(), size.height())
                << projectWith(lyric, endlessTitle) << size;
        }
    }

    void everyPartLiesOnAScreenOfAnyShapeAndOverNoOther()
    {
        QFETCH(ZelvoProject, project);
        QFETCH(QSize, size);
        checkParts(project, size, true);
    }

    void whatIsNotElidedOrShrunkHasAllTheRoomItNeeds_data()
    {
        everyPartLiesInTheWindowAndOverNoOther_data();
    }

    void aMagnifiedMonitorIsTheUsualOneAtTheSizeOfItsScreen_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<double>("scale");
        QTest::newRow("as wide and high as usual") << QSize(1180, 720) << 1.0;
        QTest::newRow("wider") << QSize(1920, 1080) << 1.5;
        QTest::newRow("higher") << QSize(1770, 1440) << 1.5;
        QTest::newRow("three times as large") << QSize(3540, 2160) << 3.0;
        QTest::newRow("smaller") << QSize(590, 400) << 0.5;
    }

    void aMagnifiedMonitorIsTheUsualOneAtTheSizeOfItsScreen()
    {
        QFETCH(QSize, size);
        QFETCH(double, scale);
        StageMonitor stage(projectWith(QStringLiteral("Amen"), QStringLiteral("Verse 1")));
        stage.view.setMagnified(true);
        stage.view.resize(size);
        stage.layOut();
        const auto pixelSize = [&](const char *name) {
            return stage.part<QWidget>(name)->font().pixelSize();
        };
        QCOMPARE(pixelSize("currentSection"), qRound(22 * scale));
        QCOMPARE(pixelSize("slideCount"), qRound(20 * scale));
        QCOMPARE(pixelSize("stageClock"), qRound(34 * scale));
        QCOMPARE(pixelSize("queuedTitle"), qRound(16 * scale));
        const auto *slide = stage.view.findChild<SlideView *>();
        QCOMPARE(slide->height(), qRound(230 * scale));
        QCOMPARE(slide->mapTo(&stage.view, QPoint()).x(), qRound(18 * scale));
        QCOMPARE(stage.part<QWidget>("nextPanel")->width(), qRound(390 * scale));
    }

    void theWordsGrowWithTheMonitorAndAreAsBeforeInAWindow()
    {
        StageMonitor stage(projectWith(QStringLiteral("HHH"), QStringLiteral("Verse 1")));
        const auto inkOfWords = [&](const QSize &size) {
            stage.view.resize(size);
            stage.layOut();
            return inkOf(stage.image().copy(placeOf(*stage.part("currentText"), stage.view)))
                .size();
        };
        const QSize usual = inkOfWords({1180, 720});
        stage.view.setMagnified(true);
        const QSize magnified = inkOfWords({1920, 1080});
        QVERIFY(std::abs(magnified.height() - 1.5 * usual.height()) <= 2);
        QVERIFY(std::abs(magnified.width() - 1.5 * usual.width()) <= 2);
        stage.view.setMagnified(false);
        QCOMPARE(inkOfWords({1920, 1080}), usual);
    }

    void aMonitorThatWasMagnifiedLooksAsBeforeInItsWindow()
    {
        StageMonitor stage(projectWith(QStringLiteral("Amen"), QStringLiteral("Verse 1")));
        const QImage before = stage.image();
        stage.view.setMagnified(true);
        stage.view.resize(1920, 1080);
        stage.layOut();
        stage.view.setMagnified(false);
        stage.view.resize(1180, 720);
        stage.layOut();
        QCOMPARE(stage.image(), before);
    }

    void whatIsNotElidedOrShrunkHasAllTheRoomItNeeds()
    {
        QFETCH(ZelvoProject, project);
        QFETCH(QSize, size);
        StageMonitor stage(project);
        stage.world.store.toggleBlackout();
        stage.view.resize(size);
        stage.layOut();
        for (const char *name : {"slideCount", "stageClock", "outputMode"}) {
            const auto *part = stage.part<QWidget>(name);
            QVERIFY2(part->width() >= part->sizeHint().width(), name);
            QVERIFY2(part->height() >= part->sizeHint().height(), name);
        }
        for (const char *name : {"currentSection", "queuedTitle"})
            QVERIFY2(stage.part(name)->height() >= stage.part(name)->fontMetrics().height(), name);
    }

    void theImagesHaveTheirHeightsInEveryWindow_data()
    {
        QTest::addColumn<QSize>("size");
        for (const QSize &size : {QSize(900, 540), QSize(1180, 720), QSize(3840, 2160)})
            QTest::addRow("%d x %d", size.width(), size.height()) << size;
    }

    void theImagesHaveTheirHeightsInEveryWindow()
    {
        QFETCH(QSize, size);
        StageMonitor stage;
        stage.view.resize(size);
        stage.layOut();
        const QList<SlideView *> slides = stage.view.findChildren<SlideView *>();
        const QRect current =
            slides.at(0)->slideRect().translated(slides.at(0)->mapTo(&stage.view, QPoint()));
        const QRect next =
            slides.at(1)->slideRect().translated(slides.at(1)->mapTo(&stage.view, QPoint()));
        QCOMPARE(current.size(), QSize(409, 230));
        QCOMPARE(next.size(), QSize(329, 185));
        QCOMPARE(current.left(), 18);
        QCOMPARE(next.left(), size.width() - 390 + 1 + 18);
    }

    void theWordsHaveTheRestOfTheirPanels()
    {
        StageMonitor stage;
        stage.view.resize(900, 540);
        stage.layOut();
        const QList<FittedText *> words = stage.view.findChildren<FittedText *>();
        QCOMPARE(words.size(), 2);
        for (const FittedText *text : words) {
            QCOMPARE(placeOf(*text, stage.view).bottom(), 540 - 18 - 1);
            QVERIFY(text->height() > 100);
        }
    }

    void aLongTitleEndsWithAnEllipsisBeforeTheClock()
    {
        StageMonitor stage(projectWith(QStringLiteral("Amen"), endlessTitle));
        stage.view.resize(900, 540);
        stage.layOut();
        QCOMPARE(stage.text("currentSection"), endlessTitle);
        const QRect title = placeOf(*stage.part("currentSection"), stage.view);
        QVERIFY(title.right() < placeOf(*stage.part<QWidget>("stageClock"), stage.view).left());
        const QImage line = stage.image().copy(title);
        const QRect ink = inkOf(line);
        constexpr int dot = 3;
        QVERIFY(ink.right() > line.width() - 40);
        const QRect lastDot = inkOf(line.copy(ink.right() - dot + 1, 0, dot, line.height()));
        QVERIFY(lastDot.height() < line.height() / 3);
        QVERIFY(lastDot.top() > line.height() / 2);
    }
};

QUENARA_GUI_TEST(TestStageLayout)

} // namespace tst_stage_layout

#include "tst_stage_layout.moc"
