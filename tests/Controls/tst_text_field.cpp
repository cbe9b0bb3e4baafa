#include "ControlTest.h"
#include "TextField.h"

#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_text_field {

class TestTextField : public GuiTest
{
    Q_OBJECT

private slots:
    void anotherTextKeepsCaretAndSelectionAsFarAsItReaches_data()
    {
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("caret");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("expectedCaret");
        QTest::addColumn<QString>("expectedSelection");
        QTest::newRow("a caret") << 3 << 3 << u"grace upon grace"_s << 3 << QString();
        QTest::newRow("a caret behind the end") << 7 << 7 << u"hymn"_s << 4 << QString();
        QTest::newRow("a selection") << 2 << 5 << u"GRACE UPON"_s << 5 << u"ACE"_s;
        QTest::newRow("a selection from its end") << 5 << 2 << u"GRACE UPON"_s << 2 << u"ACE"_s;
        QTest::newRow("a selection over the end") << 1 << 7 << u"GRA"_s << 3 << u"RA"_s;
        QTest::newRow("no text") << 1 << 7 << QString() << 0 << QString();
    }

    void anotherTextKeepsCaretAndSelectionAsFarAsItReaches()
    {
        QFETCH(int, anchor);
        QFETCH(int, caret);
        QFETCH(QString, text);
        Shown field(new TextField(u"Title"_s));
        field.control.setFocus();
        field.control.showText(u"amazing grace"_s);
        field.control.setSelection(anchor, caret - anchor);
        field.control.showText(text);
        QCOMPARE(field.control.text(), text);
        QTEST(field.control.cursorPosition(), "expectedCaret");
        QTEST(field.control.selectedText(), "expectedSelection");
        // The caret moves on from its own end of the selection.
        if (caret < anchor && field.control.hasSelectedText()) {
            QTest::keyClick(&field.control, Qt::Key_Left, Qt::ShiftModifier);
            QCOMPARE(field.control.selectedText(), u"RACE"_s);
        }
    }

    void ofATextThatIsTooLongTheBeginningIsShownAndNotEdited()
    {
        Shown field(new TextField(u"Title"_s));
        const QString longest(longestLine, u'a');
        field.control.showText(longest);
        QCOMPARE(field.control.text(), longest);
        QVERIFY(!field.control.isReadOnly());
        field.control.showText(longest + u'a');
        QCOMPARE(field.control.text(), longest.chopped(1) + u'\u2026');
        field.control.setFocus();
        QTest::keyClicks(&field.control, u"b"_s);
        QVERIFY(!field.control.text().contains(u'b'));
        field.control.showText(u"hymn"_s);
        QTest::keyClicks(&field.control, u"b"_s);
        QVERIFY(field.control.text().contains(u'b'));
    }

    void aTextThatIsShownAlreadyKeepsWhatCanBeUndoneInTheField()
    {
        Shown field(new TextField(u"Title"_s));
        field.control.setFocus();
        QTest::keyClicks(&field.control, u"hymn"_s);
        field.control.showText(u"hymn"_s);
        QVERIFY(field.control.isUndoAvailable());
    }

    void aFieldThatIsNotBeingEditedShowsTheBeginningOfItsText()
    {
        Shown field(new TextField(u"Title"_s));
        field.control.clearFocus();
        field.control.showText(u"amazing grace"_s);
        QCOMPARE(field.control.cursorPosition(), 0);
        field.control.setCursorPosition(7);
        field.control.showText(u"amazing light"_s);
        QCOMPARE(field.control.cursorPosition(), 0);
    }

    void aFieldThatIsLeftShowsTheBeginningOfItsText_data()
    {
        QTest::addColumn<Qt::FocusReason>("reason");
        QTest::addColumn<int>("caret");
        QTest::newRow("by Tab") << Qt::TabFocusReason << 0;
        QTest::newRow("by a click elsewhere") << Qt::MouseFocusReason << 0;
        QTest::newRow("for its own menu, it keeps the caret") << Qt::PopupFocusReason << 7;
        QTest::newRow("for another window, too") << Qt::ActiveWindowFocusReason << 7;
    }

    void aFieldThatIsLeftShowsTheBeginningOfItsText()
    {
        QFETCH(Qt::FocusReason, reason);
        Shown field(new TextField(u"Title"_s));
        field.control.setText(u"amazing grace"_s);
        field.control.setFocus();
        field.control.setCursorPosition(7);
        QFocusEvent left(QEvent::FocusOut, reason);
        QApplication::sendEvent(&field.control, &left);
        QTEST(field.control.cursorPosition(), "caret");
    }

    void whatIsDroppedOnAFieldThatIsNotBeingEditedIsTaken()
    {
        Shown field(new TextField(u"Title"_s));
        field.control.clearFocus();
        const QSignalSpy finished(&field.control, &QLineEdit::editingFinished);
        QMimeData text;
        text.setText(u"hymn"_s);
        const QPoint place = field.control.rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&field.control, &enter);
        QDropEvent drop(place, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&field.control, &drop);
        QCOMPARE(field.control.text(), u"hymn"_s);
        QCOMPARE(finished.size(), 1);
        QVERIFY(!field.control.isModified());
    }

    void returnAndEscapeLeaveIt_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Return") << Qt::Key_Return;
        QTest::newRow("Enter") << Qt::Key_Enter;
        QTest::newRow("Escape") << Qt::Key_Escape;
    }

    void returnAndEscapeLeaveIt()
    {
        QFETCH(Qt::Key, key);
        Shown field(new TextField(u"Title"_s));
        field.control.setFocus();
        QTest::keyClicks(&field.control, u"hymn"_s);
        const QSignalSpy finished(&field.control, &QLineEdit::editingFinished);
        QTest::keyClick(&field.control, key);
        QVERIFY(!field.control.hasFocus());
        QCOMPARE(field.control.text(), u"hymn"_s);
        QCOMPARE(finished.size(), 1);
    }
};

QUENARA_GUI_TEST(TestTextField)

} // namespace tst_text_field

#include "tst_text_field.moc"
