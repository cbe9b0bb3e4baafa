#include "GuiTestSupport.h"
#include "ShortcutGuard.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#if QT_CONFIG(xcb)
#include <xcb/xproto.h>
#endif

using namespace quenara;
using namespace quenara::test;

namespace tst_shortcut_guard {

namespace {

/// Sends a key event of a moment and says whether it came back accepted.
bool isAccepted(QObject &receiver, QEvent::Type type, Qt::Key key, quint64 timestamp,
                Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent event(type, key, modifiers);
    event.setTimestamp(timestamp);
    event.ignore();
    QCoreApplication::sendEvent(&receiver, &event);
    return event.isAccepted();
}

#if QT_CONFIG(xcb)

constexpr quint32 scanCodeOfSpace = 65;

/// As the server tells of it, before Qt does.
void move(ShortcutGuard &guard, int kind, xcb_timestamp_t time)
{
    xcb_key_press_event_t event{};
    event.response_type = std::uint8_t(kind);
    event.detail = scanCodeOfSpace;
    event.time = time;
    guard.nativeEventFilter("xcb_generic_event_t", &event, nullptr);
}

#endif

/// A button under a guard, with the keyboard, that counts its presses.
class GuardedButton : public QPushButton
{
public:
    ShortcutGuard guard;
    int clicks = 0;

    GuardedButton()
    {
        qApp->installEventFilter(&guard);
        connect(this, &QPushButton::clicked, this, [this] { ++clicks; });
        showActive(*this);
    }
};

/// Wants every key for itself.
class Greedy : public QObject
{
protected:
    bool event(QEvent *event) override
    {
        event->accept();
        return true;
    }
};

} // namespace

class TestShortcutGuard : public GuiTest
{
    Q_OBJECT

private slots:
    void aPressAtTheMomentOfItsReleaseIsARepeatAndNoShortcut()
    {
        ShortcutGuard guard;
        QListView list;
        list.installEventFilter(&guard);
        QVERIFY(!isAccepted(list, QEvent::ShortcutOverride, Qt::Key_Right, 1000));
        isAccepted(list, QEvent::KeyRelease, Qt::Key_Right, 1500);
        QVERIFY(isAccepted(list, QEvent::ShortcutOverride, Qt::Key_Right, 1500));
        isAccepted(list, QEvent::KeyRelease, Qt::Key_Right, 1540);
        QVERIFY(isAccepted(list, QEvent::ShortcutOverride, Qt::Key_Right, 1540));
        QVERIFY(!isAccepted(list, QEvent::ShortcutOverride, Qt::Key_Left, 1540));
        QVERIFY(!isAccepted(list, QEvent::ShortcutOverride, Qt::Key_Right, 1700));
    }

    void aKeyTappedTwiceWithinOneMomentIsTwoPresses()
    {
        ShortcutGuard guard;
        QListView list;
        list.installEventFilter(&guard);
        for (int tap = 0; tap < 3; ++tap) {
            QVERIFY(!isAccepted(list, QEvent::ShortcutOverride, Qt::Key_Right, 1000));
            isAccepted(list, QEvent::KeyRelease, Qt::Key_Right, 1000);
        }
    }

    void aKeyThatIsHeldPressesAButtonOnce()
    {
        GuardedButton button;
        const auto press = [&button](quint64 timestamp) {
            for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress})
                isAccepted(button, type, Qt::Key_Space, timestamp, Qt::ControlModifier);
        };
        const auto release = [&button](quint64 timestamp) {
            isAccepted(button, QEvent::KeyRelease, Qt::Key_Space, timestamp, Qt::ControlModifier);
        };
        press(1000);
        for (quint64 repeat = 1500; repeat < 2000; repeat += 40) {
            release(repeat);
            press(repeat);
        }
        release(2000);
        QCOMPARE(button.clicks, 1);
        press(2500);
        release(2600);
        QCOMPARE(button.clicks, 2);
    }

#if QT_CONFIG(xcb)
    void aKeyThatIsHeldPressesAButtonOnceWhereOnlyTheServerTellsOfReleases()
    {
        GuardedButton button;
        // As Qt asks at once whether a press is a shortcut, and sends presses and releases later.
        const auto send = [&button](QEvent::Type type, quint64 timestamp) {
            QKeyEvent event(type, Qt::Key_Space, Qt::ControlModifier, scanCodeOfSpace, 0, 0);
            event.setTimestamp(timestamp);
            QCoreApplication::sendEvent(&button, &event);
        };
        const auto tap = [&](quint64 timestamp) {
            send(QEvent::ShortcutOverride, timestamp);
            send(QEvent::KeyPress, 0);
            send(QEvent::KeyRelease, 0);
        };
        move(button.guard, XCB_KEY_PRESS, 1000);
        for (xcb_timestamp_t repeat = 1500; repeat < 2000; repeat += 40) {
            move(button.guard, XCB_KEY_RELEASE, repeat);
            move(button.guard, XCB_KEY_PRESS, repeat);
        }
        move(button.guard, XCB_KEY_RELEASE, 2000);
        tap(1000);
        for (quint64 repeat = 1500; repeat < 2000; repeat += 40)
            tap(repeat);
        QCOMPARE(button.clicks, 1);
        // Down and up within a moment, twice.
        for (const xcb_timestamp_t press : {2500, 2600}) {
            move(button.guard, XCB_KEY_PRESS, press);
            move(button.guard, XCB_KEY_RELEASE, press);
            tap(press);
        }
        QCOMPARE(button.clicks, 3);
    }
