#include "DesignCanvas.h"
#include "TestSupport.h"

#include <QContextMenuEvent>
#include <QMenu>

using namespace Qt::StringLiterals;
using namespace quenara;
using namespace quenara::test;

namespace tst_layer_menu {

namespace {

const QString back = QStringLiteral("back");
const QString front = QStringLiteral("front");

/// "back" lies under "front" where they overlap, and is selected.
struct Canvas : DesignCanvas
{
    explicit Canvas(const Caller &caller = Caller::current()) : DesignCanvas(shapes(), caller)
    {
        store.selectElement(back);
    }

    static ZelvoProject shapes()
    {
        ZelvoProject project = showOf({1});
        project.serviceItems[0].slides[0].design.elements = {
            rectangleLayer(front, {500, 300, 400, 600}, {0, 1, 0, 1}, 2),
            rectangleLayer(back, {100, 100, 600, 400}, {1, 0, 0, 1}, 1)};
        return project;
    }

    /// The menu that opens at \a point, null if none does.
    QMenu *menuAt(const QPoint &point) const
    {
        QTest::mouseClick(canvas, Qt::RightButton, Qt::NoModifier, point);
        QContextMenuEvent event(QContextMenuEvent::Mouse, point, canvas->mapToGlobal(point));
        QApplication::sendEvent(canvas, &event);
        return openMenu();
    }

    QMenu *menuByKey() const
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(canvas, &event);
        return openMenu();
    }

    static QMenu *openMenu() { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); }
};

QAction *itemOf(const QMenu *menu, const QString &title, const Caller &caller = Caller::current())
{
    if (!menu)
        fail(u"no menu is open"_s, caller);
    for (QAction *item : menu->actions()) {
        if (item->text() == title)
            return item;
    }
    fail(u"there is no item "_s + title, caller);
}

void choose(QMenu *menu, const QString &title, const Caller &caller = Caller::current())
{
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                      menu->actionGeometry(itemOf(menu, title, caller)).center());
}

} // namespace

class TestLayerMenu : public GuiTest
{
    Q_OBJECT

private slots:
    void aRightClickSelectsTheTopmostLayerUnderItAndOpensItsMenu()
    {
        const Canvas c;
        const ZelvoProject before = c.store.project();
        QMenu *menu = c.menuAt(c.pointOf({600, 400}));
        QVERIFY(menu);
        QCOMPARE(c.store.selectedElementID(), front);
        QCOMPARE(c.store.project(), before);
        QStringList titles;
        for (const QAction *item : menu->actions())
            titles.append(item->isSeparator() ? u"-"_s : item->text());
        QCOMPARE(titles,
                 (QStringList{u"Duplicate"_s, u"Delete"_s, u"-"_s, u"Bring Forward"_s,
                              u"Send Backward"_s, u"-"_s, u"Center Horizontally"_s,
                              u"Center Vertically"_s, u"-"_s, u"Show"_s, u"Lock"_s}));
        menu->close();
    }

    void besideAllLayersNoMenuOpens()
    {
        const Canvas c;
        QVERIFY(!c.menuAt(c.pointOf({1500, 900})));
        QVERIFY(!c.menuAt({2, 2}));
        QCOMPARE(c.store.selectedElementID(), back);
    }

    void duringADragNoMenuOpens()
    {
        const Canvas c;
        c.press(c.middleOf(back));
        QContextMenuEvent event(QContextMenuEvent::Mouse, c.middleOf(back), {});
        QApplication::sendEvent(c.canvas, &event);
        QVERIFY(!Canvas::openMenu());
        c.release(c.middleOf(back));
    }

    void theKeyOpensTheMenuOfTheLayerThatKeysWorkOn()
    {
        const Canvas c;
        c.canvas->setFocus();
        c.canvas->focusLayer(front);
        QMenu *menu = c.menuByKey();
        QVERIFY(menu);
        QCOMPARE(c.store.selectedElementID(), front);
        QVERIFY(c.canvas->rect().contains(c.canvas->mapFromGlobal(menu->pos())));
        menu->close();
        c.canvas->focusLayer(std::nullopt);
        c.store.selectElement(std::nullopt);
        QVERIFY(!c.menuByKey());
    }

