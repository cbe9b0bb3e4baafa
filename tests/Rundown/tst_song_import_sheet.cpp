#include "GuiTestSupport.h"
#include "InterfaceStyle.h"
#include "Pixels.h"
#include "SongImportSheet.h"
#include "TestSupport.h"
#include "ZelvoTheme.h"

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_song_import_sheet {

namespace {

const QString example = u"[Verse 1]\nLine one\nLine two\n\n[Chorus]\nLine one\nLine two"_s;

/// A sheet of its own on a show of one slide.
struct Sheet
{
    World world{showOf({1})};
    SongImportDraft draft;
    SongImportSheet sheet{world.store, draft, nullptr};
    QLineEdit *title = sheet.findChild<QLineEdit *>();
    QPlainTextEdit *lyrics = sheet.findChild<QPlainTextEdit *>();

    explicit Sheet(const Caller &caller = Caller::current()) { showActive(sheet, caller); }

    QPushButton *button(const QString &text, const Caller &caller = Caller::current()) const
    {
        return &named<QPushButton>(sheet, text, caller);
    }

    void click(const QString &text) const { QTest::mouseClick(button(text), Qt::LeftButton); }

    void replaceLyrics(const QString &text) const
    {
        lyrics->setFocus();
        lyrics->selectAll();
        QTest::keyClick(lyrics, Qt::Key_Delete);
        QTest::keyClicks(lyrics, text);
    }

    ServiceItem lastItem() const { return world.store.project().serviceItems.constLast(); }
    qsizetype itemCount() const { return world.store.project().serviceItems.size(); }
};

} // namespace

class TestSongImportSheet : public GuiTest
{
    Q_OBJECT

private slots:
    void itFirstShowsTheExampleAsContent()
    {
        const Sheet s;
        QCOMPARE(s.sheet.findChild<QLabel *>()->text(), u"Paste Song Lyrics"_s);
        QCOMPARE(s.title->text(), QString());
        QCOMPARE(s.title->placeholderText(), u"Song title"_s);
        QCOMPARE(s.lyrics->toPlainText(), example);
        QVERIFY(s.button(u"Import Song"_s)->isEnabled());
    }

    void theExampleIsSelectedWholeWhenTheSheetOpensAndByTheFirstClick()
    {
        const Sheet s;
        const auto selected = [&s] {
            return s.lyrics->textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n');
        };
        QCOMPARE(selected(), example);
        // A hand seldom keeps the mouse quite still.
        QTest::mousePress(s.lyrics->viewport(), Qt::LeftButton, Qt::NoModifier, {60, 30});
        QTest::mouseMove(s.lyrics->viewport(), {61, 31});
        QTest::mouseRelease(s.lyrics->viewport(), Qt::LeftButton, Qt::NoModifier, {61, 31});
        QCOMPARE(selected(), example);
        QGuiApplication::clipboard()->setText(u"[Verse 1]\nMorning"_s);
        QTest::keyClick(s.lyrics, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(s.draft.pastedLyrics, u"[Verse 1]\nMorning"_s);
    }

    void theSelectedExampleStandsOutOnlyWhileItHasTheKeyboard()
    {
        const ZelvoTheme theme = ZelvoTheme::dark();
        applyTheme(theme);
        const Sheet s;
        const auto isSeen = [&](const QColor &color) {
            return pixelsOf(color, s.lyrics->viewport()->grab().toImage()) > 0;
        };
        QImage patch(1, 1, QImage::Format_RGB32);
        patch.fill(theme.inputBackground);
        QPainter(&patch).fillRect(patch.rect(), theme.selection);
        const QColor calm = patch.pixelColor(0, 0);
        QVERIFY(s.lyrics->textCursor().hasSelection());
        QVERIFY(isSeen(calm) && !isSeen(theme.accent));
        QTest::keyClick(s.title, Qt::Key_Tab);
        QVERIFY(isSeen(theme.accent) && !isSeen(calm));
        QTest::keyClick(s.lyrics, Qt::Key_Backtab);
        QVERIFY(isSeen(calm) && !isSeen(theme.accent));
    }

    void theOperatorsOwnLyricsAreNotSelectedWhenTheSheetOpensAgain()
    {
        World world;
        SongImportDraft draft{.songTitle = {}, .pastedLyrics = u"my words"_s};
        SongImportSheet sheet(world.store, draft, nullptr);
        showActive(sheet);
        auto *lyrics = sheet.findChild<QPlainTextEdit *>();
        QVERIFY(!lyrics->textCursor().hasSelection());
        QTest::mouseClick(lyrics->viewport(), Qt::LeftButton, Qt::NoModifier, {60, 12});
        QVERIFY(!lyrics->textCursor().hasSelection());
    }

    void importingMakesTheSongAndEmptiesBothTexts()
    {
        const Sheet s;
        QTest::keyClicks(s.title, u"Evening Hymn"_s);
        s.replaceLyrics(u"[Chorus]"_s);
        QTest::keyClick(s.lyrics, Qt::Key_Return);
        QTest::keyClicks(s.lyrics, u"sing"_s);
        s.click(u"Import Song"_s);
        QCOMPARE(s.itemCount(), 2);
        QCOMPARE(s.lastItem().title, u"Evening Hymn"_s);
        QCOMPARE(s.lastItem().type, ServiceItemType::song);
        QCOMPARE(s.lastItem().slides.size(), 1);
        QCOMPARE(s.lastItem().slides.constFirst().body, u"sing"_s);
        QCOMPARE(s.world.store.undoStore().undoStack().size(), 1);
        QVERIFY(!s.sheet.isVisible());
        QCOMPARE(s.draft.songTitle, QString());
        QCOMPARE(s.draft.pastedLyrics, QString());
    }

    void withoutATitleTheSongIsCalledImported()
    {
        const Sheet s;
        s.click(u"Import Song"_s);
        QCOMPARE(s.lastItem().title, u"Imported Song"_s);
        QCOMPARE(s.lastItem().slides.size(), 2);
    }

    void whatIsLiveStaysLive()
    {
        Sheet s;
        const auto live = s.world.store.liveSlideID();
        s.world.store.toggleBlackout();
        s.click(u"Import Song"_s);
        QCOMPARE(s.world.store.liveSlideID(), live);
        QCOMPARE(s.world.store.outputMode(), OutputMode::blackout);
    }

    void leavingWithoutImportKeepsTheTextsAndTheProject_data()
    {
        QTest::addColumn<std::function<void(Sheet &)>>("leave");
        QTest::newRow("Cancel") << std::function([](Sheet &s) { s.click(u"Cancel"_s); });
        QTest::newRow("Escape in the title")
            << std::function([](Sheet &s) { QTest::keyClick(s.title, Qt::Key_Escape); });
        QTest::newRow("Escape in the lyrics")
            << std::function([](Sheet &s) { QTest::keyClick(s.lyrics, Qt::Key_Escape); });
        QTest::newRow("closing it") << std::function([](Sheet &s) { s.sheet.close(); });
    }

    void leavingWithoutImportKeepsTheTextsAndTheProject()
    {
        QFETCH(std::function<void(Sheet &)>, leave);
        Sheet s;
        QTest::keyClicks(s.title, u"Evening Hymn"_s);
        s.replaceLyrics(u"la la"_s);
        leave(s);
        QVERIFY(!s.sheet.isVisible());
        QCOMPARE(s.itemCount(), 1);
        QCOMPARE(s.draft.songTitle, u"Evening Hymn"_s);
        QCOMPARE(s.draft.pastedLyrics, u"la la"_s);
        const SongImportSheet again(s.world.store, s.draft, nullptr);
        QCOMPARE(again.findChild<QLineEdit *>()->text(), u"Evening Hymn"_s);
        QCOMPARE(again.findChild<QPlainTextEdit *>()->toPlainText(), u"la la"_s);
    }

    void withoutLyricsThereIsNothingToImport_data()
    {
        QTest::addColumn<QString>("lyrics");
        QTest::addColumn<bool>("enabled");
        QTest::newRow("nothing") << QString() << false;
        QTest::newRow("white space") << u" \t\u00a0\n\n "_s << false;
        QTest::newRow("one letter among white space") << u"\n a \n"_s << true;
        QTest::newRow("a heading alone") << u"[Tag]"_s << true;
    }

    void withoutLyricsThereIsNothingToImport()
    {
        QFETCH(QString, lyrics);
        QFETCH(bool, enabled);
        Sheet s;
        s.lyrics->setPlainText(lyrics);
        QCOMPARE(s.button(u"Import Song"_s)->isEnabled(), enabled);
        s.click(u"Import Song"_s);
        QCOMPARE(s.itemCount(), enabled ? 2 : 1);
        QCOMPARE(s.sheet.isVisible(), !enabled);
        SongImportDraft draft{.songTitle = {}, .pastedLyrics = lyrics};
        const SongImportSheet again(s.world.store, draft, nullptr);
        QCOMPARE(again.findChildren<QPushButton *>().constLast()->isEnabled(), enabled);
    }

    void whatIsPastedIsPlainTextInThePlaceOfTheExample()
    {
        const Sheet s;
        auto *mime = new QMimeData;
        mime->setText(u"<b>one</b>\r\ntwo"_s);
        mime->setHtml(u"<b>bold</b>"_s);
        QGuiApplication::clipboard()->setMimeData(mime);
        QTest::keyClick(s.title, Qt::Key_Tab);
        QTest::keyClick(s.lyrics, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(s.draft.pastedLyrics, u"<b>one</b>\ntwo"_s);
    }

    void tabGoesThroughTheSheetInReadingOrder()
    {
        const Sheet s;
        QCOMPARE(QApplication::focusWidget(), s.title);
        for (QWidget *next : QList<QWidget *>{s.lyrics, s.button(u"Cancel"_s),
                                              s.button(u"Import Song"_s), s.title}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), next);
        }
        QCOMPARE(s.draft.pastedLyrics, example);
    }

    void returnInTheTitleLeadsOnToTheLyrics_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Return") << Qt::Key_Return;
        QTest::newRow("Enter") << Qt::Key_Enter;
    }

    void returnInTheTitleLeadsOnToTheLyrics()
    {
        QFETCH(Qt::Key, key);
        const Sheet s;
        QTest::keyClick(s.title, key);
        QCOMPARE(QApplication::focusWidget(), s.lyrics);
        QVERIFY(s.sheet.isVisible());
        QCOMPARE(s.itemCount(), 1);
        QTest::keyClick(s.lyrics, key);
        QCOMPARE(s.draft.pastedLyrics, u"\n"_s);
    }

    void returnOnAButtonPressesIt()
    {
        const Sheet s;
        s.button(u"Cancel"_s)->setFocus();
        QTest::keyClick(s.button(u"Cancel"_s), Qt::Key_Return);
        QVERIFY(!s.sheet.isVisible());
        QCOMPARE(s.itemCount(), 1);
    }

    void everyControlHasItsAccessibleName()
    {
        const Sheet s;
        QCOMPARE(s.title->accessibleName(), u"Song title"_s);
        QCOMPARE(s.lyrics->accessibleName(), u"Lyrics"_s);
    }
};

QUENARA_GUI_TEST(TestSongImportSheet)

} // namespace tst_song_import_sheet

#include "tst_song_import_sheet.moc"
