#include "MarkedText.h"
#include "TestMain.h"

#include <QTest>

using namespace quenara;
using namespace quenara::test;

namespace tst_edited_text {

using Selecting = EditedText::Selecting;

class TestEditedText : public QObject
{
    Q_OBJECT

private slots:
    void insertingTakesThePlaceOfWhatIsSelected_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("inserted");
        QTest::addColumn<QString>("after");
        QTest::newRow("into nothing") << "|"
                                      << "a"
                                      << "a|";
        QTest::newRow("at the caret") << "ac|d"
                                      << "b"
                                      << "acb|d";
        QTest::newRow("over a selection") << "a^bc|d"
                                          << "xyz"
                                          << "axyz|d";
        QTest::newRow("over one made backwards") << "a|bc^d"
                                                 << "x"
                                                 << "ax|d";
        QTest::newRow("nothing over a selection") << "a^bc|d"
                                                  << ""
                                                  << "a|d";
        QTest::newRow("several lines") << "a|b"
                                       << "1\n2"
                                       << "a1\n2|b";
    }

    void insertingTakesThePlaceOfWhatIsSelected()
    {
        QFETCH(QString, before);
        QFETCH(QString, inserted);
        QFETCH(QString, after);
        EditedText edit = edited(before);
        edit.insert(inserted);
        QCOMPARE(marked(edit), after);
    }

    void removingTakesWhatIsSelectedOrWhatLiesUpToAPlace_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("after");
        QTest::newRow("forwards") << "a|bcd" << 3 << "a|d";
        QTest::newRow("backwards") << "abc|d" << 1 << "a|d";
        QTest::newRow("a selection, wherever to") << "a^bc|d" << 0 << "a|d";
        QTest::newRow("nothing") << "ab|" << 2 << "ab|";
    }

    void removingTakesWhatIsSelectedOrWhatLiesUpToAPlace()
    {
        QFETCH(QString, before);
        QFETCH(int, position);
        QFETCH(QString, after);
        EditedText edit = edited(before);
        edit.removeTo(position);
        QCOMPARE(marked(edit), after);
    }

    void charactersAreWhatPeopleSee_data()
    {
        QTest::addColumn<QString>("character");
        QTest::newRow("letter") << QStringLiteral("a");
        QTest::newRow("letter with a combining mark") << QStringLiteral("e\u0301");
        QTest::newRow("letter outside the first plane") << QStringLiteral("\U0001D11E");
        QTest::newRow("emoji") << QStringLiteral("\U0001F600");
        QTest::newRow("emoji of a skin colour") << QStringLiteral("\U0001F44B\U0001F3FD");
        QTest::newRow("family") << QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467");
        QTest::newRow("flag") << QStringLiteral("\U0001F1E9\U0001F1EA");
        QTest::newRow("heart with its selector") << QStringLiteral("\u2764\uFE0F");
        QTest::newRow("break") << QStringLiteral("\n");
        QTest::newRow("break of two characters") << QStringLiteral("\r\n");
    }

    void charactersAreWhatPeopleSee()
    {
        QFETCH(QString, character);
        EditedText edit{
            .text = QStringLiteral("x") + character + QStringLiteral("y"), .anchor = 1, .caret = 1};
        QCOMPARE(edit.nextCharacter(), 1 + character.size());
        edit.moveTo(1 + character.size());
        QCOMPARE(edit.previousCharacter(), 1);
        QCOMPARE(edit.placeFrom(2), 1 + character.size());
    }

    void thereIsNothingBeyondTheEnds()
    {
        EditedText edit = edited(QStringLiteral("|ab cd"));
        QCOMPARE(edit.previousCharacter(), 0);
        QCOMPARE(edit.previousWord(), 0);
        QCOMPARE(edit.startOfParagraph(), 0);
        edit.moveTo(5);
        QCOMPARE(edit.nextCharacter(), 5);
        QCOMPARE(edit.nextWord(), 5);
        QCOMPARE(edit.endOfParagraph(), 5);
        QCOMPARE(edit.placeFrom(-1), 0);
        QCOMPARE(edit.placeFrom(6), 5);
    }

    void wordsBeginAfterTheirSpacing()
    {
        const EditedText edit = edited(QStringLiteral("We ri|se, and sing"));
        QCOMPARE(edit.nextWord(), 9);
        QCOMPARE(edit.previousWord(), 3);
    }

    void paragraphsLieBetweenBreaks()
    {
        const EditedText edit = edited(QStringLiteral("one\ntw|o\nthree"));
        QCOMPARE(edit.startOfParagraph(), 4);
        QCOMPARE(edit.endOfParagraph(), 7);
        QCOMPARE(edited(QStringLiteral("one\n|two")).startOfParagraph(), 4);
        QCOMPARE(edited(QStringLiteral("one|\ntwo")).endOfParagraph(), 3);
    }

    void movingKeepsTheAnchorOnlyWhileSelecting()
    {
        EditedText edit = edited(QStringLiteral("ab|cd"));
        edit.moveTo(4, Selecting::yes);
        QCOMPARE(marked(edit), QStringLiteral("ab^cd|"));
        QCOMPARE(edit.selectedText(), QStringLiteral("cd"));
        edit.moveTo(0, Selecting::yes);
        QCOMPARE(marked(edit), QStringLiteral("|ab^cd"));
        QCOMPARE(edit.selectedText(), QStringLiteral("ab"));
        edit.moveTo(1);
        QCOMPARE(marked(edit), QStringLiteral("a|bcd"));
    }

    void aWordIsSelectedWherever_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("expected");
        QTest::newRow("at its beginning") << 3 << "We ^rise| up";
        QTest::newRow("inside it") << 5 << "We ^rise| up";
        QTest::newRow("at the end of the text") << 10 << "We rise ^up|";
        QTest::newRow("the space between two") << 2 << "We^ |rise up";
    }

    void aWordIsSelectedWherever()
    {
        QFETCH(int, position);
        QFETCH(QString, expected);
        EditedText edit = edited(QStringLiteral("|We rise up"));
        edit.selectWordAt(position);
        QCOMPARE(marked(edit), expected);
    }

    void whatElseChangesTheTextLeavesTheCaretBehindThat_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("other");
        QTest::addColumn<QString>("after");
        QTest::newRow("something comes in") << "|abc"
                                            << "abXYc"
                                            << "abXY|c";
        QTest::newRow("something goes") << "abXYc|"
                                        << "abc"
                                        << "ab|c";
        QTest::newRow("repeated letters come in") << "|aa"
                                                  << "aaaa"
                                                  << "aaaa|";
        QTest::newRow("everything changes") << "|abc"
                                            << "xyz"
                                            << "xyz|";
        QTest::newRow("everything goes") << "a^bc|"
                                         << ""
                                         << "|";
        QTest::newRow("half of a character stays")
            << QStringLiteral("|\U0001F600") << QStringLiteral("\U0001F601")
            << QStringLiteral("\U0001F601|");
    }

    void whatElseChangesTheTextLeavesTheCaretBehindThat()
    {
        QFETCH(QString, before);
        QFETCH(QString, other);
        QFETCH(QString, after);
        EditedText edit = edited(before);
        edit.replace(other);
        QCOMPARE(marked(edit), after);
    }

    void everythingIsSelectedAtOnce()
    {
        EditedText edit = edited(QStringLiteral("a|b"));
        edit.selectAll();
        QCOMPARE(edit.selectedText(), QStringLiteral("ab"));
    }
};

QUENARA_TEST(TestEditedText)

} // namespace tst_edited_text

#include "tst_edited_text.moc"