    void aLayerOutOfSightHasItsMenuOnTheCanvas()
    {
        const Canvas c;
        c.store.updateSelectedElement([](SlideElement &layer) { layer.frame.x = 90'000; });
        QMenu *menu = c.menuByKey();
        QVERIFY(menu);
        QVERIFY(c.canvas->rect().contains(c.canvas->mapFromGlobal(menu->pos())));
        menu->close();
    }

    void eachItemDoesWhatTheStoreDoesInOneStep_data()
    {
        using Operation = void (WorkspaceStore::*)();
        QTest::addColumn<QString>("title");
        QTest::addColumn<Operation>("operation");
        using Store = WorkspaceStore;
        QTest::newRow("delete") << u"Delete"_s << &Store::deleteSelectedElement;
        QTest::newRow("forward") << u"Bring Forward"_s << &Store::bringSelectedElementForward;
        QTest::newRow("backward") << u"Send Backward"_s << &Store::sendSelectedElementBackward;
        QTest::newRow("horizontally")
            << u"Center Horizontally"_s << &Store::centerSelectedElementHorizontally;
        QTest::newRow("vertically")
            << u"Center Vertically"_s << &Store::centerSelectedElementVertically;
    }

    void eachItemDoesWhatTheStoreDoesInOneStep()
    {
        using Operation = void (WorkspaceStore::*)();
        QFETCH(QString, title);
        QFETCH(Operation, operation);
        const Canvas c;
        World same(Canvas::shapes());
        same.store.selectElement(front);
        (same.store.*operation)();
        choose(c.menuAt(c.middleOf(front)), title);
        QCOMPARE(c.store.project().serviceItems, same.store.project().serviceItems);
        QCOMPARE(c.store.undoStore().undoStack().size(), 1);
        QVERIFY(!Canvas::openMenu());
    }

    void aCopyIsSelected()
    {
        const Canvas c;
        choose(c.menuAt(c.middleOf(front)), u"Duplicate"_s);
        QCOMPARE(c.slide().design.elements.size(), 3);
        QCOMPARE(c.store.selectedElement()->name, c.layer(front).name + u" Copy"_s);
    }

    void whatIsCentredCannotBeCentredAgain()
    {
        const Canvas c;
        choose(c.menuAt(c.middleOf(front)), u"Center Horizontally"_s);
        QMenu *menu = c.menuAt(c.middleOf(front));
        QVERIFY(!itemOf(menu, u"Center Horizontally"_s)->isEnabled());
        QVERIFY(itemOf(menu, u"Center Vertically"_s)->isEnabled());
        menu->close();
    }

    void showAndLockTellAndSwitchTheStateOfTheLayer()
    {
        const Canvas c;
        QMenu *menu = c.menuAt(c.middleOf(front));
        QVERIFY(itemOf(menu, u"Show"_s)->isChecked());
        QVERIFY(!itemOf(menu, u"Lock"_s)->isChecked());
        choose(menu, u"Show"_s);
        QVERIFY(!c.layer(front).visible);
        choose(c.menuAt(c.middleOf(front)), u"Lock"_s);
        QVERIFY(c.layer(front).locked);
        QCOMPARE(c.store.undoStore().undoStack().size(), 2);
        menu = c.menuAt(c.middleOf(front));
        QVERIFY(!itemOf(menu, u"Show"_s)->isChecked());
        QVERIFY(itemOf(menu, u"Lock"_s)->isChecked());
        choose(menu, u"Show"_s);
        QVERIFY(c.layer(front).visible);
    }

    void itemsOfALayerThatIsGoneDoNothing()
    {
        const Canvas c;
        QMenu *menu = c.menuAt(c.middleOf(front));
        c.store.deleteSelectedElement();
        const ZelvoProject before = c.store.project();
        choose(menu, u"Delete"_s);
        QCOMPARE(c.store.project(), before);
    }

    void theTextThatIsEditedEndsWithItsLayer()
    {
        const DesignCanvas c;
        const QString lyric = u"A1.lyric"_s;
        c.edit(lyric);
        QVERIFY(c.editor->isVisible());
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(c.editor, &event);
        choose(Canvas::openMenu(), u"Delete"_s);
        QVERIFY(!c.editor->isVisible());
        QVERIFY(c.store.selectedElementID() != lyric);
    }
};

QUENARA_GUI_TEST(TestLayerMenu)

} // namespace tst_layer_menu

#include "tst_layer_menu.moc"
