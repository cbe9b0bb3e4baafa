#include "DesignCanvas.h"
#include "LiveSlideMark.h"
#include "SymbolLabel.h"

#include <QLabel>
#include <QScreen>

using namespace Qt::StringLiterals;
using namespace quenara;
using namespace quenara::test;

namespace tst_design_canvas {

namespace {

const QString lyric = QStringLiteral("A1.lyric");
const QString line = QStringLiteral("A1.line");

/// On a canvas of 1920 by 1080: "back" lies under "front" where they overlap; nothing is snapped to
/// by chance.
ZelvoProject shapes()
{
    ZelvoProject project = showOf({1});
    SlideElement back =
        rectangleLayer(QStringLiteral("back"), {100, 100, 600, 400}, {1, 0, 0, 1}, 1);
    SlideElement front =
        rectangleLayer(QStringLiteral("front"), {500, 300, 400, 600}, {0, 1, 0, 1}, 2);
    project.serviceItems[0].slides[0].design.elements = {front, back};
    return project;
}

const QString back = QStringLiteral("back");
const QString front = QStringLiteral("front");

/// The largest distance between an edge of a frame and where it is expected, in canvas units.
double distance(const CanvasFrame &a, const CanvasFrame &b)
{
    return std::max({std::abs(a.x - b.x), std::abs(a.y - b.y), std::abs(a.width - b.width),
                     std::abs(a.height - b.height)});
}

constexpr double exact = 1e-9;

/// Whether two images differ at \a point or right beside it.
bool differ(const QImage &a, const QImage &b, const QPoint &point)
{
    const QRect around(point - QPoint(1, 1), QSize(3, 3));
    return a.copy(around) != b.copy(around);
}

} // namespace

class TestDesignCanvas : public GuiTest
{
    Q_OBJECT

private slots:
    void theSizeOfTheCanvasIsSeenAsItStandsOrNotAtAll()
    {
        DesignCanvas c;
        const QString text = QStringLiteral("1920 x 1080  |  16:9 canvas");
        const QList<QLabel *> labels = c.view.findChildren<QLabel *>();
        const auto found = std::find_if(labels.begin(), labels.end(),
                                        [&](const QLabel *label) { return label->text() == text; });
        QVERIFY(found != labels.end());
        QLabel &label = **found;
        /// How far the letters reach, in points.
        const auto reach = [&label] {
            const QImage image = label.grab().toImage();
            int last = 0;
            for (int x = 0; x < image.width(); ++x) {
                for (int y = 0; y < image.height(); ++y)
                    last = image.pixel(x, y) == image.pixel(0, 0) ? last : x;
            }
            return last;
        };
        const QFontMetrics metrics = label.fontMetrics();
        QVERIFY(reach() > metrics.horizontalAdvance(text) - metrics.horizontalAdvance(u' '));
        label.resize(metrics.horizontalAdvance(text) / 2, label.height());
        QCOMPARE(reach(), 0);
    }

    void theTitleStandsBesideTheButtonsWhereThereIsNoRoomForTheSize_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<bool>("isInTheMiddle");
        QTest::newRow("a wide canvas") << 700 << false;
        QTest::newRow("a narrow one") << 360 << true;
    }

    void theTitleStandsBesideTheButtonsWhereThereIsNoRoomForTheSize()
    {
        QFETCH(int, width);
        QFETCH(bool, isInTheMiddle);
        DesignCanvas c;
        c.view.resize(width, 600);
        QCoreApplication::processEvents();
        const auto middleOf = [&c](const QWidget &widget) {
            return widget.mapTo(&c.view, widget.rect().center()).y();
        };
        QWidget &button = named(c.view, QStringLiteral("Text"));
        const QWidget *title = nullptr;
        for (const QLabel *label : c.view.findChildren<QLabel *>()) {
            if (label->property("role").toString() == u"canvasTitle")
                title = label;
        }
        QVERIFY(title);
        QCOMPARE(std::abs(middleOf(*title) - middleOf(button)) <= 1, isInTheMiddle);
    }

