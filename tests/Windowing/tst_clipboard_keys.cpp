#include "GuiTestSupport.h"
#include "ProgramWindows.h"
#include "RundownList.h"
#include "SongImportSheet.h"

#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_clipboard_keys {

namespace {

constexpr auto control = Qt::KeyboardModifiers(Qt::ControlModifier);

struct Key
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

/// Those of the selection.
constexpr auto selectionKeys = std::to_array<Key>({{Qt::Key_X, control},
                                                   {Qt::Key_C, control},
                                                   {Qt::Key_V, control},
                                                   {Qt::Key_D, control},
                                                   {Qt::Key_Delete, Qt::NoModifier}});

/// The lyrics of the open sheet.
QPlainTextEdit &lyricsOf(const ProgramWindows &program)
{
    return named<QPlainTextEdit>(program.operatorWindow, u"Lyrics"_s);
}

void closeSheet(ProgramWindows &program)
{
    program.store.setSongImportPresented(false);
    QTRY_VERIFY(program.operatorWindow.findChildren<SongImportSheet *>().isEmpty());
}

} // namespace

class TestClipboardKeys : public GuiTest
{
    Q_OBJECT

private slots:
    void init() { QApplication::clipboard()->clear(); }

    void theKeysWorkOnTheSelectedSlide()
    {
        ProgramWindows program;
        program.store.loadDemoProject();
        const qsizetype count = program.store.flattenedSlides().size();
        const auto slides = [&] { return program.store.flattenedSlides().size() - count; };
        ProgramWindows::press(program.operatorWindow, Qt::Key_C, control);
        ProgramWindows::press(program.operatorWindow, Qt::Key_V, control);
        QCOMPARE(slides(), 1);
        ProgramWindows::press(program.operatorWindow, Qt::Key_D, control);
        QCOMPARE(slides(), 2);
        ProgramWindows::press(program.operatorWindow, Qt::Key_X, control);
        QCOMPARE(slides(), 1);
        ProgramWindows::press(program.operatorWindow, Qt::Key_Delete);
        QCOMPARE(slides(), 0);
        for (int i = 0; i < 4; ++i)
            ProgramWindows::press(program.operatorWindow, Qt::Key_Z, control);
        QCOMPARE(slides(), 0);
        QVERIFY(!program.store.canUndo());
    }

    void aTextThatHasTheKeyboardKeepsThem_data()
    {
        QTest::addColumn<bool>("isOnCanvas");
        QTest::newRow("a field") << false;
        QTest::newRow("a text on the canvas") << true;
    }

    void aTextThatHasTheKeyboardKeepsThem()
    {
        QFETCH(bool, isOnCanvas);
        ProgramWindows program;
        program.store.loadDemoProject();
        if (isOnCanvas) {
            program.openText(program.operatorWindow);
        } else {
            auto &name = named<QLineEdit>(program.operatorWindow, u"Project Name"_s);
            name.setFocus();
            name.selectAll();
        }
        const auto shape = [&] {
            QStringList found;
            for (const FlattenedSlide &slide : program.store.flattenedSlides())
                found.append(slide.id() + QString::number(slide.slide.design.elements.size()));
            return found;
        };
        const QStringList before = shape();
        for (const auto &[key, modifiers] : selectionKeys) {
            ProgramWindows::press(program.operatorWindow, key, modifiers);
            QCOMPARE(shape(), before);
        }
    }

    void theyDoNothingWhereTheSelectionIsNotSeen_data()
    {
        QTest::addColumn<bool>("isDisplay");
        QTest::newRow("the audience's display") << true;
        QTest::newRow("the settings") << false;
    }

    void theyDoNothingWhereTheSelectionIsNotSeen()
    {
        QFETCH(bool, isDisplay);
        ProgramWindows program;
        program.store.loadDemoProject();
        ProgramWindows::press(program.operatorWindow, Qt::Key_C, control);
        program.openDisplay();
        program.settings.present();
        QWidget *window =
            isDisplay ? static_cast<QWidget *>(program.windows.displayWindow()) : &program.settings;
        ProgramWindows::activate(*window);
        const Snapshot before = snapshotOf(program.store);
        for (const auto &[key, modifiers] : selectionKeys) {
            ProgramWindows::press(*window, key, modifiers);
            QCOMPARE(snapshotOf(program.store), before);
        }
    }

    void aSongThatIsPastedIntoTheRundownStandsInItsSheet()
    {
        ProgramWindows program;
        const QString song = u"[Verse]\nWords"_s;
        QApplication::clipboard()->setText(song);
        program.operatorWindow.findChild<RundownList *>()->setFocus();
        ProgramWindows::press(program.operatorWindow, Qt::Key_V, control);
        QCOMPARE(lyricsOf(program).toPlainText(), song);
        closeSheet(program);
        program.store.setSongImportPresented(true);
        QCOMPARE(lyricsOf(program).toPlainText(), song);
    }

    void aSongThatIsOfferedLeavesTheOneThatWasTypedForTheNextTime()
    {
        ProgramWindows program;
        program.store.setSongImportPresented(true);
        lyricsOf(program).setPlainText(u"typed"_s);
        closeSheet(program);
        program.store.offerSong({.title = u"Title"_s, .lyrics = u"pasted"_s});
        QCOMPARE(lyricsOf(program).toPlainText(), u"pasted"_s);
        closeSheet(program);
        program.store.setSongImportPresented(true);
        QCOMPARE(lyricsOf(program).toPlainText(), u"typed"_s);
    }
};

QUENARA_GUI_TEST(TestClipboardKeys)

} // namespace tst_clipboard_keys

#include "tst_clipboard_keys.moc"
