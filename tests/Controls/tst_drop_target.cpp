#include "ControlTest.h"
#include "Drag.h"
#include "DropTarget.h"
#include "Widgets.h"

#include <QDialog>
#include <QLineEdit>
#include <QVBoxLayout>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_drop_target {

namespace {

/// A window with a field; it takes what is HTML.
struct Window
{
    QWidget widget;
    QLineEdit *field = new QLineEdit;
    QStringList taken;

    explicit Window(DropTarget::Reach reach = DropTarget::Reach::widget)
    {
        widget.resize(300, 200);
        (new QVBoxLayout(&widget))->addWidget(field);
        new DropTarget(
            widget,
            {.accepts = [](const QMimeData &data) { return data.hasHtml(); },
             .take =
                 [this](const QMimeData &data, const QPointF &point) {
                     taken.append(u"%1 at %2 %3"_s.arg(data.html()).arg(point.x()).arg(point.y()));
                 }},
            reach);
        showActive(widget);
    }

    bool isMarked() const { return widget.findChild<QWidget *>(u"dropMark"_s); }
};

} // namespace

class TestDropTarget : public GuiTest
{
    Q_OBJECT

private slots:
    void whatIsAcceptedIsMarkedAndTakenOnceWhereItIsDropped()
    {
        Window window;
        Drag drag(window.widget);
        drag.data.setHtml(u"words"_s);
        QVERIFY(drag.over(window.widget, {10, 20}));
        QVERIFY(window.isMarked());
        drag.drop();
        QCOMPARE(window.taken, QStringList{u"words at 10 20"_s});
        QVERIFY(!window.isMarked());
    }

    void whatIsRefusedIsNeitherMarkedNorTaken()
    {
        Window window;
        Drag drag(window.widget);
        drag.data.setText(u"words"_s);
        QVERIFY(!drag.over(window.widget, {10, 20}));
        QVERIFY(!window.isMarked());
        drag.drop();
        QVERIFY(window.taken.isEmpty());
    }

    void theMarkGoesWithThePointer()
    {
        Window window;
        {
            Drag drag(window.widget);
            drag.data.setHtml(u"words"_s);
            QVERIFY(drag.over(window.widget, {10, 20}));
        }
        QVERIFY(!window.isMarked());
    }

    void nothingIsMovedAwayFromItsProgram()
    {
        Window window;
        Drag drag(window.widget);
        drag.data.setHtml(u"words"_s);
        drag.actions = Qt::MoveAction;
        QVERIFY(!drag.over(window.widget, {10, 20}));
    }

    void aFieldWithinTakesItFirstUnlessTheReachIsEverything_data()
    {
        QTest::addColumn<DropTarget::Reach>("reach");
        QTest::addColumn<bool>("isTaken");
        QTest::newRow("the widget") << DropTarget::Reach::widget << false;
        QTest::newRow("everything within") << DropTarget::Reach::everythingWithin << true;
    }

    void aFieldWithinTakesItFirstUnlessTheReachIsEverything()
    {
        QFETCH(DropTarget::Reach, reach);
        QFETCH(bool, isTaken);
        Window window(reach);
        Drag drag(window.widget);
        drag.data.setHtml(u"words"_s);
        drag.data.setText(u"words"_s);
        QVERIFY(drag.over(*window.field));
        drag.drop();
        QCOMPARE(!window.taken.isEmpty(), isTaken);
        QCOMPARE(window.field->text().isEmpty(), isTaken);
    }

    void nothingIsTakenWhileADialogIsOpen()
    {
        Window window;
        QDialog dialog(&window.widget);
        dialog.open();
        Drag drag(window.widget);
        drag.data.setHtml(u"words"_s);
        QVERIFY(!drag.over(window.widget, {10, 20}));
    }
};

QUENARA_GUI_TEST(TestDropTarget)

} // namespace tst_drop_target

#include "tst_drop_target.moc"
