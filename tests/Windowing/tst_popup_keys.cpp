#include "BareKeys.h"
#include "ColorWell.h"
#include "GuiTestSupport.h"
#include "ProgramWindows.h"
#include "RundownList.h"
#include "RundownModel.h"

#include <QAbstractItemView>
#include <QColorDialog>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QSignalSpy>

using namespace quenara;
using namespace quenara::test;

namespace tst_popup_keys {

namespace {

/// The program amid a service: another slide is queued than the live one, which is being edited, a
/// layer of a kind selected.
struct Service : ProgramWindows
{
    explicit Service(SlideElementKind kind)
    {
        store.nextLive();
        store.queueNext();
        store.selectSlide(*store.liveSlideID(), false);
        if (kind == SlideElementKind::shape) {
            store.addShapeLayer();
        } else {
            store.addTextLayer(kind);
        }
    }

    /// What the bare keys change.
    QString show() const
    {
        return QStringLiteral("slide %1 live, slide %2 queued, mode %3")
            .arg(QString::number(live()), QString::number(queued()), rawValue(store.outputMode()));
    }

    /// The controls of a kind that can be used now, in the order in which they were made.
    template<class Control>
    QList<Control *> controls() const
    {
        QList<Control *> found;
        for (Control *control : operatorWindow.findChildren<Control *>()) {
            if (control->isVisible() && control->isEnabled())
                found.append(control);
        }
        return found;
    }

    using ProgramWindows::press;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        press(operatorWindow, key, modifiers);
    }

    /// The server's repeats of a key that stays down.
    void repeat(Qt::Key key)
    {
        for (int i = 0; i < 3; ++i) {
            QTest::simulateEvent(operatorWindow.windowHandle(), true, key, Qt::NoModifier,
                                 QKeySequence(key).toString().toLower(), true);
        }
    }
};

enum class Opening { mouse, altDown, f4 };

void open(Service &service, QComboBox &picker, Opening opening)
{
    if (opening == Opening::mouse) {
        QTest::mouseClick(&picker, Qt::LeftButton);
    } else {
        picker.setFocus(Qt::TabFocusReason);
        const bool byF4 = opening == Opening::f4;
        service.press(byF4 ? Qt::Key_F4 : Qt::Key_Down, byF4 ? Qt::NoModifier : Qt::AltModifier);
    }
}

/// A row for each control of a kind, with each kind of layer selected, and each way to open it.
template<class Control>
void addRowsFor(std::initializer_list<std::pair<const char *, Opening>> openings)
{
    QTest::addColumn<SlideElementKind>("layer");
    QTest::addColumn<qsizetype>("position");
    QTest::addColumn<Opening>("opening");
    for (const SlideElementKind layer : {SlideElementKind::text, SlideElementKind::shape}) {
        const Service service(layer);
        const QList<Control *> controls = service.controls<Control>();
        for (qsizetype i = 0; i < controls.size(); ++i) {
            for (const auto &[how, opening] : openings) {
                const QString row =
                    QStringLiteral("%1, of a slide with a %2 selected, opened by %3")
                        .arg(controls.at(i)->accessibleName(), rawValue(layer),
                             QString::fromLatin1(how));
                QTest::newRow(qPrintable(row)) << layer << i << opening;
            }
        }
    }
}

} // namespace

class TestPopupKeys : public GuiTest
{
    Q_OBJECT

private slots:
    void anOpenListHasEveryKey_data()
    {
        addRowsFor<QComboBox>({{"the mouse", Opening::mouse},
                               {"Alt and Down", Opening::altDown},
                               {"F4", Opening::f4}});
    }

    void anOpenListHasEveryKey()
    {
        QFETCH(SlideElementKind, layer);
        QFETCH(qsizetype, position);
        QFETCH(Opening, opening);
        Service service(layer);
        QComboBox &picker = *service.controls<QComboBox>().at(position);
        const QString before = service.show();
        for (const Qt::Key key : bareKeys()) {
            open(service, picker, opening);
            QVERIFY(picker.view()->isVisible());
            service.press(key);
            QCOMPARE(service.show(), before);
            service.repeat(key);
            QCOMPARE(service.show(), before);
            picker.hidePopup();
        }
    }

    void returnChoosesInTheListAndTheNextOneGoesLive_data() { anOpenListHasEveryKey_data(); }

