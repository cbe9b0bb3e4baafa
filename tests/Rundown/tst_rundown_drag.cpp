#include "RundownWindow.h"
#include "ZelvoTheme.h"

#include <QDialog>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace quenara;
using namespace quenara::test;

namespace tst_rundown_drag {

namespace {

constexpr int reach = 3; ///< points from the edge of a row to a place within it

/// The rundown with the mouse over it, and nothing queued that it would mark.
struct Dragging : Rundown
{
    QWidget *viewport = list->viewport();

    explicit Dragging(const ZelvoProject &project) : Rundown(project)
    {
        store.queueSlide(std::nullopt);
    }

    QRect rectOf(const QString &id) const
    {
        const QModelIndex slide = model->indexOfSlide(id);
        return list->visualRect(slide.isValid() ? slide : model->indexOfServiceItem(id));
    }
    QPoint aboveMiddle(const QString &id) const
    {
        return {rectOf(id).center().x(), rectOf(id).top() + reach};
    }
    QPoint belowMiddle(const QString &id) const
    {
        return {rectOf(id).center().x(), rectOf(id).bottom() - reach};
    }

    void press(const QString &id) const
    {
        QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, rectOf(id).center());
    }
    void moveTo(const QPoint &point) const { QTest::mouseMove(viewport, point); }
    void release(const QPoint &point) const
    {
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, point);
    }
    void drag(const QString &id, const QPoint &to) const
    {
        press(id);
        moveTo((rectOf(id).center() + to) / 2);
        moveTo(to);
        release(to);
    }

    /// Sections with their slides, such as "A: A1 A2 | B: B1".
    QString rundown() const
    {
        QStringList items;
        for (qsizetype i = 0; i < store.project().serviceItems.size(); ++i) {
            items.append((store.project().serviceItems.at(i).id + u": "_s + titlesOf(i).join(u' '))
                             .trimmed());
        }
        return items.join(u" | "_s);
    }

    /// The heights at which the line shows, in the middle of the list; empty without one.
    QList<int> line() const
    {
        const QImage image = viewport->grab().toImage();
        const QColor accent = ZelvoTheme::current(colorSchemeOf(list->palette())).accent;
        QList<int> heights;
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(image.width() * 3 / 5, y) == accent
                && image.pixelColor(image.width() * 4 / 5, y) == accent)
                heights.append(y);
        }
        return heights;
    }
};

} // namespace

class TestRundownDrag : public GuiTest
{
    Q_OBJECT

private slots:
    void whatIsDraggedLandsBetweenTheNearestRows_data()
    {
        QTest::addColumn<QString>("dragged");
        QTest::addColumn<QString>("over");
        QTest::addColumn<bool>("isLowerHalf");
        QTest::addColumn<QString>("rundown");
        const auto row = [](const char *name, const QString &dragged, const QString &over,
                            bool isLowerHalf, const QString &rundown) {
            QTest::newRow(name) << dragged << over << isLowerHalf << rundown;
        };
        // The show is always "A: A1 A2 A3 | B: B1 | C:".
        row("a slide down in its section", u"A1"_s, u"A2"_s, true, u"A: A2 A1 A3 | B: B1 | C:"_s);
        row("a slide up in its section", u"A3"_s, u"A1"_s, false, u"A: A3 A1 A2 | B: B1 | C:"_s);
        row("a slide before that of another section", u"A2"_s, u"B1"_s, false,
            u"A: A1 A3 | B: A2 B1 | C:"_s);
        row("a slide behind that of another section", u"A2"_s, u"B1"_s, true,
            u"A: A1 A3 | B: B1 A2 | C:"_s);
        row("a slide below the title of a section", u"A1"_s, u"B"_s, true,
            u"A: A2 A3 | B: A1 B1 | C:"_s);
        row("a slide above the title of a section", u"A1"_s, u"B"_s, false,
            u"A: A2 A3 A1 | B: B1 | C:"_s);
        row("a slide into an empty section", u"B1"_s, u"C"_s, true, u"A: A1 A2 A3 | B: | C: B1"_s);
        row("a slide above the first title", u"B1"_s, u"A"_s, false, u"A: B1 A1 A2 A3 | B: | C:"_s);
        row("a section down", u"A"_s, u"B1"_s, true, u"B: B1 | A: A1 A2 A3 | C:"_s);
        row("a section to the end", u"A"_s, u"C"_s, true, u"B: B1 | C: | A: A1 A2 A3"_s);
        row("a section before another one's slides", u"C"_s, u"A1"_s, false,
            u"C: | A: A1 A2 A3 | B: B1"_s);
        row("a section behind another one's slides", u"C"_s, u"A3"_s, false,
            u"A: A1 A2 A3 | C: | B: B1"_s);
    }

