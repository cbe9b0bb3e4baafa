#include "InputMethodEdits.h"
#include "MarkedText.h"
#include "TestMain.h"

#include <QInputMethodEvent>
#include <QTest>

using namespace quenara;
using namespace quenara::test;

namespace tst_input_method_edits {

namespace {

using Attribute = QInputMethodEvent::Attribute;

Attribute caretAt(int position)
{
    return {QInputMethodEvent::Cursor, position, 1, QVariant()};
}

Attribute selection(int start, int length)
{
    return {QInputMethodEvent::Selection, start, length, QVariant()};
}

} // namespace

class TestInputMethodEdits : public QObject
{
    Q_OBJECT

private slots:
    void whatIsComposedHasItsOwnCaret_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QList<Attribute>>("attributes");
        QTest::addColumn<int>("caret");
        using Attributes = QList<Attribute>;
        QTest::newRow("at its end if the event says nothing of it") << "nihao" << Attributes() << 5;
        QTest::newRow("where the event puts it") << "nihao" << Attributes{caretAt(2)} << 2;
        QTest::newRow("before all of it") << "nihao" << Attributes{caretAt(0)} << 0;
        QTest::newRow("where the event puts it last")
            << "nihao" << Attributes{caretAt(2), caretAt(3)} << 3;
        QTest::newRow("at its end if the event only selects")
            << "nihao" << Attributes{selection(1, 2)} << 5;
        QTest::newRow("at the beginning of nothing") << "" << Attributes() << 0;
    }

    void whatIsComposedHasItsOwnCaret()
    {
        QFETCH(QString, text);
        QFETCH(QList<Attribute>, attributes);
        QFETCH(int, caret);
        QCOMPARE(preeditOf(QInputMethodEvent(text, attributes)), (Preedit{text, caret}));
    }

    void aCommitTakesThePlaceOfWhatItReplaces_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("committed");
        QTest::addColumn<int>("replacementStart");
        QTest::addColumn<int>("replacementLength");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *name, const char *before, const char *committed, int start,
                            int length, const char *after) {
            QTest::newRow(name) << QString::fromUtf8(before) << QString::fromUtf8(committed)
                                << start << length << QString::fromUtf8(after);
        };
        row("of nothing, at the caret", "a|b", "x", 0, 0, "ax|b");
        row("of the selection", "a^bc|d", "x", 0, 0, "ax|d");
        row("of the selection, which alone goes if nothing is committed", "a^bc|d", "", 0, 0,
            "a|d");
        row("of the characters before the caret", "abc|d", "x", -2, 2, "ax|d");
        row("of the characters after the caret", "a|bcd", "x", 0, 2, "ax|d");
        row("of characters on both sides of the caret", "ab|cd", "x", -1, 2, "ax|d");
        row("of characters further on", "a|bcd", "x", 1, 1, "abx|d");
        row("of characters seen from where the selection began", "a^bc|de", "x", 0, 1, "ax|e");
        row("of characters that go without another", "abc|d", "", -2, 2, "a|d");
        row("of an emoji", "a\U0001F600|", "x", -2, 2, "ax|");
        row("of no more than there is after the caret", "a|bc", "x", 0, 9, "ax|");
        row("of no more than there is before the caret", "ab|c", "x", -9, 2, "x|c");
        row("of nothing beyond the end", "abc|", "x", 9, 2, "abcx|");
        row("of nothing, if the length is negative", "ab|c", "x", -1, -2, "abx|c");
    }

    void aCommitTakesThePlaceOfWhatItReplaces()
    {
        QFETCH(QString, before);
        QFETCH(QString, committed);
        QFETCH(int, replacementStart);
        QFETCH(int, replacementLength);
        QFETCH(QString, after);
        QInputMethodEvent event;
        event.setCommitString(committed, replacementStart, replacementLength);
        EditedText edit = edited(before);
        commit(edit, event);
        QCOMPARE(marked(edit), after);
    }

    void anEventPlacesTheAnchorAndTheCaret_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QList<Attribute>>("attributes");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *name, const char *before,
                            const QList<Attribute> &attributes, const char *after) {
            QTest::newRow(name) << QString::fromUtf8(before) << attributes
                                << QString::fromUtf8(after);
        };
        row("both in one place", "abc|", {selection(1, 0)}, "a|bc");
        row("the caret after the anchor", "|abc", {selection(1, 2)}, "a^bc|");
        row("the caret before the anchor", "abc|", {selection(3, -2)}, "a|bc^");
        row("in the place of another selection", "^abc|", {selection(1, 1)}, "a^b|c");
        row("as it says last", "|abc", {selection(0, 1), selection(1, 2)}, "a^bc|");
        row("no further than the end", "|abc", {selection(1, 9)}, "a^bc|");
        row("no further than the beginning", "abc|", {selection(2, -9)}, "|ab^c");
        row("never inside an emoji", "|a\U0001F600b", {selection(2, 0)}, "a\U0001F600|b");
    }

    void anEventPlacesTheAnchorAndTheCaret()
    {
        QFETCH(QString, before);
        QFETCH(QList<Attribute>, attributes);
        QFETCH(QString, after);
        EditedText edit = edited(before);
        QVERIFY(select(edit, QInputMethodEvent({}, attributes)));
        QCOMPARE(marked(edit), after);
    }

    void anEventThatSelectsNothingLeavesTheSelection()
    {
        EditedText edit = edited(QStringLiteral("a^bc|d"));
        QVERIFY(!select(edit, QInputMethodEvent(QStringLiteral("ni"), {caretAt(1)})));
        QCOMPARE(marked(edit), QStringLiteral("a^bc|d"));
    }
};

QUENARA_TEST(TestInputMethodEdits)

} // namespace tst_input_method_edits

#include "tst_input_method_edits.moc"