    void aTitleOfUsualLengthIsReadWholeBesideTheButtonsOnALargeScreenAtAScaleOfTwo()
    {
        DesignCanvas c;
        c.store.updateSelectedSlide(
            [](Slide &slide) { slide.title = QStringLiteral("Romans 15:13"); });
        c.view.resize(333, 300);
        QCoreApplication::processEvents();
        for (const QLabel *label : c.view.findChildren<QLabel *>()) {
            if (label->text() == u"Romans 15:13")
                QVERIFY(label->isVisible() && label->width() >= label->sizeHint().width());
        }
        for (const char *name : {"Text", "Lyric", "Image"}) {
            const QWidget &button = named(c.view, QString::fromUtf8(name));
            QVERIFY(button.width() >= button.minimumSizeHint().width());
        }
    }

    void theHeaderNamesTheSlideAndTheCanvas()
    {
        DesignCanvas c;
        const auto shows = [&](const QString &text) {
            const QList<QLabel *> labels = c.view.findChildren<QLabel *>();
            return std::any_of(labels.begin(), labels.end(), [&](const QLabel *label) {
                return label->isVisible() && label->text() == text;
            });
        };
        QVERIFY(shows(QStringLiteral("Title of A1")));
        QVERIFY(shows(QStringLiteral("1920 x 1080  |  16:9 canvas")));
        c.store.updateSelectedSlide([](Slide &slide) {
            slide.title = QStringLiteral("<b>Other</b>");
            slide.design.canvasSize = {1000, 1000};
        });
        QVERIFY(shows(QStringLiteral("<b>Other</b>")));
        QVERIFY(shows(QStringLiteral("1920 x 1080  |  16:9 canvas")));
        QVERIFY(!shows(QStringLiteral("Blank project")));
        c.store.newBlankProject();
        QVERIFY(shows(QStringLiteral("No Slide")));
        QVERIFY(shows(QStringLiteral("Blank project")));
        QVERIFY(shows(QStringLiteral("Add a slide from the rundown to begin.")));
        QVERIFY(!c.canvas->isVisible());
        const auto *symbol = c.view.findChild<SymbolLabel *>();
        QVERIFY(symbol->isVisible());
        QCOMPARE(symbol->width(), symbol->height());
    }

    void theLiveSlideIsMarkedAsSuchWhileItIsEdited()
    {
        const DesignCanvas op(showOf({3}));
        const auto &mark = named<LiveSlideMark>(op.view, u"You are editing the live slide"_s);
        QVERIFY(mark.isVisible());
        op.store.selectSlide(u"A2"_s, true);
        QVERIFY(!mark.isVisible());
        op.store.goLive();
        QVERIFY(mark.isVisible());
        op.store.queueNext();
        QVERIFY(!mark.isVisible());
        op.store.previousLive();
        QVERIFY(mark.isVisible());
        op.store.newBlankProject();
        QVERIFY(!mark.isVisible());
    }