    void whatIsDraggedLandsBetweenTheNearestRows()
    {
        QFETCH(QString, dragged);
        QFETCH(QString, over);
        QFETCH(bool, isLowerHalf);
        Dragging op(showOf({3, 1, 0}));
        op.store.selectSlide(u"A3"_s, true);
        op.store.goLive();
        op.store.selectSlide(u"B1"_s, true);
        const WorkspaceState before = op.store.state();
        op.drag(dragged, isLowerHalf ? op.belowMiddle(over) : op.aboveMiddle(over));
        QTEST(op.rundown(), "rundown");
        const WorkspaceState &after = op.store.state();
        QCOMPARE(after.selectedSlideID, before.selectedSlideID);
        QCOMPARE(after.queuedSlideID, before.queuedSlideID);
        QCOMPARE(after.liveSlideID, before.liveSlideID);
        QCOMPARE(after.outputMode, before.outputMode);
        QCOMPARE(op.store.undoStore().undoStack(), QList{before.project});
        QCOMPARE(op.list->currentIndex(), op.model->indexOfSlide(u"B1"_s));
    }

    void aRowIsDraggedBelowTheLastOne()
    {
        Dragging op(showOf({2, 1}));
        op.drag(u"A1"_s, op.belowMiddle(u"B1"_s) + QPoint(0, 100));
        QCOMPARE(op.rundown(), u"A: A2 | B: B1 A1"_s);
        op.drag(u"A"_s, op.belowMiddle(u"A1"_s) + QPoint(0, 100));
        QCOMPARE(op.rundown(), u"B: B1 A1 | A: A2"_s);
    }

    void theLiveSlideIsMovedAndStaysLive()
    {
        Dragging op(showOf({2, 1}));
        QCOMPARE(op.store.liveSlideID(), u"A1"_s);
        op.drag(u"A1"_s, op.belowMiddle(u"B1"_s));
        QCOMPARE(op.rundown(), u"A: A2 | B: B1 A1"_s);
        QCOMPARE(op.store.liveSlideID(), u"A1"_s);
        QCOMPARE(op.store.selectedServiceItemID(), u"B"_s);
        op.store.nextLive();
        QCOMPARE(op.store.liveSlideID(), u"A2"_s); // behind the last comes the first
    }

    void aSelectedSectionStaysSelected()
    {
        Dragging op(showOf({1, 1, 1}));
        op.click(op.model->indexOfServiceItem(u"C"_s));
        op.drag(u"C"_s, op.aboveMiddle(u"B"_s));
        QCOMPARE(op.rundown(), u"A: A1 | C: C1 | B: B1"_s);
        QCOMPARE(op.store.selectedServiceItemID(), u"C"_s);
        QCOMPARE(op.store.selectedSlideID(), u"A1"_s);
    }

    void whatIsLetGoOfInItsOwnPlaceMakesNoStep_data()
    {
        QTest::addColumn<QString>("dragged");
        QTest::addColumn<QString>("over");
        QTest::addColumn<bool>("isLowerHalf");
        QTest::newRow("a slide on its upper half") << u"A2"_s << u"A2"_s << false;
        QTest::newRow("a slide on its lower half") << u"A2"_s << u"A2"_s << true;
        QTest::newRow("a slide behind the one before") << u"A2"_s << u"A1"_s << true;
        QTest::newRow("a slide before the next one") << u"A2"_s << u"A3"_s << false;
        QTest::newRow("a section among its slides") << u"A"_s << u"A3"_s << true;
        QTest::newRow("a section before the next one") << u"A"_s << u"B"_s << false;
        QTest::newRow("a section behind the one before") << u"B"_s << u"A3"_s << true;
    }

    void whatIsLetGoOfInItsOwnPlaceMakesNoStep()
    {
        QFETCH(QString, dragged);
        QFETCH(QString, over);
        QFETCH(bool, isLowerHalf);
        Dragging op(showOf({3, 1}));
        const WorkspaceState before = op.store.state();
        const QPoint to = isLowerHalf ? op.belowMiddle(over) : op.aboveMiddle(over);
        op.press(dragged);
        op.moveTo(op.belowMiddle(u"B1"_s));
        QVERIFY(op.list->isDragging());
        op.moveTo(to);
        QCOMPARE(op.line(), QList<int>());
        op.release(to);
        QVERIFY(!op.list->isDragging());
        QCOMPARE(op.store.state(), before);
        QVERIFY(!op.store.canUndo());
    }

