#include "GuiTestSupport.h"
#include "LatinKeys.h"
#include "ProgramWindows.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

using namespace quenara;
using namespace quenara::test;

namespace tst_latin_keys {

namespace {

/// A key of a Cyrillic keyboard: what it writes, and where it is.
struct CyrillicKey
{
    char16_t letter;
    quint32 place;
};

constexpr CyrillicKey keyOfB{u'И', 56};
constexpr CyrillicKey keyOfL{u'Д', 46};
constexpr CyrillicKey keyOfD{u'В', 40};
constexpr CyrillicKey keyOfZ{u'Я', 52};
constexpr CyrillicKey keyOfN{u'Т', 57};

struct CyrillicProgram : ProgramWindows
{
    LatinKeys latinKeys{commands};

    CyrillicProgram()
    {
        qApp->removeEventFilter(&shortcutGuard);
        qApp->installEventFilter(&latinKeys);
        qApp->installEventFilter(&shortcutGuard);
    }
};

void send(QEvent::Type type, const CyrillicKey &key, Qt::KeyboardModifiers modifiers,
          bool isRepeat = false)
{
    const bool isWritten = modifiers == Qt::NoModifier;
    QKeyEvent event(type, key.letter, modifiers, key.place, 0, 0,
                    isWritten ? QString(QChar(key.letter)) : QString(), isRepeat);
    for (QWidget *receiver : {QApplication::activePopupWidget(), QApplication::focusWidget(),
                              QApplication::activeWindow()}) {
        if (receiver) {
            QCoreApplication::sendEvent(receiver, &event);
            return;
        }
    }
}

/// As Qt delivers a key that is no shortcut to it: first it asks, then it sends the press.
void pressKey(const CyrillicKey &key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
              bool isRepeat = false)
{
    for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress})
        send(type, key, modifiers, isRepeat);
}

} // namespace

class TestLatinKeys : public GuiTest
{
    Q_OBJECT

private slots:
    void aKeyThatWritesNoLatinLetterCountsAsTheOneAtItsPlace()
    {
        CyrillicProgram p;
        pressKey(keyOfB);
        QCOMPARE(p.store.outputMode(), OutputMode::blackout);
        pressKey(keyOfL);
        QCOMPARE(p.store.outputMode(), OutputMode::logo);
        pressKey(keyOfL);
        QCOMPARE(p.store.outputMode(), OutputMode::live);
    }

    void itIsAKeyOfTheAudiencesWindowsToo()
    {
        CyrillicProgram p;
        p.outputs.toggleStageWindow();
        QTRY_VERIFY(QApplication::activeWindow() != &p.operatorWindow);
        pressKey(keyOfB);
        QCOMPARE(p.store.outputMode(), OutputMode::blackout);
    }

    void aKeyThatIsHeldCountsOnce()
    {
        CyrillicProgram p;
        pressKey(keyOfB);
        pressKey(keyOfB, Qt::NoModifier, true);
        QCOMPARE(p.store.outputMode(), OutputMode::blackout);
    }

    void withControlItWorksInATextToo()
    {
        CyrillicProgram p;
        p.store.updateProjectName(QStringLiteral("Another"));
        p.operatorWindow.findChild<QLineEdit *>(QStringLiteral("projectName"))->setFocus();
        pressKey(keyOfZ, Qt::ControlModifier);
        QVERIFY(p.store.project().name != QStringLiteral("Another"));
        pressKey(keyOfZ, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(p.store.project().name, QStringLiteral("Another"));
        pressKey(keyOfN, Qt::ControlModifier);
        QVERIFY(p.store.isStartPanelPresented());
    }

    void whatWorksOnTheSelectionDoesNotInAText()
    {
        CyrillicProgram p;
        p.store.addSlide();
        const qsizetype count = p.store.flattenedSlides().size();
        p.operatorWindow.findChild<QLineEdit *>(QStringLiteral("projectName"))->setFocus();
        pressKey(keyOfD, Qt::ControlModifier);
        QCOMPARE(p.store.flattenedSlides().size(), count);
        p.operatorWindow.centralWidget()->setFocus();
        pressKey(keyOfD, Qt::ControlModifier);
        QCOMPARE(p.store.flattenedSlides().size(), count + 1);
    }

    void inATextItIsTyped()
    {
        CyrillicProgram p;
        auto *name = p.operatorWindow.findChild<QLineEdit *>(QStringLiteral("projectName"));
        name->setFocus();
        name->clear();
        pressKey(keyOfB);
        QCOMPARE(name->text(), QStringLiteral("И"));
        QCOMPARE(p.store.outputMode(), OutputMode::live);
    }

    void whileAMenuHasTheKeyboardItIsNone()
    {
        CyrillicProgram p;
        QMenu *menu = p.operatorWindow.menuBar()->actions().at(2)->menu();
        menu->popup(p.operatorWindow.mapToGlobal(QPoint(100, 100)));
        QVERIFY(QApplication::activePopupWidget());
        pressKey(keyOfB);
        QCOMPARE(p.store.outputMode(), OutputMode::live);
        menu->close();
        p.operatorWindow.menuBar()->setFocus();
        QCOMPARE(QApplication::focusWidget(), p.operatorWindow.menuBar());
        pressKey(keyOfB);
        QCOMPARE(p.store.outputMode(), OutputMode::live);
    }

    void inTheSettingsOnlyKeysWithControlDoSomething()
    {
        CyrillicProgram p;
        CyrillicProgram::activate(p.settings);
        pressKey(keyOfB);
        QCOMPARE(p.store.outputMode(), OutputMode::live);
        pressKey(keyOfN, Qt::ControlModifier);
        QVERIFY(p.store.isStartPanelPresented());
    }

    void aKeyThatWritesALatinLetterIsThatLetter()
    {
        CyrillicProgram p;
        pressKey({u'X', keyOfB.place});
        pressKey({u'Ç', keyOfB.place});
        QCOMPARE(p.store.outputMode(), OutputMode::live);
    }
};

QUENARA_GUI_TEST(TestLatinKeys)

} // namespace tst_latin_keys

#include "tst_latin_keys.moc"