#endif

    void keysWithoutModifiersThatATextTakesAreNoShortcuts()
    {
        ShortcutGuard guard;
        QLineEdit field;
        field.installEventFilter(&guard);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Up, Qt::Key_PageDown}) {
            QVERIFY(isAccepted(field, QEvent::ShortcutOverride, key, 0));
            QVERIFY(isAccepted(field, QEvent::ShortcutOverride, key, 0, Qt::KeypadModifier));
        }
        QVERIFY(!isAccepted(field, QEvent::ShortcutOverride, Qt::Key_S, 0, Qt::ControlModifier));
    }

    void aSpaceOfTheThirdLevelIsNoShortcutWhereATextTakesIt()
    {
        ShortcutGuard guard;
        QLineEdit field;
        field.installEventFilter(&guard);
        QVERIFY(
            isAccepted(field, QEvent::ShortcutOverride, Qt::Key_Space, 0, Qt::GroupSwitchModifier));
    }

    void aKeyThatClosesAListReachesNothingElse_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Return") << Qt::Key_Return;
        QTest::newRow("Enter") << Qt::Key_Enter;
        QTest::newRow("Escape") << Qt::Key_Escape;
    }

    void aKeyThatClosesAListReachesNothingElse()
    {
        QFETCH(Qt::Key, key);
        ShortcutGuard guard;
        qApp->installEventFilter(&guard);
        QDialog dialog;
        auto *layout = new QVBoxLayout(&dialog);
        auto *box = new QComboBox;
        box->addItems({QStringLiteral("one"), QStringLiteral("two")});
        layout->addWidget(box);
        layout->addWidget(new QDialogButtonBox(QDialogButtonBox::Ok));
        connect(dialog.findChild<QDialogButtonBox *>(), &QDialogButtonBox::accepted, &dialog,
                &QDialog::accept);
        showActive(dialog);
        box->setFocus();
        box->showPopup();
        QTest::keyClick(dialog.windowHandle(), key);
        QVERIFY(!box->view()->isVisible());
        QVERIFY(dialog.isVisible());
        waitForTheNextMoment();
        QTest::keyClick(dialog.windowHandle(), key);
        QVERIFY(!dialog.isVisible());
    }

    void anAltThatArrivesLateIsNotForThePopupOpenedMeanwhile()
    {
        ShortcutGuard guard;
        qApp->installEventFilter(&guard);
        QWidget window;
        QMenu menu;
        menu.addAction(QStringLiteral("Display"));
        showActive(window);
        const auto sendAlt = [&window](QEvent::Type type) {
            isAccepted(*window.windowHandle(), type, Qt::Key_Alt, 0, Qt::AltModifier);
        };
        sendAlt(QEvent::ShortcutOverride);
        menu.popup({});
        QVERIFY(menu.isVisible());
        sendAlt(QEvent::KeyPress);
        QVERIFY(menu.isVisible());
        sendAlt(QEvent::KeyRelease);
        sendAlt(QEvent::ShortcutOverride);
        sendAlt(QEvent::KeyPress);
        QVERIFY(!menu.isVisible());
    }

    void undoAndRedoAloneAreTakenFromAControlThatWantsThem()
    {
        ShortcutGuard guard;
        Greedy control;
        control.installEventFilter(&guard);
        const auto isControls = [&](Qt::KeyboardModifiers modifiers) {
            return isAccepted(control, QEvent::ShortcutOverride, Qt::Key_Z, 0, modifiers);
        };
        QVERIFY(!isControls(Qt::ControlModifier));
        QVERIFY(!isControls(Qt::ControlModifier | Qt::ShiftModifier));
        QVERIFY(isControls(Qt::ControlModifier | Qt::AltModifier));
        QVERIFY(isControls(Qt::NoModifier));
    }
};

QUENARA_GUI_TEST(TestShortcutGuard)

} // namespace tst_shortcut_guard

#include "tst_shortcut_guard.moc"