    void theMarkOfTheLiveSlideMovesNothingAndCoversNoneOfTheSlide_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("wide") << QSize(1400, 420);
        QTest::newRow("high") << QSize(560, 900);
        QTest::newRow("small") << QSize(300, 260);
    }

    void theMarkOfTheLiveSlideMovesNothingAndCoversNoneOfTheSlide()
    {
        QFETCH(QSize, size);
        DesignCanvas op(showOf({2}));
        op.view.resize(size);
        const auto &mark = *op.view.findChild<LiveSlideMark *>();
        const QRectF place = op.canvas->slideRect();
        QVERIFY(op.canvas->rect().contains(mark.geometry()));
        QVERIFY(mark.geometry().bottom() < place.top());
        const QSize before = op.canvas->size();
        op.store.selectSlide(u"A2"_s, true);
        QCOMPARE(op.canvas->slideRect(), place);
        QCOMPARE(op.canvas->size(), before);
    }

    void theButtonsAddLayers_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<SlideElementKind>("kind");
        QTest::newRow("Text") << "Text" << SlideElementKind::text;
        QTest::newRow("Lyric") << "Lyric" << SlideElementKind::songLyricText;
        QTest::newRow("Image") << "Image" << SlideElementKind::image;
    }

    void theButtonsAddLayers()
    {
        QFETCH(QString, button);
        QFETCH(SlideElementKind, kind);
        DesignCanvas c;
        const QString image = c.world.folder.filePath(QStringLiteral("image.png"));
        QVERIFY(QImage(8, 8, QImage::Format_RGB32).save(image));
        c.world.panels.answer = QUrl::fromLocalFile(image);
        const qsizetype before = c.slide().design.elements.size();
        QTest::mouseClick(c.button(button), Qt::LeftButton);
        QCOMPARE(c.slide().design.elements.size(), before + 1);
        QVERIFY(c.store.selectedElement()->kind == kind);
    }

    void withoutASlideTheButtonsDoNothing()
    {
        DesignCanvas c;
        c.store.newBlankProject();
        const Snapshot before = snapshotOf(c.store);
        for (const char *button : {"Text", "Lyric", "Image"})
            QTest::mouseClick(c.button(QLatin1String(button)), Qt::LeftButton);
        QVERIFY(snapshotOf(c.store) == before);
        QVERIFY(c.world.panels.asked.isEmpty());
    }

    void aClickSelectsTheTopmostLayerUnderIt()
    {
        DesignCanvas c(shapes());
        const QList<ZelvoProject> undoStack = c.store.undoStore().undoStack();
        c.click(c.pointOf({150, 150}));
        QCOMPARE(c.store.selectedElementID(), back);
        c.click(c.pointOf({600, 400}));
        QCOMPARE(c.store.selectedElementID(), front);
        c.click(c.pointOf({1800, 1000}));
        QCOMPARE(c.store.selectedElementID(), front);
        QVERIFY(c.store.undoStore().undoStack() == undoStack);
    }

    void onlyTheLeftButtonSelects()
    {
        DesignCanvas c(shapes());
        for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton})
            QTest::mouseClick(c.canvas, button, Qt::NoModifier, c.pointOf({150, 150}));
        QCOMPARE(c.store.selectedElementID(), std::nullopt);
    }

    void aHiddenLayerIsSelectedWhereItWouldBe()
    {
        DesignCanvas c(shapes());
        c.store.selectElement(front);
        c.store.updateSelectedElement([](SlideElement &element) { element.visible = false; });
        c.store.selectElement(back);
        c.click(c.pointOf({600, 400}));
        QCOMPARE(c.store.selectedElementID(), front);
    }

    void aDragSelectsAndMovesTheLayerAsOneStep()
    {
        DesignCanvas c(shapes());
        c.store.selectElement(front);
        const QPoint from = c.pointOf({150, 150});
        const QPoint travel(60, 25);
        c.drag(from, from + travel);
        QCOMPARE(c.store.selectedElementID(), back);
        const CanvasFrame expected{100 + travel.x() / c.scale(), 100 + travel.y() / c.scale(), 600,
                                   400};
        QVERIFY(distance(c.layer(back).frame, expected) < exact);
        c.store.undo();
        QCOMPARE(c.layer(back).frame, (CanvasFrame{100, 100, 600, 400}));
        QVERIFY(!c.store.canUndo());
    }

    void aDragOnASlideThatTheShowHasSteppedToIsOneStepToo()
    {
        DesignCanvas c(showOf({1, 1}));
        c.store.nextLive();
        const QString layer = QStringLiteral("B1.lyric");
        const CanvasFrame before = c.layer(layer).frame;
        const QPoint from = c.middleOf(layer);
        const QPoint travel(60, 25);
        c.drag(from, from + travel);
        const CanvasFrame expected =
            before.offsetBy(travel.x() / c.scale(), travel.y() / c.scale());
        QVERIFY(distance(c.layer(layer).frame, expected) < exact);
        c.store.undo();
        QCOMPARE(c.layer(layer).frame, before);
        QVERIFY(!c.store.canUndo());
    }

    void aDragBeginsAfterTwoPoints()
    {
        DesignCanvas c(shapes());
        const QPoint from = c.pointOf({150, 150});
        c.press(from);
        c.moveTo(from + QPoint(1, 1));
        QCOMPARE(c.layer(back).frame.x, 100.0);
        c.moveTo(from + QPoint(2, 0));
        QVERIFY(distance(c.layer(back).frame, {100 + 2 / c.scale(), 100, 600, 400}) < exact);
        c.moveTo(from);
        QCOMPARE(c.layer(back).frame.x, 100.0);
        c.release(from);
        QVERIFY(!c.store.canUndo());
    }

    void aLockedLayerMovesWhenDragged()
    {
        DesignCanvas c(shapes());
        c.store.selectElement(back);
        c.store.updateSelectedElement([](SlideElement &element) { element.locked = true; });
        c.drag(c.pointOf({150, 150}), c.pointOf({150, 150}) + QPoint(0, 40));
        QVERIFY(distance(c.layer(back).frame, {100, 100 + 40 / c.scale(), 600, 400}) < exact);
    }

    void aLayerMayBeDraggedOffTheSlide()
    {
        DesignCanvas c(shapes());
        const QPoint from = c.pointOf({150, 150});
        c.drag(from, QPoint(-400, 0) + from);
        QVERIFY(c.layer(back).frame.x + 600 < 0);
    }

    void aLayerBesideTheSlideIsTakenWhereItLies()
    {
        DesignCanvas c(shapes());
        c.store.selectElement(back);
        c.store.updateSelectedElement([](SlideElement &element) { element.frame.x = -610; });
        const QPoint beside = c.pointOf({-30, 200});
        QVERIFY(!c.canvas->slideRect().contains(beside));
        c.drag(beside, beside + QPoint(50, 0));
        QVERIFY(distance(c.layer(back).frame, {-610 + 50 / c.scale(), 100, 600, 400}) < exact);
    }

    void nearTheCentreALayerSnapsAndTheGuidesShow()
    {
        DesignCanvas c(shapes());
        c.store.selectElement(back);
        c.store.updateSelectedElement([](SlideElement &element) {
            element.frame = {770 + 180, 300, 400, 200};
        });
        const QPoint middle = c.canvas->mapTo(&c.view, c.canvas->slideRect().center().toPoint());
        const QPoint onVertical = middle + QPoint(0, -200);
        const QPoint onHorizontal = middle + QPoint(-300, 0);
        const QImage before = c.image();
        const auto differs = [&](const QPoint &point) { return differ(c.image(), before, point); };
        const QPoint from = c.middleOf(back);
        c.press(from);
        c.moveTo(from - QPoint(int(180 * c.scale()), 0));
        QCOMPARE(c.layer(back).frame.x, 760.0);
        QCOMPARE(c.layer(back).frame.y, 300.0);
        QVERIFY(differs(onVertical));
        QVERIFY(!differs(onHorizontal));
        const QPoint both(from.x() - int(180 * c.scale()), from.y() + int(142 * c.scale()));
        c.moveTo(both);
        QCOMPARE(c.layer(back).frame.y, 440.0);
        QVERIFY(differs(onVertical));
        QVERIFY(differs(onHorizontal));
        c.release(both);
        QVERIFY(!differs(onVertical));
        QVERIFY(!differs(onHorizontal));
        QCOMPARE(c.layer(back).frame, (CanvasFrame{760, 440, 400, 200}));
    }

    void theHandleResizesWithinTheCanvasAsOneStep()
    {
        DesignCanvas c(shapes());
        c.store.selectElement(back);
        const QPoint from = c.handleOf(back);
        c.drag(from, from + QPoint(30, 40));
        QVERIFY(
            distance(c.layer(back).frame, {100, 100, 600 + 30 / c.scale(), 400 + 40 / c.scale()})
            < exact);
        c.drag(c.handleOf(back), QPoint(2000, 2000));
        QCOMPARE(c.layer(back).frame, (CanvasFrame{100, 100, 1820, 980}));
        c.drag(c.handleOf(back), QPoint(-2000, -2000));
        QCOMPARE(c.layer(back).frame, (CanvasFrame{100, 100, 80, 48}));
        for (int i = 0; i < 3; ++i)
            c.store.undo();
        QCOMPARE(c.layer(back).frame, (CanvasFrame{100, 100, 600, 400}));
        QVERIFY(!c.store.canUndo());
    }

    void resizingNearTheFarEdgeGivesLessThanTheSmallestSize()
    {
        DesignCanvas c(shapes());
        c.store.selectElement(back);
        c.store.updateSelectedElement([](SlideElement &element) {
            element.frame = {1900, 100, 10, 400};
        });
        c.drag(c.handleOf(back), c.handleOf(back) + QPoint(50, 0));
        QVERIFY(distance(c.layer(back).frame, {1900, 100, 20, 400}) < exact);
    }

    void resizingSnapsToNothing()
    {
        DesignCanvas c(shapes());
        c.store.selectElement(back);
        c.store.updateSelectedElement([](SlideElement &element) {
            element.frame = {100, 100, 1700, 860};
        });
        c.drag(c.handleOf(back), c.handleOf(back) + QPoint(7, 7));
        QVERIFY(distance(c.layer(back).frame, {100, 100, 1700 + 7 / c.scale(), 860 + 7 / c.scale()})
                < exact);
    }

    void theHandleIsTwelvePointsAtEverySize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("small") << QSize(420, 300);
        QTest::newRow("usual") << QSize(854, 664);
        QTest::newRow("large") << QSize(1800, 1000);
    }

    void theHandleIsTwelvePointsAtEverySize()
    {
        QFETCH(QSize, size);
        DesignCanvas c(shapes());
        c.view.resize(size);
        c.store.selectElement(back);
        for (const QPoint &away : {QPoint(-5, -5), QPoint(5, -5), QPoint(-5, 5), QPoint(5, 5)}) {
            const CanvasFrame frame = c.layer(back).frame;
            const QPoint from = c.handleOf(back) + away;
            c.drag(from, from + QPoint(4, 4));
            QVERIFY(distance(c.layer(back).frame,
                             {100, 100, frame.width + 4 / c.scale(), frame.height + 4 / c.scale()})
                    < exact);
        }
    }

    void theHandleOfACoveredLayerCanStillBeTaken()
    {
        DesignCanvas c(shapes());
        c.store.selectElement(back); // its corner lies under the other layer
        c.drag(c.handleOf(back), c.handleOf(back) + QPoint(20, 0));
        QCOMPARE(c.store.selectedElementID(), back);
        QVERIFY(distance(c.layer(back).frame, {100, 100, 600 + 20 / c.scale(), 400}) < exact);
    }

    void escapeDuringADragPutsTheLayerBack_data()
    {
        QTest::addColumn<bool>("isResize");
        QTest::newRow("a move") << false;
        QTest::newRow("a resize") << true;
    }

    void escapeDuringADragPutsTheLayerBack()
    {
        QFETCH(bool, isResize);
        DesignCanvas c(shapes());
        c.store.selectElement(back);
        const Snapshot before = snapshotOf(c.store);
        const QPoint from = isResize ? c.handleOf(back) : c.pointOf({150, 150});
        c.press(from);
        c.moveTo(from + QPoint(50, 50));
        QVERIFY(c.layer(back).frame != (CanvasFrame{100, 100, 600, 400}));
        QTest::keyClick(c.view.windowHandle(), Qt::Key_Escape);
        QVERIFY(snapshotOf(c.store) == before);
        c.moveTo(from + QPoint(90, 90));
        c.release(from + QPoint(90, 90));
        QVERIFY(snapshotOf(c.store) == before);
    }

    void whatEndsTheGestureEndsTheDrag_data()
    {
        QTest::addColumn<std::function<void(WorkspaceStore &)>>("operation");
        const auto row = [](const char *name, const std::function<void(WorkspaceStore &)> &run) {
            QTest::newRow(name) << run;
        };
        row("undo", [](WorkspaceStore &store) { store.undo(); });
        row("another slide", [](WorkspaceStore &store) { store.addSlide(); });
        row("another selection", [](WorkspaceStore &store) { store.selectElement(front); });
        row("the layer deleted", [](WorkspaceStore &store) { store.deleteSelectedElement(); });
        row("another document", [](WorkspaceStore &store) { store.newBlankProject(); });
    }

    void whatEndsTheGestureEndsTheDrag()
    {
        QFETCH(std::function<void(WorkspaceStore &)>, operation);
        DesignCanvas c(shapes());
        const QPoint from = c.pointOf({150, 150});
        c.press(from);
        c.moveTo(from + QPoint(30, 30));
        operation(c.store);
        const Snapshot after = snapshotOf(c.store);
        c.moveTo(from + QPoint(60, 60));
        c.release(from + QPoint(60, 60));
        QVERIFY(snapshotOf(c.store) == after);
    }

    void aPressEndsWithTheLayerThatIsPressed_data()
    {
        QTest::addColumn<std::function<void(WorkspaceStore &)>>("operation");
        const auto row = [](const char *name, const std::function<void(WorkspaceStore &)> &run) {
            QTest::newRow(name) << run;
        };
        row("another slide", [](WorkspaceStore &store) { store.addSlide(); });
        row("another selection", [](WorkspaceStore &store) { store.selectElement(front); });
        row("the layer deleted", [](WorkspaceStore &store) { store.deleteSelectedElement(); });
        row("another document", [](WorkspaceStore &store) { store.newBlankProject(); });
    }

    void aPressEndsWithTheLayerThatIsPressed()
    {
        QFETCH(std::function<void(WorkspaceStore &)>, operation);
        DesignCanvas c(shapes());
        const QPoint from = c.pointOf({150, 150});
        c.press(from);
        operation(c.store);
        const Snapshot after = snapshotOf(c.store);
        c.moveTo(from + QPoint(60, 60));
        c.release(from + QPoint(60, 60));
        QVERIFY(snapshotOf(c.store) == after);
    }

    void theShowGoesOnDuringADrag()
    {
        DesignCanvas c(showOf({3}));
        const QPoint from = c.middleOf(lyric);
        c.press(from);
        c.moveTo(from + QPoint(80, 80));
        c.store.toggleBlackout();
        c.moveTo(from + QPoint(100, 100));
        c.release(from + QPoint(100, 100));
        QCOMPARE(c.store.outputMode(), OutputMode::blackout);
        c.store.undo();
        QVERIFY(!c.store.canUndo());
    }

    void cursorsTellWhatAPressWouldDo()
    {
        DesignCanvas c(shapes());
        c.store.selectElement(back);
        const auto shapeAt = [&](const QPoint &point) {
            c.moveTo(point);
            return c.canvas->cursor().shape();
        };
        QCOMPARE(shapeAt(c.pointOf({150, 150})), Qt::SizeAllCursor);
        QCOMPARE(shapeAt(c.handleOf(back)), Qt::SizeFDiagCursor);
        QCOMPARE(shapeAt(c.pointOf({1800, 1000})), Qt::ArrowCursor);
        QCOMPARE(shapeAt(c.handleOf(front)), Qt::ArrowCursor);
    }

    void theSlideIsPaintedAsTheRendererPaintsIt()
    {
        DesignCanvas c(showOf({1}));
        c.store.selectElement(std::nullopt);
        const QRect slide = c.canvas->slideRect().toAlignedRect().adjusted(1, 1, -1, -1);
        const auto difference = [&] {
            const QImage shown = c.canvas->grab().toImage().copy(slide);
            QImage image(c.canvas->size(), QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::black);
            QPainter painter(&image);
            paintAnew({.slide = c.slide(),
                       .showSafeArea = true,
                       .selectedElementID = c.store.selectedElementID()},
                      painter, c.canvas->slideRect());
            painter.end();
            return largestDifference(shown.convertToFormat(QImage::Format_ARGB32),
                                     image.copy(slide).convertToFormat(QImage::Format_ARGB32));
        };
        QCOMPARE(difference(), 0);
        c.store.updateSelectedSlide([](Slide &other) {
            for (SlideElement &element : other.design.elements)
                element.frame.y += 50;
        });
        QCOMPARE(difference(), 0);
    }

    void whatADragLeavesOnTheScreenIsWhatIsPaintedAfresh()
    {
        DesignCanvas c(showOf({1}));
        const QPoint from = c.middleOf(lyric);
        c.press(from);
        for (int i = 1; i < 20; ++i) {
            c.moveTo(from + QPoint(11 * i, -7 * i));
            QCoreApplication::processEvents();
        }
        const auto backing = [&] { return c.view.screen()->grabWindow(c.view.winId()).toImage(); };
        const QImage shown = backing();
        c.view.repaint();
        QCOMPARE(largestDifference(shown.convertToFormat(QImage::Format_ARGB32),
                                   backing().convertToFormat(QImage::Format_ARGB32)),
                 0);
        c.release(from);
    }

    void theSelectedLayerIsOutlinedWithAHandle()
    {
        DesignCanvas c(shapes());
        const QImage unselected = c.canvas->grab().toImage();
        c.store.selectElement(back);
        const QImage image = c.canvas->grab().toImage();
        for (const QPointF &edge : {QPointF(300, 100), QPointF(100, 300), QPointF(300, 500)})
            QVERIFY(differ(image, unselected, c.pointOf(edge)));
        QCOMPARE(image.pixelColor(c.handleOf(back)), ZelvoTheme::dark().accent);
        for (const QPointF &edge : {QPointF(800, 300), QPointF(900, 600), QPointF(300, 300)})
            QVERIFY(!differ(image, unselected, c.pointOf(edge)));
    }

    void aHiddenSelectedLayerHasNoOutline()
    {
        DesignCanvas c(shapes());
        c.store.selectElement(back);
        c.store.updateSelectedElement([](SlideElement &element) { element.visible = false; });
        const QImage image = c.canvas->grab().toImage();
        c.store.selectElement(std::nullopt);
        QCOMPARE(image, c.canvas->grab().toImage());
    }

    void aSmallAreaShowsNoSlideAndTakesNoPress()
    {
        DesignCanvas c(shapes());
        c.canvas->setParent(nullptr);
        c.canvas->resize(40, 40);
        c.canvas->show();
        c.drag({20, 20}, {30, 30});
        QCOMPARE(c.store.selectedElementID(), std::nullopt);
        QVERIFY(!c.store.canUndo());
        delete c.canvas;
    }

    void aCanvasWithoutASizeTakesNoPress()
    {
        ZelvoProject project = shapes();
        project.serviceItems[0].slides[0].design.canvasSize = {0, 1080};
        DesignCanvas c(project);
        const QPoint middle = c.canvas->rect().center();
        c.drag(middle, middle + QPoint(30, 30));
        QCOMPARE(c.store.selectedElementID(), std::nullopt);
        QVERIFY(!c.store.canUndo());
    }

    void theAreaFollowsTheScheme()
    {
        DesignCanvas c(shapes());
        QCOMPARE(c.canvas->grab().toImage().pixelColor(1, 1), ZelvoTheme::dark().canvasBackground);
        applyTheme(ZelvoTheme::light());
        QCOMPARE(c.canvas->grab().toImage().pixelColor(1, 1), ZelvoTheme::light().canvasBackground);
    }

    void theSlideThrowsAShadowDownwards()
    {
        DesignCanvas c(shapes());
        applyTheme(ZelvoTheme::light());
        const QRect slide = c.canvas->slideRect().toAlignedRect();
        const QImage image = c.canvas->grab().toImage();
        const auto lightness = [&](int x, int y) { return image.pixelColor(x, y).lightness(); };
        const int column = slide.left() + slide.width() / 4; // beside what stands over it
        QVERIFY(lightness(column, slide.bottom() + 4) < lightness(column, slide.top() - 4));
        QVERIFY(lightness(column, slide.bottom() + 4) < lightness(column, slide.bottom() + 20));
        QCOMPARE(image.pixelColor(column, slide.bottom() + 50),
                 ZelvoTheme::light().canvasBackground);
    }
};

QUENARA_GUI_TEST(TestDesignCanvas)

} // namespace tst_design_canvas

#include "tst_design_canvas.moc"