    void returnChoosesInTheListAndTheNextOneGoesLive()
    {
        QFETCH(SlideElementKind, layer);
        QFETCH(qsizetype, position);
        QFETCH(Opening, opening);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            Service service(layer);
            QComboBox &picker = *service.controls<QComboBox>().at(position);
            open(service, picker, opening);
            const QSignalSpy chosen(&picker, &QComboBox::activated);
            const QModelIndex last = picker.model()->index(picker.count() - 1, 0);
            picker.view()->setCurrentIndex(last);
            const qsizetype queued = service.queued();
            QVERIFY(service.live() != queued);
            service.press(key);
            QVERIFY(!picker.view()->isVisible());
            QCOMPARE(chosen.size(), 1);
            QCOMPARE(picker.currentText(), last.data().toString());
            QVERIFY(service.live() != queued);
            service.press(key);
            QCOMPARE(service.live(), queued);
        }
    }

    void aDialogOfAColourHasEveryKey_data()
    {
        addRowsFor<ColorWell>({{"the mouse", Opening::mouse}});
    }

    void aDialogOfAColourHasEveryKey()
    {
        QFETCH(SlideElementKind, layer);
        QFETCH(qsizetype, position);
        Service service(layer);
        ColorWell &well = *service.controls<ColorWell>().at(position);
        const QString before = service.show();
        for (const Qt::Key key : bareKeys()) {
            QTest::mouseClick(&well, Qt::LeftButton);
            const QPointer<QDialog> dialog = well.findChild<QColorDialog *>();
            ProgramWindows::activate(*dialog);
            ProgramWindows::press(*dialog, key);
            QCOMPARE(service.show(), before);
            if (dialog)
                dialog->close();
            QTRY_VERIFY(!well.findChild<QColorDialog *>());
        }
    }

    void theOtherWindowsKeepTheirKeysMeanwhile()
    {
        Service service(SlideElementKind::text);
        service.openStage();
        ProgramWindows::activate(service.operatorWindow);
        QTest::mouseClick(service.controls<ColorWell>().constFirst(), Qt::LeftButton);
        ProgramWindows::activate(*service.windows.stageWindow());
        const qsizetype live = service.live();
        ProgramWindows::press(*service.windows.stageWindow(), Qt::Key_Right);
        QCOMPARE(service.live(), live + 1);
    }

    void anOpenMenuHasEveryKey_data()
    {
        QTest::addColumn<Qt::Key>("key");
        for (const Qt::Key key : bareKeys()) {
            // Those choose the first item, which opens the start panel.
            const bool chooses =
                key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
            if (!chooses)
                QTest::newRow(qPrintable(QKeySequence(key).toString())) << key;
        }
    }

    void anOpenMenuHasEveryKey()
    {
        QFETCH(Qt::Key, key);
        Service service(SlideElementKind::text);
        const QString before = service.show();
        service.press(Qt::Key_F, Qt::AltModifier);
        QVERIFY(qobject_cast<QMenu *>(QApplication::activePopupWidget()));
        service.press(key);
        QCOMPARE(service.show(), before);
    }

    void anItemOfAMenuIsChosenOnce_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("by Return") << Qt::Key_Return;
        QTest::newRow("by Enter") << Qt::Key_Enter;
    }

    void anItemOfAMenuIsChosenOnce()
    {
        QFETCH(Qt::Key, key);
        Service service(SlideElementKind::text);
        const QString before = service.show();
        const qsizetype live = service.live();
        service.press(Qt::Key_T, Qt::AltModifier);
        for (int i = 0; i < 2; ++i)
            service.press(Qt::Key_Down);
        QCOMPARE(service.show(), before);
        QTest::keyPress(service.operatorWindow.windowHandle(), key);
        QCOMPARE(service.live(), live + 1);
        service.repeat(key);
        QCOMPARE(service.live(), live + 1);
        QCOMPARE(service.queued(), live + 1);
    }

    void aContextMenuHasEveryKey_data() { anOpenMenuHasEveryKey_data(); }

    void aContextMenuHasEveryKey()
    {
        QFETCH(Qt::Key, key);
        Service service(SlideElementKind::text);
        const QString before = service.show();
        auto *list = service.operatorWindow.findChild<RundownList *>();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(list->viewport(), &event);
        QVERIFY(qobject_cast<QMenu *>(QApplication::activePopupWidget()));
        service.press(key);
        QCOMPARE(service.show(), before);
        if (QWidget *menu = QApplication::activePopupWidget())
            menu->close();
    }

    void escapeFromAMenuGivesTheShowItsKeysBack()
    {
        Service service(SlideElementKind::text);
        QMenuBar *bar = service.operatorWindow.menuBar();
        const qsizetype live = service.live();
        QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier,
                          bar->actionGeometry(bar->actions().constFirst()).center());
        QVERIFY(qobject_cast<QMenu *>(QApplication::activePopupWidget()));
        service.press(Qt::Key_Escape);
        QVERIFY(!QApplication::activePopupWidget());
        service.press(Qt::Key_PageDown);
        QCOMPARE(service.live(), live + 1);
    }

    void aMenuBarThatHasTheKeyboardHasEveryKey_data()
    {
        QTest::addColumn<Qt::Key>("key");
        for (const Qt::Key key : bareKeys())
            QTest::newRow(qPrintable(QKeySequence(key).toString())) << key;
    }

    void aMenuBarThatHasTheKeyboardHasEveryKey()
    {
        QFETCH(Qt::Key, key);
        Service service(SlideElementKind::text);
        const QString before = service.show();
        service.press(Qt::Key_Alt);
        QVERIFY(service.operatorWindow.menuBar()->hasFocus());
        service.press(key);
        QCOMPARE(service.show(), before);
    }
};

QUENARA_GUI_TEST(TestPopupKeys)

} // namespace tst_popup_keys

#include "tst_popup_keys.moc"