    void aPointerThatHardlyMovesClicks()
    {
        Dragging op(showOf({3}));
        const QPoint to =
            op.rectOf(u"A2"_s).center() + QPoint(0, QApplication::startDragDistance() - 1);
        op.press(u"A2"_s);
        op.moveTo(to);
        QVERIFY(!op.list->isDragging());
        op.release(to);
        QCOMPARE(op.rundown(), u"A: A1 A2 A3"_s);
        QCOMPARE(op.store.selectedSlideID(), u"A2"_s);
        QCOMPARE(op.store.liveSlideID(), u"A1"_s);
    }

    void aLineShowsWhereTheRowWillLand()
    {
        Dragging op(showOf({3, 1}));
        op.press(u"A1"_s);
        QCOMPARE(op.line(), QList<int>());
        op.moveTo(op.belowMiddle(u"A3"_s));
        const QList<int> line = op.line();
        QVERIFY(!line.isEmpty());
        const int boundary = op.rectOf(u"B"_s).top();
        QVERIFY(line.constFirst() >= boundary - 2 && line.constLast() <= boundary + 2);
        op.release(op.belowMiddle(u"A3"_s));
        QCOMPARE(op.line(), QList<int>());
    }

    void escapeLetsGo()
    {
        Dragging op(showOf({3, 1}));
        const WorkspaceState before = op.store.state();
        const QPoint to = op.belowMiddle(u"B1"_s);
        op.press(u"A1"_s);
        op.moveTo(to);
        QVERIFY(op.list->isDragging());
        QTest::keyClick(&op.view, Qt::Key_Escape);
        QVERIFY(!op.list->isDragging());
        QCOMPARE(op.line(), QList<int>());
        op.moveTo(to + QPoint(0, 20));
        QVERIFY(!op.list->isDragging());
        op.release(to);
        QCOMPARE(op.store.state(), before);
        QVERIFY(!op.store.canUndo());
        op.click(op.model->indexOfSlide(u"A2"_s));
        QCOMPARE(op.store.selectedSlideID(), u"A2"_s);
    }

    void aPointerBesideTheListMovesNothing()
    {
        Dragging op(showOf({3, 1}));
        const QPoint beside(op.viewport->width() + 40, op.rectOf(u"B1"_s).center().y());
        op.press(u"A1"_s);
        op.moveTo(op.belowMiddle(u"B1"_s));
        op.moveTo(beside);
        QCOMPARE(op.line(), QList<int>());
        op.release(beside);
        QVERIFY(!op.store.canUndo());
    }

    void aDialogThatOpensEndsTheDrag()
    {
        Dragging op(showOf({3, 1}));
        op.press(u"A1"_s);
        op.moveTo(op.belowMiddle(u"B1"_s));
        QDialog question(&op.view);
        question.open();
        QVERIFY(!op.list->isDragging());
        question.close(); // the button was let go of meanwhile
        op.click(op.model->indexOfSlide(u"A2"_s));
        QCOMPARE(op.store.selectedSlideID(), u"A2"_s);
        QVERIFY(!op.store.canUndo());
    }

    void aMenuThatOpensEndsTheDrag()
    {
        Dragging op(showOf({3, 1}));
        op.press(u"A1"_s);
        op.moveTo(op.belowMiddle(u"B1"_s));
        QMenu menu(&op.view);
        menu.addAction(u"Something"_s);
        menu.popup(op.view.mapToGlobal(QPoint(10, 10)));
        QVERIFY(!op.list->isDragging());
        menu.close();
        QVERIFY(!op.store.canUndo());
    }

    void anotherButtonEndsTheDragAndOpensNoMenu()
    {
        Dragging op(showOf({3, 1}));
        const QPoint to = op.belowMiddle(u"B1"_s);
        op.press(u"A1"_s);
        op.moveTo(to);
        QTest::mousePress(op.viewport, Qt::RightButton, Qt::NoModifier, to);
        QContextMenuEvent menu(QContextMenuEvent::Mouse, to, op.viewport->mapToGlobal(to));
        QApplication::sendEvent(op.viewport, &menu);
        QVERIFY(!op.list->isDragging());
        QVERIFY(!QApplication::activePopupWidget());
        op.release(to);
        QVERIFY(!op.store.canUndo());
    }

    void theShowGoesOnWhileARowIsDragged()
    {
        Dragging op(showOf({3, 1}));
        const QPoint to = op.belowMiddle(u"B1"_s);
        op.press(u"A1"_s);
        op.moveTo(to);
        op.commands.perform(Command::nextLive);
        QCOMPARE(op.store.liveSlideID(), u"A2"_s);
        QVERIFY(op.list->isDragging());
        op.release(to);
        QCOMPARE(op.rundown(), u"A: A2 A3 | B: B1 A1"_s);
        QCOMPARE(op.store.liveSlideID(), u"A2"_s);
    }

