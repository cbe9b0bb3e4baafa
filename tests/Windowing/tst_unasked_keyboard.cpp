#include "BringToFront.h"
#include "GuiTestSupport.h"
#include "UnaskedKeyboard.h"

#include <QLineEdit>
#include <QPointer>
#include <QShortcut>
#include <QSignalSpy>

#include <chrono>

using namespace quenara;
using namespace quenara::test;

namespace tst_unasked_keyboard {

namespace {

using namespace std::chrono_literals;

/// A window that has a key, and comes by itself.
struct Newcomer : QWidget
{
    explicit Newcomer(std::chrono::milliseconds settling = 1h)
        : guard(new UnaskedKeyboard(*this, settling))
    {}

    void press() { QTest::keyClick(windowHandle(), Qt::Key_B); }

    QShortcut key{Qt::Key_B, this};
    QSignalSpy acted{&key, &QShortcut::activated};
    QPointer<UnaskedKeyboard> guard;
};

/// Where somebody types.
struct Typing : QWidget
{
    Typing() { showActive(*this); }
};

} // namespace

class TestUnaskedKeyboard : public GuiTest
{
    Q_OBJECT

private slots:
    void keysThatADesktopGivesToAWindowThatCameByItselfDoNothing()
    {
        Newcomer newcomer;
        showActive(newcomer);
        newcomer.press();
        QTest::keyPress(&newcomer, Qt::Key_B);
        QTest::keyRelease(&newcomer, Qt::Key_B);
        QCOMPARE(newcomer.acted.size(), 0);
    }

    void theKeyboardGoesBackToTheWindowThatHadIt()
    {
        const Typing typing;
        Newcomer newcomer;
        newcomer.show();
        for (int time = 1; time <= 3; ++time) {
            const QSignalSpy passed(qApp, &QGuiApplication::focusWindowChanged);
            newcomer.activateWindow();
            QTRY_VERIFY(passed.size() >= 2); // there and back
            QTRY_VERIFY(typing.isActiveWindow());
        }
        QVERIFY(newcomer.guard);
    }

    void aFieldThatIsTypedIntoIsNotLeft()
    {
        QLineEdit field;
        showActive(field);
        const QSignalSpy finished(&field, &QLineEdit::editingFinished);
        Newcomer newcomer;
        const QSignalSpy passed(qApp, &QGuiApplication::focusWindowChanged);
        newcomer.show();
        newcomer.activateWindow();
        QTRY_VERIFY(passed.size() >= 2); // there and back
        QTRY_VERIFY(field.isActiveWindow());
        QCOMPARE(finished.size(), 0);
        QTest::keyClick(field.windowHandle(), Qt::Key_B);
        QCOMPARE(field.text(), QStringLiteral("b"));
        QCOMPARE(newcomer.acted.size(), 0);
    }

    void aWindowThatIsClosedMeanwhileIsNotBroughtBack()
    {
        auto *typing = new Typing;
        Newcomer hiding;
        typing->hide();
        showActive(hiding);
        QVERIFY(hiding.isActiveWindow());
        hiding.hide();
        typing->show();
        Newcomer outliving;
        delete typing;
        showActive(outliving);
        QVERIFY(outliving.isActiveWindow());
    }

    void keysOfOtherWindowsAreLeftAlone()
    {
        Typing typing;
        const QShortcut key(Qt::Key_B, &typing);
        const QSignalSpy acted(&key, &QShortcut::activated);
        Newcomer newcomer;
        newcomer.show();
        QTest::keyClick(typing.windowHandle(), Qt::Key_B);
        QCOMPARE(acted.size(), 1);
        QCOMPARE(newcomer.acted.size(), 0);
    }

    void aClickGivesItTheKeyboard()
    {
        Newcomer newcomer;
        showActive(newcomer);
        QTest::mouseClick(&newcomer, Qt::LeftButton);
        QTRY_VERIFY(!newcomer.guard);
        newcomer.press();
        QCOMPARE(newcomer.acted.size(), 1);
    }

    void aCommandThatBringsItToTheFrontGivesItTheKeyboard()
    {
        const Typing typing;
        Newcomer newcomer;
        newcomer.show();
        bringToFront(newcomer);
        QVERIFY(!newcomer.guard);
        QVERIFY(QTest::qWaitForWindowActive(&newcomer));
        newcomer.press();
        QCOMPARE(newcomer.acted.size(), 1);
    }

    void changingToItOnceItHasBeenSeenForAWhileGivesItTheKeyboard()
    {
        const Typing typing;
        Newcomer newcomer(0ms);
        newcomer.show();
        QVERIFY(QTest::qWaitForWindowExposed(&newcomer));
        QTRY_VERIFY((newcomer.activateWindow(), !newcomer.guard));
        newcomer.press();
        QCOMPARE(newcomer.acted.size(), 1);
        QVERIFY(newcomer.isActiveWindow());
    }
};

QUENARA_GUI_TEST(TestUnaskedKeyboard)

} // namespace tst_unasked_keyboard

#include "tst_unasked_keyboard.moc"
