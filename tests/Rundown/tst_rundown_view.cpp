#include "CommandWorld.h"
#include "GuiTestSupport.h"
#include "ProjectFileService.h"
#include "ProjectTemplates.h"
#include "RenderCaches.h"
#include "RundownList.h"
#include "RundownModel.h"
#include "RundownRowDelegate.h"
#include "RundownView.h"
#include "RundownWindow.h"

#include <QAccessible>
#include <QCursor>
#include <QDialog>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using namespace quenara;
using namespace quenara::test;

namespace tst_rundown_view {

namespace {

constexpr QPoint beside(RundownView::panelWidth + 50, 10); ///< a place that is not in the view

bool isInSight(const Rundown &op, const QModelIndex &index)
{
    return index.isValid() && op.list->viewport()->rect().contains(op.list->visualRect(index));
}

/// Opens the context menu of a row.
QMenu &openMenu(const Rundown &op, const QModelIndex &index,
                const Caller &caller = Caller::current())
{
    const QPoint place = op.middleOf(index);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                            op.list->viewport()->mapToGlobal(place));
    QApplication::sendEvent(op.list->viewport(), &event);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu)
        fail(QStringLiteral("no menu opens"), caller);
    return *menu;
}

void choose(QMenu &menu, const QString &title, const Caller &caller = Caller::current())
{
    for (QAction *action : menu.actions()) {
        if (action->text() == title) {
            menu.setActiveAction(action); // as the pointer does on its way there
            return QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier,
                                     menu.actionGeometry(action).center());
        }
    }
    fail(QStringLiteral("there is no \"%1\" in the menu").arg(title), caller);
}

/// Chooses from the context menu of a row.
void chooseFromMenu(const Rundown &op, const QModelIndex &index, const QString &title,
                    const Caller &caller = Caller::current())
{
    choose(openMenu(op, index, caller), title, caller);
}

QString tooltipOver(const Rundown &op, const QModelIndex &index)
{
    const QPoint place = op.middleOf(index);
    QHelpEvent event(QEvent::ToolTip, place, op.list->viewport()->mapToGlobal(place));
    QApplication::sendEvent(op.list->viewport(), &event);
    return QToolTip::text();
}

/// What a row looks like, on a slide's row without its thumbnail.
QImage lookOf(Rundown &op, const QModelIndex &index)
{
    return op.list->viewport()->grab(op.list->visualRect(index)).toImage();
}

/// Counts how often a row is asked for its size and painted.
class CountedRows : public RundownRowDelegate
{
public:
    using RundownRowDelegate::RundownRowDelegate;

    mutable int measuredCount = 0;
    mutable int paintedCount = 0;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        ++measuredCount;
        return RundownRowDelegate::sizeHint(option, index);
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        ++paintedCount;
        RundownRowDelegate::paint(painter, option, index);
    }
};

/// What is on the screen of the list when everything is painted.
QImage seenOf(const Rundown &op)
{
    QCoreApplication::processEvents();
    const QRect list(op.list->mapTo(&op.view, QPoint()), op.list->size());
    return op.view.screen()
        ->grabWindow(op.view.winId(), list.x(), list.y(), list.width(), list.height())
        .toImage();
}

QImage paintedAnew(Rundown &op)
{
    return op.view.grab(QRect(op.list->mapTo(&op.view, QPoint()), op.list->size())).toImage();
}

/// Has the thumbnail of every slide made: each painting makes at least one that is in sight.
void makeThumbnails(const Rundown &op)
{
    QScrollBar *bar = op.list->verticalScrollBar();
    for (int place = 0; place < bar->maximum() + bar->pageStep(); place += bar->pageStep() / 2) {
        bar->setValue(place);
        const int rowsInSight = op.list->viewport()->height() / SlideThumbnails::size.height();
        for (int row = 0; row < rowsInSight; ++row)
            op.list->viewport()->grab();
    }
    bar->setValue(0);
    QCoreApplication::processEvents();
}

} // namespace

class TestRundownView : public GuiTest
{
    Q_OBJECT

private slots:
    void clickingASlideSelectsAndQueuesItAndNeverChangesTheLiveOne()
    {
        Rundown op(showOf({2, 3}));
        op.click(rowOfSlide(op, QStringLiteral("B2")));
        QCOMPARE(op.store.selectedSlideID(), QStringLiteral("B2"));
        QCOMPARE(op.store.queuedSlideID(), QStringLiteral("B2"));
        QCOMPARE(op.store.liveSlideID(), QStringLiteral("A1"));
    }

    void clickingASectionSelectsItAndNothingElse()
    {
        Rundown op(showOf({2, 3}));
        WorkspaceState expected = op.store.state();
        expected.selectedServiceItemID = QStringLiteral("B");
        expected.lastSelected = SelectionKind::section;
        op.click(op.model->indexOfServiceItem(QStringLiteral("B")));
        QCOMPARE(op.store.state(), expected);
    }

    void tabGoesFromTheHeaderThroughTheListAndItsSectionsToTheFooter()
    {
        Rundown op(showOf({2, 3}));
        op.store.addServiceItem(ServiceItemType::custom);
        shownButtons(op.view, QStringLiteral("Delete selected slide")).constFirst()->setFocus();
        QStringList reached;
        for (int i = 0; i < 8; ++i) {
            QTest::keyClick(op.view.windowHandle(), Qt::Key_Tab);
            const QWidget *focused = QApplication::focusWidget();
            reached.append(focused->accessibleName() + focused->accessibleDescription());
        }
        QStringList expected{QStringLiteral("Rundown")};
        for (const ServiceItem &item : op.store.project().serviceItems) {
            expected.append(QStringLiteral("Move section up") + item.title);
            expected.append(QStringLiteral("Move section down") + item.title);
        }
        QCOMPARE(reached, expected + QStringList{QStringLiteral("Move slide up")});
    }

    void controlWithAnArrowSelectsTheNextRowOfTheListThatHasTheKeyboard()
    {
        Rundown op(showOf({2, 3}));
        op.list->setFocus(Qt::TabFocusReason);
        const auto press = [&](Qt::Key key) {
            QTest::keyClick(op.view.windowHandle(), key, Qt::ControlModifier);
        };
        press(Qt::Key_Down);
        QCOMPARE(op.store.selectedSlideID(), QStringLiteral("A2"));
        QCOMPARE(op.store.queuedSlideID(), QStringLiteral("A2"));
        QCOMPARE(op.store.liveSlideID(), QStringLiteral("A1"));
        press(Qt::Key_Down);
        QCOMPARE(op.store.selectedServiceItemID(), QStringLiteral("B"));
        QCOMPARE(op.store.selectedSlideID(), QStringLiteral("A2"));
        press(Qt::Key_Down);
        QCOMPARE(op.store.selectedSlideID(), QStringLiteral("B1"));
        press(Qt::Key_Up);
        press(Qt::Key_Up);
        QCOMPARE(op.store.selectedSlideID(), QStringLiteral("A2"));
        press(Qt::Key_End);
        QCOMPARE(op.store.selectedSlideID(), QStringLiteral("B3"));
        press(Qt::Key_Down);
        QCOMPARE(op.store.selectedSlideID(), QStringLiteral("B3"));
        press(Qt::Key_Home);
        QCOMPARE(op.store.selectedServiceItemID(), QStringLiteral("A"));
    }

