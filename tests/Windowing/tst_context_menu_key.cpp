#include "GuiTestSupport.h"
#include "LayerRow.h"
#include "ProgramWindows.h"
#include "RundownList.h"

#include <QAccessible>
#include <QMenu>

using namespace quenara;
using namespace quenara::test;

namespace tst_context_menu_key {

namespace {

struct Program : ProgramWindows
{
    Program() { store.addTextLayer(SlideElementKind::text); }

    template<class Widget>
    Widget &part() const
    {
        return *operatorWindow.findChild<Widget *>();
    }

    static QMenu *openMenu() { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); }
};

QStringList titlesOf(const QMenu &menu)
{
    QStringList titles;
    for (const QAction *item : menu.actions())
        titles.append(item->text());
    return titles;
}

} // namespace

class TestContextMenuKey : public GuiTest
{
    Q_OBJECT

private slots:
    void shiftF10OpensTheMenuOfWhatHasTheKeyboard_data()
    {
        QTest::addColumn<QString>("place");
        QTest::addColumn<QString>("item");
        QTest::newRow("the rundown") << QStringLiteral("rundown") << QStringLiteral("Go Live");
        QTest::newRow("the canvas") << QStringLiteral("canvas") << QStringLiteral("Bring Forward");
        QTest::newRow("a row of the layers")
            << QStringLiteral("layer") << QStringLiteral("Bring Forward");
    }

    void shiftF10OpensTheMenuOfWhatHasTheKeyboard()
    {
        QFETCH(QString, place);
        QFETCH(QString, item);
        Program program;
        QWidget *widget = &program.part<LayerRow>();
        if (place == QStringLiteral("rundown"))
            widget = &program.part<RundownList>();
        if (place == QStringLiteral("canvas"))
            widget = &program.part<SlideCanvas>();
        widget->setFocus(Qt::TabFocusReason);
        Program::press(program.operatorWindow, Qt::Key_F10, Qt::ShiftModifier);
        QVERIFY(Program::openMenu());
        QVERIFY(titlesOf(*Program::openMenu()).contains(item));
        Program::openMenu()->close();
    }

    void otherKeysOpenNone()
    {
        Program program;
        program.part<RundownList>().setFocus();
        Program::press(program.operatorWindow, Qt::Key_F10);
        Program::press(program.operatorWindow, Qt::Key_F9, Qt::ShiftModifier);
        QVERIFY(!Program::openMenu());
    }

    void assistiveTechnologiesOpenTheMenuOfALayerAndOfARow()
    {
        Program program;
        QAccessibleInterface *canvas =
            QAccessible::queryAccessibleInterface(&program.part<SlideCanvas>());
        QAccessibleInterface *rundown =
            QAccessible::queryAccessibleInterface(&program.part<RundownList>());
        for (QAccessibleInterface *thing :
             {canvas->child(0), rundown->child(0), rundown->child(1),
              QAccessible::queryAccessibleInterface(&program.part<LayerRow>())}) {
            const QString action = QAccessibleActionInterface::showMenuAction();
            QVERIFY(thing->actionInterface()->actionNames().contains(action));
            thing->actionInterface()->doAction(action);
            QTRY_VERIFY(Program::openMenu());
            Program::openMenu()->close();
        }
    }
};

QUENARA_GUI_TEST(TestContextMenuKey)

} // namespace tst_context_menu_key

#include "tst_context_menu_key.moc"
