#include "DesignCanvasView.h"
#include "GuiTestSupport.h"
#include "ShortcutGuard.h"
#include "WindowingWorld.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_canvas_keys {

namespace {

/// A window with a design canvas and the keys of the menus; a text of the first slide is edited.
struct Editing : WindowingWorld
{
    ShortcutGuard shortcutGuard;
    DesignCanvasView view{store, commands, caches};

    explicit Editing(const Caller &caller = Caller::current())
    {
        qApp->installEventFilter(&shortcutGuard);
        menus.addTo(view);
        view.resize(854, 664);
        showActive(view, caller);
        openText(view);
        press(Qt::Key_End, Qt::ControlModifier);
    }

    /// Sends the key to the window, as the desktop does.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(view.windowHandle(), key, modifiers);
    }

    QString text() const { return store.selectedElement()->text->text; }
};

constexpr auto transportKeys =
    std::to_array({Qt::Key_B, Qt::Key_L, Qt::Key_Space, Qt::Key_Return, Qt::Key_Right, Qt::Key_Left,
                   Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_PageUp});

} // namespace

class TestCanvasKeys : public GuiTest
{
    Q_OBJECT

private slots:
    void keysTypedOnTheCanvasChangeNothingLive()
    {
        Editing e;
        const QString before = e.text();
        const WorkspaceState state = e.store.state();
        for (const Qt::Key key : transportKeys)
            e.press(key);
        QCOMPARE(e.text(), before + QStringLiteral("bl \n"));
        QCOMPARE(e.store.liveSlideID(), state.liveSlideID);
        QCOMPARE(e.store.queuedSlideID(), state.queuedSlideID);
        QCOMPARE(e.store.outputMode(), OutputMode::live);
    }

    void afterEscapeTheyAreTheTransports()
    {
        Editing e;
        const QString before = e.text();
        e.press(Qt::Key_Escape);
        e.press(Qt::Key_B);
        QCOMPARE(e.store.outputMode(), OutputMode::blackout);
        QCOMPARE(e.text(), before);
    }

    void commandsLeaveTheKeyboardToTheText_data()
    {
        QTest::addColumn<Command>("command");
        QTest::newRow("save") << Command::save;
        QTest::newRow("undo") << Command::undo;
        QTest::newRow("go live") << Command::goLive;
    }

    void commandsLeaveTheKeyboardToTheText()
    {
        QFETCH(Command, command);
        Editing e;
        e.panels.answer = e.fileUrl(QStringLiteral("show.quenara"));
        e.press(Qt::Key_A);
        e.commands.action(command)->trigger();
        const QString before = e.text();
        e.press(Qt::Key_B);
        QCOMPARE(e.text(), before + u'b');
        QCOMPARE(e.store.outputMode(), OutputMode::live);
    }

    void whatIsTypedAfterASaveIsAnotherStep()
    {
        Editing e;
        e.panels.answer = e.fileUrl(QStringLiteral("show.quenara"));
        const QString before = e.text();
        e.press(Qt::Key_A);
        e.press(Qt::Key_S, Qt::ControlModifier);
        QVERIFY(!e.store.hasUnsavedChanges());
        e.press(Qt::Key_B);
        QVERIFY(e.store.hasUnsavedChanges());
        e.press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(e.text(), before + u'a');
        e.press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(e.text(), before);
        e.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(e.text(), before + u'a');
        e.press(Qt::Key_B);
        QCOMPARE(e.text(), before + QStringLiteral("ab"));
    }

    void aKeyThatIsHeldRepeats()
    {
        Editing e;
        const QString before = e.text();
        QTest::keyPress(e.view.windowHandle(), Qt::Key_B);
        for (int i = 0; i < 3; ++i) {
            QTest::simulateEvent(e.view.windowHandle(), true, Qt::Key_B, Qt::NoModifier,
                                 QStringLiteral("b"), true);
        }
        QTest::keyRelease(e.view.windowHandle(), Qt::Key_B);
        QCOMPARE(e.text(), before + QStringLiteral("bbbb"));
        QCOMPARE(e.store.outputMode(), OutputMode::live);
    }
};

QUENARA_GUI_TEST(TestCanvasKeys)

} // namespace tst_canvas_keys

#include "tst_canvas_keys.moc"