    void aRowThatIsSelectedByKeyComesIntoSight()
    {
        Rundown op(showOf({40}));
        op.list->setFocus(Qt::TabFocusReason);
        for (int i = 0; i < 30; ++i)
            QTest::keyClick(op.view.windowHandle(), Qt::Key_Down, Qt::ControlModifier);
        QVERIFY(isInSight(op, rowOfSlide(op, *op.store.selectedSlideID())));
        QTest::keyClick(op.view.windowHandle(), Qt::Key_Home, Qt::ControlModifier);
        QVERIFY(isInSight(op, op.model->index(0)));
    }

    void controlAndSpaceQueuesTheSelectedRowAgain()
    {
        Rundown op(showOf({2, 3}));
        op.list->setFocus(Qt::TabFocusReason);
        op.store.queueNext();
        op.store.selectSlide(QStringLiteral("A1"), false);
        QTest::keyClick(op.view.windowHandle(), Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(op.store.queuedSlideID(), QStringLiteral("A1"));
    }

    void bareKeysAndOtherModifiersSelectNothingInTheList()
    {
        Rundown op(showOf({2, 3}));
        op.list->setFocus(Qt::TabFocusReason);
        const WorkspaceState before = op.store.state();
        for (const auto modifiers :
             {Qt::KeyboardModifiers(Qt::NoModifier), Qt::KeyboardModifiers(Qt::ShiftModifier),
              Qt::ControlModifier | Qt::AltModifier}) {
            for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_Space})
                QTest::keyClick(op.list, key, modifiers);
        }
        QCOMPARE(op.store.state(), before);
    }

    void aRowTellsReadersItsRoleAndWhetherItIsSelectedAndHasTheKeyboard()
    {
        Rundown op(showOf({2, 3}));
        op.list->setFocus(Qt::TabFocusReason);
        QAccessibleInterface *rows = QAccessible::queryAccessibleInterface(op.list);
        QCOMPARE(rows->role(), QAccessible::List);
        QCOMPARE(rows->childCount(), 7);
        QAccessibleInterface *last = rows->child(6);
        QVERIFY(!last->state().selected);
        op.store.selectSlide(QStringLiteral("B3"), true);
        QCOMPARE(last->role(), QAccessible::ListItem);
        QCOMPARE(rows->indexOfChild(last), 6);
        QVERIFY(last->state().selected);
        QVERIFY(last->state().focused);
        QCOMPARE(rows->focusChild(), last);
        // It stays the same row when others come before it, and is gone with its slide.
        op.store.selectServiceItem(QStringLiteral("A"));
        op.store.selectSlide(QStringLiteral("A1"), true);
        op.store.duplicateSelectedSlide();
        QCOMPARE(rows->indexOfChild(last), 7);
        QCOMPARE(last->text(QAccessible::Name), QStringLiteral("Title of B3"));
        op.store.selectSlide(QStringLiteral("B3"), true);
        op.store.deleteSelectedSlide();
        QVERIFY(!last->isValid());
    }

    void aReaderThatOnlyMovesToARowSelectsAndQueuesNothing()
    {
        Rundown op(showOf({2, 3}));
        const WorkspaceState before = op.store.state();
        QAccessibleInterface *row = QAccessible::queryAccessibleInterface(op.list)->child(6);
        row->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
        QCoreApplication::processEvents();
        QCOMPARE(op.store.state(), before);
        QVERIFY(row->state().focused);
    }

    void goLiveInTheContextMenuQueuesTheSlideAndSendsIt()
    {
        Rundown op(showOf({2, 3}));
        chooseFromMenu(op, rowOfSlide(op, QStringLiteral("B3")), QStringLiteral("Go Live"));
        QCOMPARE(op.store.liveSlideID(), QStringLiteral("B3"));
        QCOMPARE(op.store.queuedSlideID(), QStringLiteral("B3"));
    }

    void duplicateInTheContextMenuCopiesThatSlide()
    {
        Rundown op(showOf({2, 3}));
        chooseFromMenu(op, rowOfSlide(op, QStringLiteral("B1")), QStringLiteral("Duplicate"));
        QCOMPARE(op.titlesOf(1), QStringList({u"B1"_s, u"B1 Copy"_s, u"B2"_s, u"B3"_s}));
        QCOMPARE(op.titlesOf(0), QStringList({u"A1"_s, u"A2"_s}));
    }

    void deleteInTheContextMenuRemovesThatSlide()
    {
        Rundown op(showOf({2, 3}));
        chooseFromMenu(op, rowOfSlide(op, QStringLiteral("B2")), QStringLiteral("Delete"));
        QCOMPARE(op.titlesOf(1), QStringList({u"B1"_s, u"B3"_s}));
        QCOMPARE(op.titlesOf(0), QStringList({u"A1"_s, u"A2"_s}));
    }

    void theContextMenuKeyBringsTheSelectedRowIntoSight()
    {
        Rundown op(showOf({40}));
        op.store.selectSlide(*op.store.liveSlideID(), false);
        op.list->verticalScrollBar()->setValue(op.list->verticalScrollBar()->maximum());
        const QModelIndex row = rowOfSlide(op, *op.store.selectedSlideID());
        QVERIFY(!isInSight(op, row));
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(op.list, &event);
        QVERIFY(isInSight(op, row));
        QVERIFY(QApplication::activePopupWidget());
        QApplication::activePopupWidget()->close();
    }

    void theContextMenuKeyOpensTheMenuOfTheSelectedSlide()
    {
        Rundown op(showOf({2, 3}));
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(op.list->viewport(), &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        menu->close();
    }

    void aSectionsTitleIsTypedInItsRow_data()
    {
        QTest::addColumn<std::function<void(Rundown &, const QModelIndex &)>>("begin");
        const auto row = [](const char *name,
                            const std::function<void(Rundown &, const QModelIndex &)> &begin) {
            QTest::newRow(name) << begin;
        };
        row("after F2", [](Rundown &op, const QModelIndex &section) {
            op.click(section);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_F2);
        });
        row("after a double click", [](Rundown &op, const QModelIndex &section) {
            op.click(section);
            QTest::mouseDClick(op.list->viewport(), Qt::LeftButton, Qt::NoModifier,
                               op.middleOf(section));
        });
        row("by the context menu", [](Rundown &op, const QModelIndex &section) {
            chooseFromMenu(op, section, QStringLiteral("Rename"));
            showActive(op.view); // as it becomes on a desktop once the menu is closed
        });
    }

    void aSectionsTitleIsTypedInItsRow()
    {
        QFETCH(std::function<void(Rundown &, const QModelIndex &)>, begin);
        Rundown op(showOf({2, 3}));
        begin(op, rowOfItem(op, QStringLiteral("B")));
        QLineEdit *field = op.titleField();
        QVERIFY(field);
        QTRY_VERIFY(field->hasFocus());
        QCOMPARE(field->accessibleName(), QStringLiteral("Section Title"));
        QCOMPARE(field->selectedText(), op.store.project().serviceItems.at(1).title);
        const Selection before = selectionOf(op.store.state());
        QTest::keyClicks(field, QStringLiteral("blessing l"));
        QVERIFY(!op.store.canUndo());
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_VERIFY(!op.titleField());
        QCOMPARE(op.store.project().serviceItems.at(1).title, QStringLiteral("blessing l"));
        QCOMPARE(op.undoSteps(), 1);
        QCOMPARE(selectionOf(op.store.state()), before);
        QVERIFY(op.list->hasFocus());
        op.store.undo();
        QCOMPARE(op.store.project(), showOf({2, 3}));
    }

    void whatIsTypedForASectionsTitleIsTakenOrGivenUp_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<std::function<void(Rundown &)>>("leave");
        QTest::addColumn<bool>("isTaken");
        const auto row = [](const char *name, const char *typed,
                            const std::function<void(Rundown &)> &leave, bool isTaken) {
            QTest::newRow(name) << QString::fromLatin1(typed) << leave << isTaken;
        };
        const auto byKey = [](Qt::Key key) {
            return [key](Rundown &op) { QTest::keyClick(op.titleField(), key); };
        };
        row("Return takes", "Sermon", byKey(Qt::Key_Return), true);
        row("Enter takes", "Sermon", byKey(Qt::Key_Enter), true);
        row("Tab takes", "Sermon", byKey(Qt::Key_Tab), true);
        row("Escape gives up", "Sermon", byKey(Qt::Key_Escape), false);
        row("a blank name is given up", "  ", byKey(Qt::Key_Return), false);
        row("the same name is none", "Item B", byKey(Qt::Key_Return), false);
        row(
            "a click elsewhere takes", "Sermon",
            [](Rundown &op) { op.click(rowOfSlide(op, QStringLiteral("A1"))); }, true);
        row(
            "a button takes", "Sermon",
            [](Rundown &op) { op.commands.action(Command::nextLive)->trigger(); }, true);
        row(
            "another window takes", "Sermon",
            [](Rundown &op) {
                QWidget other;
                showActive(other);
                QTRY_VERIFY(!op.titleField());
            },
            true);
    }

    void whatIsTypedForASectionsTitleIsTakenOrGivenUp()
    {
        QFETCH(QString, typed);
        QFETCH(std::function<void(Rundown &)>, leave);
        QFETCH(bool, isTaken);
        Rundown op(showOf({2, 3}));
        const QString before = op.store.project().serviceItems.at(1).title;
        op.beginRenaming(rowOfItem(op, QStringLiteral("B")));
        QTest::keyClicks(op.titleField(), typed);
        leave(op);
        QTRY_VERIFY(!op.titleField());
        QCOMPARE(op.store.project().serviceItems.at(1).title, isTaken ? typed : before);
        QCOMPARE(op.undoSteps(), isTaken ? 1 : 0);
    }

    void whileATitleIsTypedAllKeysAreItsFields()
    {
        Rundown op(showOf({2, 3}));
        op.beginRenaming(rowOfItem(op, QStringLiteral("B")));
        const QModelIndex current = op.list->currentIndex();
        const Snapshot before = snapshotOf(op.store);
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown,
                                  Qt::Key_Left, Qt::Key_Right, Qt::Key_Space, Qt::Key_F2}) {
            for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ControlModifier})
                QTest::keyClick(op.view.windowHandle(), key, modifier);
        }
        QVERIFY(op.titleField());
        QVERIFY(snapshotOf(op.store) == before);
        QCOMPARE(op.list->currentIndex(), current);
        QTest::keyClick(op.titleField(), Qt::Key_Tab);
        QTRY_VERIFY(!op.titleField());
        QCOMPARE(op.list->currentIndex(), current);
    }

    void aSaveTakesTheTitleThatIsTypedAndLeavesTheFieldOpen()
    {
        Rundown op(showOf({2, 3}));
        op.panels.answer = op.fileUrl(QStringLiteral("show.quenara"));
        op.beginRenaming(op.model->indexOfServiceItem(QStringLiteral("B")));
        QTest::keyClicks(op.titleField(), QStringLiteral("Opening"));
        op.commands.perform(Command::save);
        QCOMPARE(ProjectFileService::load(*op.panels.answer, QDateTime()).serviceItems.at(1).title,
                 QStringLiteral("Opening"));
        QVERIFY(op.titleField()->hasFocus());
    }

    void anUndoTakesBackTheTitleThatIsTyped()
    {
        Rundown op(showOf({2, 3}));
        const ZelvoProject before = op.store.project();
        op.beginRenaming(op.model->indexOfServiceItem(QStringLiteral("B")));
        QTest::keyClicks(op.titleField(), QStringLiteral("Opening"));
        op.commands.perform(Command::undo);
        QCOMPARE(op.store.project(), before);
        QCOMPARE(op.titleField()->text(), before.serviceItems.at(1).title);
        op.commands.perform(Command::redo);
        QCOMPARE(op.store.project().serviceItems.at(1).title, QStringLiteral("Opening"));
    }

    void aSlidesTitleIsTypedInItsRowAfterF2()
    {
        Rundown op(showOf({2, 3}));
        op.store.goLive();
        const QModelIndex slide = rowOfSlide(op, QStringLiteral("B2"));
        op.beginRenaming(slide);
        QLineEdit *field = op.titleField();
        QTRY_VERIFY(field->hasFocus());
        QCOMPARE(field->accessibleName(), QStringLiteral("Slide Title"));
        QCOMPARE(field->selectedText(), QStringLiteral("Title of B2"));
        const Selection before = selectionOf(op.store.state());
        QTest::keyClicks(field, QStringLiteral("blessing l"));
        QVERIFY(!op.store.canUndo());
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_VERIFY(!op.titleField());
        QCOMPARE(op.titlesOf(1), QStringList({u"B1"_s, u"blessing l"_s, u"B3"_s}));
        QCOMPARE(op.undoSteps(), 1);
        QCOMPARE(selectionOf(op.store.state()), before);
        QVERIFY(op.list->hasFocus());
        op.store.undo();
        QCOMPARE(op.store.project(), showOf({2, 3}));
    }

    void aClickOnAnotherSlideTakesTheTitleThatIsTypedForTheFirst()
    {
        Rundown op(showOf({2, 3}));
        op.beginRenaming(rowOfSlide(op, QStringLiteral("B2")));
        QTest::keyClicks(op.titleField(), QStringLiteral("Blessing"));
        op.click(rowOfSlide(op, QStringLiteral("A2")));
        QTRY_VERIFY(!op.titleField());
        QCOMPARE(op.titlesOf(1), QStringList({u"B1"_s, u"Blessing"_s, u"B3"_s}));
        QCOMPARE(op.titlesOf(0), QStringList({u"A1"_s, u"A2"_s}));
        QCOMPARE(op.store.selectedSlideID(), u"A2"_s);
    }

    void aTemplatesTitleLayerFollowsTheTitleThatIsTypedInTheRow()
    {
        ZelvoProject project = showOf({1});
        Slide &slide = project.serviceItems.first().slides.first();
        slide = ProjectTemplates::slide(QStringLiteral("Welcome"), QString(), 0,
                                        QStringLiteral("welcome"));
        Rundown op(project);
        op.beginRenaming(rowOfSlide(op, slide.id));
        QTest::keyClicks(op.titleField(), QStringLiteral("Good Morning"));
        QTest::keyClick(op.titleField(), Qt::Key_Return);
        const Slide renamed = op.store.project().serviceItems.first().slides.first();
        QCOMPARE(renamed.title, QStringLiteral("Good Morning"));
        const auto layers = renamed.design.elements;
        QVERIFY(std::any_of(layers.begin(), layers.end(), [](const SlideElement &layer) {
            return layer.text && layer.text->text == QStringLiteral("Good Morning");
        }));
    }

    void aDoubleClickOnASlideRenamesNothing()
    {
        Rundown op(showOf({2}));
        const QModelIndex slide = rowOfSlide(op, QStringLiteral("A1"));
        op.click(slide);
        QTest::mouseDClick(op.list->viewport(), Qt::LeftButton, Qt::NoModifier, op.middleOf(slide));
        QVERIFY(!op.titleField());
    }

    void aSectionThatIsGoneIsNotRenamedAnyMore()
    {
        Rundown op(showOf({2, 3}));
        op.beginRenaming(rowOfItem(op, QStringLiteral("B")));
        op.store.selectServiceItem(QStringLiteral("B"));
        op.store.deleteSelectedServiceItem();
        QTRY_VERIFY(!op.titleField());
        QCOMPARE(op.store.project().serviceItems.size(), 1);
        QCOMPARE(op.undoSteps(), 1);
    }

    void aSectionsTypeIsChosenInItsContextMenu()
    {
        Rundown op(showOf({2, 3}));
        const ServiceItem before = op.store.project().serviceItems.at(1);
        QMenu &menu = openMenu(op, rowOfItem(op, QStringLiteral("B")));
        auto *types = menu.findChild<QMenu *>();
        QVERIFY(types);
        QStringList titles;
        QStringList checked;
        for (const QAction *type : types->actions()) {
            titles.append(type->text());
            if (type->isChecked())
                checked.append(type->text());
        }
        QCOMPARE(titles,
                 (QStringList{u"Welcome"_s, u"Song"_s, u"Scripture"_s, u"Message"_s,
                              u"Announcement"_s, u"Closing"_s, u"Custom"_s}));
        QCOMPARE(checked, QStringList{title(before.type)});
        choose(menu, u"Type"_s);
        QTRY_VERIFY(types->isVisible());
        choose(*types, u"Scripture"_s);
        ServiceItem expected = before;
        expected.type = ServiceItemType::scripture;
        QCOMPARE(op.store.project().serviceItems.at(1), expected);
        QCOMPARE(op.undoSteps(), 1);
        op.store.undo();
        QCOMPARE(op.store.project().serviceItems.at(1), before);
    }

    void aSectionsMenuHasItsItemsAndThoseThatCannotActAreDisabled()
    {
        Rundown op(showOf({1, 1, 1}));
        const auto itemsOf = [&](const QString &section) {
            QMenu &menu = openMenu(op, rowOfItem(op, section));
            QStringList items;
            for (const QAction *item : menu.actions()) {
                if (!item->isSeparator())
                    items.append((item->isEnabled() ? QString() : u"not "_s) + item->text());
            }
            menu.close();
            return items.join(u", "_s);
        };
        QCOMPARE(itemsOf(u"A"_s), u"Rename, Type, Add Slide, not Move Up, Move Down, Delete"_s);
        QCOMPARE(itemsOf(u"B"_s), u"Rename, Type, Add Slide, Move Up, Move Down, Delete"_s);
        QCOMPARE(itemsOf(u"C"_s), u"Rename, Type, Add Slide, Move Up, not Move Down, Delete"_s);
    }

    void aSectionIsAddedToMovedAndDeletedByItsMenu_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("sections");
        QTest::newRow("add") << u"Add Slide"_s << u"A1 B2 C1"_s;
        QTest::newRow("up") << u"Move Up"_s << u"B1 A1 C1"_s;
        QTest::newRow("down") << u"Move Down"_s << u"A1 C1 B1"_s;
        QTest::newRow("delete") << u"Delete"_s << u"A1 C1"_s;
    }

    void aSectionIsAddedToMovedAndDeletedByItsMenu()
    {
        QFETCH(QString, item);
        Rundown op(showOf({1, 1, 1}));
        const std::optional<QString> live = op.store.liveSlideID();
        choose(openMenu(op, rowOfItem(op, u"B"_s)), item);
        QStringList sections;
        for (const ServiceItem &section : op.store.project().serviceItems)
            sections.append(section.id + QString::number(section.slides.size()));
        QTEST(sections.join(u' '), "sections");
        QCOMPARE(op.undoSteps(), 1);
        QCOMPARE(op.store.liveSlideID(), live);
    }

    void choosingTheTypeThatASectionHasIsNoStep()
    {
        Rundown op(showOf({2}));
        QMenu &menu = openMenu(op, rowOfItem(op, QStringLiteral("A")));
        auto *types = menu.findChild<QMenu *>();
        choose(menu, u"Type"_s);
        QTRY_VERIFY(types->isVisible());
        choose(*types, title(op.store.project().serviceItems.at(0).type));
        QVERIFY(!op.store.canUndo());
    }

    void addSectionAppendsACustomOne()
    {
        Rundown op(showOf({2}));
        press(op.view, QStringLiteral("Add section"));
        QCOMPARE(op.store.project().serviceItems.size(), 2);
        QCOMPARE(op.store.project().serviceItems.last().type, ServiceItemType::custom);
        QCOMPARE(op.store.project().serviceItems.last().title, QStringLiteral("New Section"));
    }

    void pasteSongLyricsPresentsTheSheet()
    {
        Rundown op(showOf({2}));
        press(op.view, QStringLiteral("Paste song lyrics"));
        QVERIFY(op.store.isSongImportPresented());
    }

    void slideAppendsToTheSelectedSection()
    {
        Rundown op(showOf({2, 1}));
        op.click(op.model->indexOfServiceItem(QStringLiteral("B")));
        press(op.view, QStringLiteral("Slide"));
        QCOMPARE(op.titlesOf(1), QStringList({u"B1"_s, u"New Slide"_s}));
    }

    void duplicateAndDeleteWorkOnTheSelectedSlide()
    {
        Rundown op(showOf({2}));
        press(op.view, QStringLiteral("Duplicate selected slide"));
        QCOMPARE(op.titlesOf(0), QStringList({u"A1"_s, u"A1 Copy"_s, u"A2"_s}));
        press(op.view, QStringLiteral("Delete selected slide"));
        QCOMPARE(op.titlesOf(0), QStringList({u"A1"_s, u"A2"_s}));
    }

    void theFooterMovesTheSelectedSlide()
    {
        Rundown op(showOf({3}));
        press(op.view, QStringLiteral("Move slide down"));
        QCOMPARE(op.titlesOf(0), QStringList({u"A2"_s, u"A1"_s, u"A3"_s}));
        press(op.view, QStringLiteral("Move slide up"));
        QCOMPARE(op.titlesOf(0), QStringList({u"A1"_s, u"A2"_s, u"A3"_s}));
    }

    void theFooterDeletesTheSelectedSection()
    {
        Rundown op(showOf({1, 1, 1}));
        op.click(op.model->indexOfServiceItem(QStringLiteral("B")));
        press(op.view, QStringLiteral("Delete selected section"));
        QCOMPARE(op.store.project().serviceItems.size(), 2);
        QCOMPARE(op.store.project().serviceItems.at(1).id, QStringLiteral("C"));
    }

    void aSectionsButtonsMoveThatSection()
    {
        Rundown op(showOf({1, 1, 1}));
        QCursor::setPos(op.view.mapToGlobal(beside)); // as a reader presses them
        press(op.view, QStringLiteral("Move section down"), 1);
        QCOMPARE(op.store.project().serviceItems.at(2).id, QStringLiteral("B"));
        press(op.view, QStringLiteral("Move section up"), 2);
        QCOMPARE(op.store.project().serviceItems.at(1).id, QStringLiteral("B"));
    }

    void whileADialogAsksASectionsButtonsChangeNothing_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("up") << QStringLiteral("Move section up");
        QTest::newRow("down") << QStringLiteral("Move section down");
    }

    void whileADialogAsksASectionsButtonsChangeNothing()
    {
        QFETCH(QString, button);
        Rundown op(showOf({1, 1, 1}));
        QDialog question(&op.view);
        question.open();
        const Snapshot before = snapshotOf(op.store);
        // By assistive technology, as a click does not reach what lies behind a dialog.
        QAbstractButton *pressed = shownButtons(op.view, button).at(1);
        QAccessible::queryAccessibleInterface(pressed)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QVERIFY(snapshotOf(op.store) == before);
        question.close();
        press(op.view, button, 1);
        QVERIFY(op.store.project() != before.state.project);
    }

    void whileADialogAsksTheContextMenuChangesNothing_data()
    {
        QTest::addColumn<QString>("item");
        QTest::newRow("duplicating") << QStringLiteral("Duplicate");
        QTest::newRow("deleting") << QStringLiteral("Delete");
    }

    void whileADialogAsksTheContextMenuChangesNothing()
    {
        QFETCH(QString, item);
        Rundown op(showOf({2, 3}));
        QMenu &menu = openMenu(op, rowOfSlide(op, QStringLiteral("B1")));
        QDialog question(&op.view);
        question.open();
        const Snapshot before = snapshotOf(op.store);
        choose(menu, item);
        QVERIFY(snapshotOf(op.store) == before);
    }

    void movingTheFirstSectionUpOrTheLastSlideDownDoesNothing()
    {
        Rundown op(showOf({2, 1}));
        const ZelvoProject before = op.store.project();
        press(op.view, QStringLiteral("Move section up"), 0);
        QCOMPARE(op.store.project(), before);
        QVERIFY(!op.store.canUndo());
        op.click(rowOfSlide(op, QStringLiteral("A2")));
        press(op.view, QStringLiteral("Move slide down"));
        QCOMPARE(op.titlesOf(0), QStringList({u"A1"_s, u"A2"_s}));
    }

    void anEmptyProjectHasAnEmptyListAndSlideStillMakesASection()
    {
        Rundown op(showOf({2}));
        op.store.newBlankProject();
        QCOMPARE(op.model->rowCount(), 0);
        press(op.view, QStringLiteral("Slide"));
        QCOMPARE(op.model->rowCount(), 2);
        QCOMPARE(op.model->index(0).data().toString(), QStringLiteral("New Section"));
        QCOMPARE(op.titlesOf(0), QStringList({u"New Slide"_s}));
    }

    void everySectionInSightHasItsButtonsAndNoOther()
    {
        Rundown op(showOf({30, 30, 30}));
        QCOMPARE(shownButtons(op.view, QStringLiteral("Move section up")).size(), 1);
        QCOMPARE(shownButtons(op.view, QStringLiteral("Move section up"))
                     .first()
                     ->accessibleDescription(),
                 QStringLiteral("Item A"));
        op.list->scrollTo(op.model->indexOfServiceItem(QStringLiteral("B")),
                          QAbstractItemView::PositionAtCenter);
        QCOMPARE(shownButtons(op.view, QStringLiteral("Move section up")).size(), 1);
        QCOMPARE(shownButtons(op.view, QStringLiteral("Move section up"))
                     .first()
                     ->accessibleDescription(),
                 QStringLiteral("Item B"));
        op.list->scrollTo(op.model->indexOfSlide(QStringLiteral("B15")),
                          QAbstractItemView::PositionAtCenter);
        QCOMPARE(shownButtons(op.view, QStringLiteral("Move section up")).size(), 0);
    }

    void theWheelScrollsOverASectionsButtonsToo()
    {
        Rundown op(showOf({30, 30, 30}));
        QWidget *button = shownButtons(op.view, QStringLiteral("Move section up")).first();
        // From widget to widget up to the window, as Qt does with a real one.
        for (QWidget *below = button; below && op.list->verticalScrollBar()->value() == 0;
             below = below->parentWidget()) {
            const QPointF place = button->mapTo(below, button->rect().center());
            QWheelEvent turn(place, below->mapToGlobal(place), {}, {0, -120}, Qt::NoButton,
                             Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(below, &turn);
        }
        QVERIFY(op.list->verticalScrollBar()->value() > 0);
    }

    void anOperationScrollsTheRowItAffectsIntoView_data()
    {
        QTest::addColumn<std::function<void(WorkspaceStore &)>>("operation");
        const auto row = [](const char *name, const std::function<void(WorkspaceStore &)> &run) {
            QTest::newRow(name) << run;
        };
        row("a section added", [](auto &store) { store.addServiceItem(ServiceItemType::song); });
        row("the last slide selected", [](auto &store) { store.selectSlide(u"C40"_s, true); });
        row("the previous live slide at the beginning", [](auto &store) {
            store.selectSlide(u"C40"_s, true);
            store.goLive();
            store.previousLive();
        });
        row("the queue moved", [](auto &store) {
            store.selectSlide(u"C38"_s, true);
            store.queueNext();
        });
        row("a slide duplicated", [](auto &store) {
            store.selectSlide(u"B20"_s, true);
            store.duplicateSelectedSlide();
        });
        row("a slide moved", [](auto &store) {
            store.selectSlide(u"A1"_s, true);
            store.moveSelectedSlide(30);
        });
        row("a section moved", [](auto &store) {
            store.selectSlide(u"A1"_s, true);
            store.moveSelectedServiceItem(1);
        });
        row("a song imported", [](auto &store) { store.importSong(u"Song"_s, u"One\n\nTwo"_s); });
    }

    void anOperationScrollsTheRowItAffectsIntoView()
    {
        QFETCH(std::function<void(WorkspaceStore &)>, operation);
        Rundown op(showOf({40, 40, 40}));
        operation(op.store);
        QVERIFY(isInSight(op, op.model->indexOfSlide(op.store.selectedSlideID())));
    }

    void whatComesNextIsInSightWhenTheLiveSlideMoves()
    {
        Rundown op(showOf({9, 4, 11, 30, 3}));
        const int last = op.model->rowCount() - 1;
        for (int step = 1; step < 57; ++step) {
            op.store.nextLive();
            const int live = rowOfSlide(op, *op.store.liveSlideID()).row();
            for (int row = live; row <= std::min(live + 2, last); ++row)
                QVERIFY2(isInSight(op, op.model->index(row)), qPrintable(QString::number(row)));
        }
        for (int step = 1; step < 57; ++step) {
            op.store.previousLive();
            const int live = rowOfSlide(op, *op.store.liveSlideID()).row();
            for (int row = std::max(0, live - 2); row <= live; ++row)
                QVERIFY2(isInSight(op, op.model->index(row)), qPrintable(QString::number(row)));
        }
        QVERIFY(isInSight(op, op.model->index(0)));
    }

    void goingUpShowsTheSectionFromItsTitleIfItFits()
    {
        Rundown op(showOf({30, 8, 30}));
        op.store.selectSlide(u"C20"_s, true);
        op.store.goLive();
        op.store.selectSlide(u"B8"_s, true);
        op.store.goLive();
        QVERIFY(isInSight(op, op.model->indexOfServiceItem(u"B"_s)));
        QVERIFY(isInSight(op, rowOfSlide(op, u"B1"_s)));
        QVERIFY(isInSight(op, rowOfSlide(op, u"B8"_s)));
    }

    void aSlideThatGoesLiveFromElsewhereIsInSightWithWhatComesNext()
    {
        Rundown op(showOf({40, 40}));
        op.store.queueSlide(u"B20"_s);
        op.list->verticalScrollBar()->setValue(0);
        op.store.goLive();
        for (const QString &id : {u"B20"_s, u"B21"_s, u"B22"_s})
            QVERIFY(isInSight(op, rowOfSlide(op, id)));
    }

    void aDocumentThatIsOpenedIsShownFromItsTop()
    {
        Rundown op(showOf({1}));
        for (const int height : {250, 220, 256, 576}) {
            op.view.resize(RundownView::panelWidth, height);
            op.store.loadDemoProject();
            QVERIFY(op.store.liveSlideID());
            QCOMPARE(op.list->verticalScrollBar()->value(), 0);
            op.store.newBlankProject();
        }
    }

    void whatComesNextStaysInSightWhenTheWindowBecomesLower()
    {
        Rundown op(showOf({40}));
        op.store.selectSlide(u"A6"_s, true);
        op.store.goLive();
        op.list->verticalScrollBar()->setValue(0);
        QVERIFY(isInSight(op, rowOfSlide(op, u"A8"_s)));
        op.view.resize(RundownView::panelWidth, 260);
        for (const QString &id : {u"A6"_s, u"A7"_s, u"A8"_s})
            QVERIFY(isInSight(op, rowOfSlide(op, id)));
    }

    void theTitleOfTheLiveSectionStaysInSightWhenTheWindowBecomesLower()
    {
        Rundown op(showOf({2, 40}));
        op.view.resize(RundownView::panelWidth, 250);
        QCOMPARE(op.list->verticalScrollBar()->value(), 0);
        QVERIFY(isInSight(op, rowOfItem(op, u"A"_s)));
    }

    void aListThatWasScrolledAwayFromTheLiveSlideStaysThereWhenTheWindowBecomesLower()
    {
        Rundown op(showOf({40}));
        op.list->verticalScrollBar()->setValue(900);
        op.view.resize(RundownView::panelWidth, 260);
        QCOMPARE(op.list->verticalScrollBar()->value(), 900);
    }

    void anImportedSongIsShownWholeIfItFits()
    {
        Rundown op(showOf({40, 40}));
        op.store.importSong(u"Song"_s, u"One\n\nTwo\n\nThree\n\nFour\n\nFive"_s);
        const QModelIndex first = op.model->indexOfSlide(op.store.selectedSlideID());
        const QModelIndex section = op.model->sectionOf(first);
        const QModelIndex last = op.model->endOfSection(first);
        QVERIFY(last.row() > section.row() + 1);
        for (int row = section.row(); row <= last.row(); ++row)
            QVERIFY(isInSight(op, op.model->index(row)));
    }

    void ofAnImportedSongThatIsTooLongTheBeginningIsShown()
    {
        Rundown op(showOf({40, 40}));
        op.store.importSong(u"Song"_s, u"Words\n\n"_s.repeated(30));
        const QModelIndex first = op.model->indexOfSlide(op.store.selectedSlideID());
        QCOMPARE(op.list->visualRect(op.model->sectionOf(first)).top(), 0);
        QVERIFY(isInSight(op, first));
    }

    void clickingASectionsButtonThriceMovesItThreePlaces_data()
    {
        QTest::addColumn<QList<int>>("slides");
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("expected");
        const QString up = u"Move section up"_s;
        const QString down = u"Move section down"_s;
        QTest::newRow("in a list without a scroll bar, down")
            << QList<int>{1, 1, 1, 1} << u"A"_s << down << u"BCDA"_s;
        QTest::newRow("in a list without a scroll bar, up")
            << QList<int>{1, 1, 1, 1} << u"D"_s << up << u"DABC"_s;
        QTest::newRow("in a long list, down")
            << QList<int>{9, 14, 3, 20, 5} << u"A"_s << down << u"BCDAE"_s;
        QTest::newRow("in a long list, up")
            << QList<int>{9, 14, 3, 20, 5} << u"E"_s << up << u"AEBCD"_s;
        QTest::newRow("no further than to the end")
            << QList<int>{9, 1, 2} << u"B"_s << down << u"ACB"_s;
    }

    void clickingASectionsButtonThriceMovesItThreePlaces()
    {
        QFETCH(QList<int>, slides);
        QFETCH(QString, section);
        QFETCH(QString, button);
        QFETCH(QString, expected);
        Rundown op(showOf(slides));
        makeThumbnails(op); // a late one would have the list painted between the two looks
        op.list->scrollTo(op.model->indexOfServiceItem(section),
                          QAbstractItemView::PositionAtCenter);
        const int height = op.list->visualRect(op.model->indexOfServiceItem(section)).top();
        const QList<QAbstractButton *> buttons = shownButtons(op.view, button);
        const auto own = std::find_if(buttons.begin(), buttons.end(), [&](const auto *shown) {
            return shown->accessibleDescription() == u"Item "_s + section;
        });
        QVERIFY(own != buttons.end());
        const QPoint place = (*own)->mapTo(&op.view, (*own)->rect().center());
        QCursor::setPos(op.view.mapToGlobal(place));
        for (int click = 0; click < 3; ++click) {
            // Where the pointer stays, whatever lies there by now.
            QWidget *below = op.view.childAt(place);
            QTest::mouseClick(below, Qt::LeftButton, Qt::NoModifier,
                              below->mapFrom(&op.view, place));
            QCoreApplication::processEvents();
            QCOMPARE(op.list->visualRect(op.model->indexOfServiceItem(section)).top(), height);
        }
        QString order;
        for (const ServiceItem &item : op.store.project().serviceItems)
            order += item.id;
        QCOMPARE(order, expected);
        QVERIFY(largestDifference(seenOf(op), paintedAnew(op)) <= 4);

        QCursor::setPos(op.view.mapToGlobal(beside));
        QEvent leaving(QEvent::Leave);
        QApplication::sendEvent(&op.view, &leaving);
        QCOMPARE(op.list->verticalScrollBar()->minimum(), 0);
        const QModelIndex end = op.model->index(op.model->rowCount() - 1);
        QVERIFY(op.list->verticalScrollBar()->maximum() == 0
                || op.list->visualRect(end).bottom() >= op.list->viewport()->height() - 1);
    }

    void aSectionsButtonThatHasTheFocusKeepsItWithItsSection()
    {
        Rundown op(showOf({1, 1, 1, 1}));
        QAbstractButton *button = shownButtons(op.view, u"Move section down"_s).first();
        button->setFocus();
        for (int press = 0; press < 3; ++press) {
            auto *focused = qobject_cast<QAbstractButton *>(QApplication::focusWidget());
            QVERIFY(focused);
            QCOMPARE(focused->accessibleDescription(), u"Item A"_s);
            focused->click();
        }
        QCOMPARE(op.store.project().serviceItems.last().id, u"A"_s);
    }

    void theSelectedSectionIsAsPlainlySelectedAsASlide()
    {
        Rundown op(showOf({2, 2}));
        const auto fillOf = [&](const QModelIndex &row) {
            const QImage look = lookOf(op, row);
            return look.pixelColor(look.width() - 40, 4); // beside the title and the buttons
        };
        const QModelIndex a = op.model->indexOfServiceItem(u"A"_s);
        const QModelIndex b = op.model->indexOfServiceItem(u"B"_s);
        const QColor selected = fillOf(rowOfSlide(op, u"A1"_s));
        QCOMPARE(fillOf(a), selected);
        QVERIFY(fillOf(b) != selected);
        op.click(b);
        QCOMPARE(fillOf(b), selected);
        QVERIFY(fillOf(a) != selected);
        QCOMPARE(b.data(Qt::AccessibleDescriptionRole).toString(), u"Song section, selected"_s);
        QCOMPARE(a.data(Qt::AccessibleDescriptionRole).toString(), u"Song section"_s);
    }

    void theLiveMarkHasTheColourOfTheOutputMode()
    {
        Rundown op(showOf({2}));
        const auto hasColor = [&](QColor ZelvoTheme::*color) {
            const QImage look = lookOf(op, rowOfSlide(op, u"A1"_s));
            const QColor sought = ZelvoTheme::current(colorSchemeOf(op.view.palette())).*color;
            int count = 0;
            for (int x = 0; x < look.width(); ++x)
                count += look.pixelColor(x, look.height() / 2 - 6) == sought ? 1 : 0;
            return count > 10;
        };
        QVERIFY(hasColor(&ZelvoTheme::live));
        op.store.toggleBlackout();
        QVERIFY(hasColor(&ZelvoTheme::blackout) && !hasColor(&ZelvoTheme::live));
        op.store.toggleLogo();
        QVERIFY(hasColor(&ZelvoTheme::accent));
    }

    void aTextThatIsCutIsWarnedOfOnItsThumbnail()
    {
        Rundown op(showOf({2}));
        op.view.grab();
        const QModelIndex first = rowOfSlide(op, u"A1"_s);
        const QModelIndex second = rowOfSlide(op, u"A2"_s);
        const auto cornerOf = [&](const QModelIndex &row) {
            const QPoint place = op.list->visualRect(row).topLeft() + QPoint(90, 25);
            return op.list->viewport()->grab({place, QSize(14, 14)}).toImage();
        };
        const auto tip = [&](const QModelIndex &row) {
            QToolTip::hideText();
            const QPoint place = op.list->visualRect(row).topLeft() + QPoint(70, 24);
            QHelpEvent event(QEvent::ToolTip, place, op.list->viewport()->mapToGlobal(place));
            QApplication::sendEvent(op.list->viewport(), &event);
            return QToolTip::text();
        };
        const auto setWords = [&](int count) {
            op.store.updateSelectedElement([count](SlideElement &layer) {
                layer.name = u"Verse"_s;
                layer.text->text = u"words "_s.repeated(count);
            });
            op.view.grab();
        };
        op.store.selectElement(
            op.store.project().serviceItems.first().slides.first().design.firstTextElementID());
        setWords(3);
        QCOMPARE(tip(first), QString());
        setWords(4000);
        QCOMPARE(tip(first), u"The text of \u201cVerse\u201d does not fit and is cut."_s);
        QTRY_COMPARE(tip(second), QString()); // a tooltip takes its time to go
        const QImage warned = cornerOf(first);
        const QColor warning = ZelvoTheme::current(colorSchemeOf(op.view.palette())).warning;
        int shown = 0;
        for (int y = 0; y < warned.height(); ++y) {
            for (int x = 0; x < warned.width(); ++x)
                shown += warned.pixelColor(x, y) == warning ? 1 : 0;
        }
        QVERIFY(shown > 10);
        setWords(3);
        QTRY_COMPARE(tip(first), QString());
        QVERIFY(cornerOf(first) != warned);
    }

    void theQueueMarkNeverLiesOverTheNumber()
    {
        Rundown op(showOf({1200}));
        op.store.selectSlide(u"A1"_s, false);
        for (const QString &id : {u"A9"_s, u"A99"_s, u"A999"_s, u"A1200"_s}) {
            op.list->scrollTo(rowOfSlide(op, id), QAbstractItemView::PositionAtCenter);
            op.store.queueSlide(u"A2"_s);
            op.view.grab();
            const QImage without = lookOf(op, rowOfSlide(op, id));
            op.store.queueSlide(id);
            const QImage with = lookOf(op, rowOfSlide(op, id));
            // Inside of the outline, where either has ink, from the left end to the thumbnail.
            const QColor ground = without.pixelColor(12, 8);
            for (int y = 6; y < without.height() - 6; ++y) {
                for (int x = 10; x < 40; ++x) {
                    const bool isNumber = without.pixelColor(x, y) != ground;
                    const bool isMark = with.pixelColor(x, y) != without.pixelColor(x, y);
                    QVERIFY2(!isNumber || !isMark, qPrintable(id));
                }
            }
        }
    }

    void whatHasScrolledLooksAsIfPaintedAnew()
    {
        Rundown op(showOf({9, 4, 11, 30, 3}));
        makeThumbnails(op); // so that none that is late has the whole list painted again
        const auto look = [&] {
            // Where painting was clipped, the last bits of anti-aliasing may differ.
            QVERIFY(largestDifference(seenOf(op), paintedAnew(op)) <= 4);
        };
        look();
        for (int step = 0; step < 40; ++step) {
            op.store.nextLive();
            look();
        }
        for (const int place : {13, 0, 400, 397, 20, 1000}) {
            op.list->verticalScrollBar()->setValue(place);
            look();
        }
        op.store.selectSlide(u"A1"_s, true);
        op.store.updateSelectedSlide([](Slide &slide) { slide.title = u"changed"_s; });
        op.list->verticalScrollBar()->setValue(30);
        op.store.moveSelectedServiceItem(1);
        op.list->verticalScrollBar()->setValue(70);
        look();
    }

    void rowsThatStayInSightAreNotPaintedAgainAsTheListScrolls()
    {
        Rundown op(showOf({3, 40}));
        SlideThumbnails thumbnails(op.caches);
        CountedRows rows(thumbnails, op.list);
        op.list->setItemDelegate(&rows);
        const auto scrollTo = [&](int place) {
            op.list->verticalScrollBar()->setValue(place);
            QCoreApplication::processEvents();
            return std::exchange(rows.paintedCount, 0);
        };
        const int inSight = scrollTo(20); // laid out anew for its delegate
        const int painted = scrollTo(40);
        QVERIFY(painted > 0);
        QVERIFY(painted < inSight / 2); // below, and around the buttons of the sections
    }

    void theListStaysWhereItWasScrolledUntilTheSelectionChanges()
    {
        Rundown op(showOf({40, 40}));
        op.store.selectSlide(QStringLiteral("B40"), true);
        op.list->verticalScrollBar()->setValue(0);
        op.store.toggleBlackout();
        op.store.updateSelectedSlide([](Slide &slide) { slide.title = QStringLiteral("x"); });
        QCOMPARE(op.list->verticalScrollBar()->value(), 0);
        op.store.queuePrevious();
        QVERIFY(op.list->verticalScrollBar()->value() > 0);
    }

    void selectedQueuedAndLiveRowsDifferInShape()
    {
        Rundown op(showOf({5}));
        for (int i = 1; i <= 5; ++i) {
            op.store.updateServiceItem(QStringLiteral("A"), [i](ServiceItem &item) {
                item.slides[i - 1].title = QStringLiteral("Slide");
                item.slides[i - 1].design = item.slides.at(0).design;
            });
        }
        op.store.queueSlide(QStringLiteral("A2"));
        op.store.goLive();
        op.store.queueSlide(QStringLiteral("A3"));
        op.store.selectSlide(QStringLiteral("A4"), false);
        // Grey, so that colour alone does not count, and without the number.
        const auto look = [&](const QString &id) {
            QImage row = lookOf(op, rowOfSlide(op, id)).convertToFormat(QImage::Format_Grayscale8);
            QPainter painter(&row);
            painter.fillRect(QRect(18, 0, 18, row.height()), Qt::black);
            return row;
        };
        const QStringList states{QStringLiteral("A2"), QStringLiteral("A3"), QStringLiteral("A4"),
                                 QStringLiteral("A5")};
        for (const QString &a : states) {
            for (const QString &b : states)
                QVERIFY2((look(a) == look(b)) == (a == b), qPrintable(a + b));
        }
    }

    void rowsTellAReaderWhatTheyAreAndTheirState()
    {
        Rundown op(showOf({2}));
        op.store.queueNext();
        const QModelIndex live = rowOfSlide(op, QStringLiteral("A1"));
        const QModelIndex queued = rowOfSlide(op, QStringLiteral("A2"));
        QCOMPARE(live.data(Qt::AccessibleDescriptionRole).toString(),
                 QStringLiteral("Slide 1 of Item A, live"));
        QCOMPARE(queued.data(Qt::AccessibleDescriptionRole).toString(),
                 QStringLiteral("Slide 2 of Item A, queued, selected"));
    }

    void aTitleThatDoesNotFitIsToldWhole()
    {
        Rundown op(showOf({2}));
        const QString longTitle = QStringLiteral("A title far too long for the room it has here");
        op.store.updateSelectedSlide([&](Slide &slide) { slide.title = longTitle; });
        QCOMPARE(tooltipOver(op, rowOfSlide(op, QStringLiteral("A2"))), QString());
        QCOMPARE(tooltipOver(op, rowOfSlide(op, QStringLiteral("A1"))), longTitle);
    }

    void oneEditDrawsOneThumbnailAndScrollingBackNone()
    {
        Rundown op(showOf({60}));
        QTRY_VERIFY(op.list->thumbnails().madeCount() > 5);
        op.view.grab();
        const auto made = [&] { return op.list->thumbnails().madeCount(); };
        QTRY_VERIFY(!op.list->thumbnails().owesThumbnails());
        const int before = made();
        op.store.updateSelectedElement([](SlideElement &layer) { layer.frame.x += 10; });
        op.view.grab();
        QCOMPARE(made(), before + 1);
        op.store.updateSelectedSlide([](Slide &slide) { slide.title = QStringLiteral("x"); });
        op.store.queueNext();
        op.store.nextLive();
        op.view.grab();
        QCOMPARE(made(), before + 1);
        op.list->verticalScrollBar()->setValue(200);
        op.view.grab();
        const int scrolled = made();
        op.list->verticalScrollBar()->setValue(0);
        op.view.grab();
        QCOMPARE(made(), scrolled);
    }

    void whatTheThumbnailsHoldGoesWithTheDocument()
    {
        const QByteArray video(1000, 'x');
        ZelvoProject project = showOf({3});
        for (Slide &slide : project.serviceItems[0].slides)
            slide.design.background.video = VideoBackground{.name = {}, .dataUrl = video};
        Rundown op(std::exchange(project, {}));
        op.view.grab();
        QVERIFY(!video.isDetached());
        op.store.newBlankProject();
        op.view.grab();
        QVERIFY(video.isDetached());
    }

    void onlyRowsInSightGetThumbnails()
    {
        Rundown op(showOf({1000}));
        op.view.grab();
        QTRY_VERIFY(!op.list->thumbnails().owesThumbnails());
        QVERIFY(op.list->thumbnails().madeCount() > 5);
        QVERIFY(op.list->thumbnails().madeCount() < 30);
    }

    void allRowsAreMeasuredOnlyWhenSomeComeOrGo()
    {
        constexpr int slideCount = 1000;
        Rundown op(showOf({slideCount}));
        SlideThumbnails thumbnails(op.caches);
        CountedRows rows(thumbnails, op.list);
        op.list->setItemDelegate(&rows);
        op.view.grab();
        rows.measuredCount = 0;
        op.store.updateSelectedSlide([](Slide &slide) { slide.title = QStringLiteral("x"); });
        op.store.queueNext();
        op.store.nextLive();
        op.view.grab();
        QVERIFY(rows.measuredCount < slideCount);
        op.store.duplicateSelectedSlide();
        op.view.grab();
        QVERIFY(rows.measuredCount > slideCount);
    }

    void theListTakesNoKeys()
    {
        Rundown op(showOf({60}));
        op.click(rowOfSlide(op, QStringLiteral("A3")));
        const int scrolled = op.list->verticalScrollBar()->value();
        const WorkspaceState before = op.store.state();
        for (const Qt::Key key :
             {Qt::Key_Up, Qt::Key_PageDown, Qt::Key_End, Qt::Key_W, Qt::Key_Space}) {
            QTest::keyClick(op.view.windowHandle(), key);
        }
        QCOMPARE(op.list->verticalScrollBar()->value(), scrolled);
        QCOMPARE(op.store.state(), before);
    }
};

QUENARA_GUI_TEST(TestRundownView)

} // namespace tst_rundown_view

#include "tst_rundown_view.moc"