    void whileARowIsDraggedTheListsOwnKeysDoNothing()
    {
        Dragging op(showOf({3, 1}));
        const QPoint to = op.belowMiddle(u"B1"_s);
        op.press(u"A1"_s);
        op.moveTo(to);
        QTest::keyClick(op.list, Qt::Key_F2);
        QVERIFY(!op.titleField());
        QTest::keyClick(op.list, Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(op.store.selectedSlideID(), u"A1"_s);
        op.release(to);
        QCOMPARE(op.rundown(), u"A: A2 A3 | B: B1 A1"_s);
    }

    void aRowThatIsGoneIsNotDraggedAnyMore()
    {
        Dragging op(showOf({3, 1}));
        const QPoint to = op.belowMiddle(u"B1"_s);
        op.press(u"A1"_s);
        op.moveTo(to);
        op.store.deleteSelectedSlide();
        QVERIFY(!op.list->isDragging());
        op.release(to);
        QCOMPARE(op.rundown(), u"A: A2 A3 | B: B1"_s);
    }

    void theListScrollsWhileARowIsHeldAtItsEdge()
    {
        Dragging op(showOf({40, 1}));
        QScrollBar *bar = op.list->verticalScrollBar();
        const QPoint lowest(100, op.viewport->height() - 2);
        op.press(u"A2"_s);
        op.moveTo(op.belowMiddle(u"A4"_s));
        QCOMPARE(bar->value(), 0);
        op.moveTo(lowest);
        QTRY_COMPARE(bar->value(), bar->maximum());
        op.release(lowest);
        QCOMPARE(op.titlesOf(1).size(), 2);
        QVERIFY(op.viewport->rect().contains(op.rectOf(u"A2"_s)));
        const int end = bar->value();
        op.press(u"A2"_s);
        op.moveTo({100, op.viewport->height() / 2});
        op.moveTo({100, -10});
        QTRY_VERIFY(bar->value() < end);
        QTRY_COMPARE(bar->value(), 0);
        op.release({100, -10});
        QCOMPARE(op.titlesOf(0).constFirst(), u"A2"_s);
    }

    void theListStaysWhereItWasScrolledWhenARowIsLetGoOf()
    {
        Dragging op(showOf({40, 1}));
        QScrollBar *bar = op.list->verticalScrollBar();
        bar->setValue(700); // the selected slide is out of sight
        const QString first =
            op.model->data(op.list->indexAt({100, 150}), RundownModel::idRole).toString();
        op.drag(first, {100, 350});
        QVERIFY(op.store.canUndo());
        QCOMPARE(bar->value(), 700);
        QVERIFY(op.viewport->rect().contains(op.rectOf(first)));
    }

    void whileARowIsDraggedTheSectionsButtonsDoNotShow()
    {
        Dragging op(showOf({3, 1}));
        const QPoint place = op.rectOf(u"B"_s).center();
        const auto look = [&] {
            return op.view
                .grab(QRect(op.viewport->mapTo(&op.view, op.rectOf(u"B"_s).topLeft()),
                            op.rectOf(u"B"_s).size()))
                .toImage();
        };
        const QImage before = look();
        op.press(u"A1"_s);
        op.moveTo(op.belowMiddle(u"A2"_s) - QPoint(0, 30));
        QVERIFY(op.list->isDragging());
        QVERIFY(look() != before);
        op.release(place);
        QVERIFY(!op.list->isDragging());
    }

    void whatAnotherProgramDragsIsNotTaken()
    {
        Dragging op(showOf({2}));
        QMimeData text;
        text.setText(u"words"_s);
        QDragEnterEvent event(op.rectOf(u"A1"_s).center(), Qt::CopyAction, &text, Qt::LeftButton,
                              Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(op.viewport, &event);
        QVERIFY(!event.isAccepted());
    }

    void aRowWhoseTitleIsRightToLeftOrEmojiIsDragged()
    {
        ZelvoProject show = showOf({2});
        show.serviceItems[0].slides[0].title = QString::fromUtf8("שלום \U0001F600");
        Dragging op(show);
        op.drag(u"A1"_s, op.belowMiddle(u"A2"_s));
        QCOMPARE(op.store.project().serviceItems.constFirst().slides.constLast().id, u"A1"_s);
    }
};

QUENARA_GUI_TEST(TestRundownDrag)

} // namespace tst_rundown_drag

#include "tst_rundown_drag.moc"
