#include "ControlTest.h"
#include "NumberField.h"
#include "TextBox.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QSpinBox>

using namespace quenara;
using namespace quenara::test;

namespace tst_accessible_text {

namespace {

QAccessibleInterface &toldOf(QWidget &widget)
{
    return *QAccessible::queryAccessibleInterface(&widget);
}

QLineEdit *makeLine()
{
    auto *line = new TextField(QStringLiteral("Title"));
    line->setText(QStringLiteral("one two"));
    return line;
}

QWidget *makeBox()
{
    auto *box = new TextBox(QStringLiteral("Lyrics"));
    box->setPlainText(QStringLiteral("one two\nthree"));
    return box;
}

QWidget *makeSpinBox()
{
    auto *box = new QSpinBox;
    box->setRange(0, 5000);
    box->setValue(1234);
    return box;
}

using Make = QWidget *(*)();

void addRowsForTexts()
{
    QTest::addColumn<Make>("make");
    QTest::newRow("a line") << Make([]() -> QWidget * { return makeLine(); });
    QTest::newRow("several lines") << Make(makeBox);
    QTest::newRow("a number in a dialog") << Make(makeSpinBox);
}

} // namespace

class TestAccessibleText : public GuiTest
{
    Q_OBJECT

private slots:
    void theTextItsCaretAndItsSelectionAreTold_data() { addRowsForTexts(); }

    void theTextItsCaretAndItsSelectionAreTold()
    {
        QFETCH(Make, make);
        Shown<QWidget> field(make());
        QAccessibleInterface &told = toldOf(field.control);
        QAccessibleTextInterface &text = *told.textInterface();
        QVERIFY(told.state().editable);
        QVERIFY(told.state().selectableText);
        QCOMPARE(text.text(0, text.characterCount()), told.text(QAccessible::Value));
        QVERIFY(text.characterCount() > 0);
        text.setSelection(0, 1, 3);
        QCOMPARE(text.selectionCount(), 1);
        int start = 0;
        int end = 0;
        text.selection(0, &start, &end);
        QCOMPARE(start, 1);
        QCOMPARE(end, 3);
        text.removeSelection(0);
        QCOMPARE(text.selectionCount(), 0);
        text.setCursorPosition(2);
        QCOMPARE(text.cursorPosition(), 2);
        text.setCursorPosition(1000);
        QCOMPARE(text.cursorPosition(), text.characterCount());
    }

    void aCharacterIsFoundWhereItIsTold_data() { addRowsForTexts(); }

    void aCharacterIsFoundWhereItIsTold()
    {
        QFETCH(Make, make);
        Shown<QWidget> field(make());
        QAccessibleTextInterface &text = *toldOf(field.control).textInterface();
        const QRect area = toldOf(field.control).rect();
        for (int offset = 0; offset < 4; ++offset) {
            const QRect place = text.characterRect(offset);
            QVERIFY(area.contains(place.center()));
            QCOMPARE(text.offsetAtPoint({place.left() + 1, place.center().y()}), offset);
        }
    }

    void aTextIsWrittenInPartAndWhole_data() { addRowsForTexts(); }

    void aTextIsWrittenInPartAndWhole()
    {
        QFETCH(Make, make);
        Shown<QWidget> field(make());
        QAccessibleInterface &told = toldOf(field.control);
        QAccessibleEditableTextInterface &text = *told.editableTextInterface();
        const QString before = told.text(QAccessible::Value);
        text.deleteText(1, 3);
        QCOMPARE(told.text(QAccessible::Value), before.left(1) + before.mid(3));
        text.insertText(1, before.mid(1, 2));
        QCOMPARE(told.text(QAccessible::Value), before);
        told.textInterface()->setSelection(0, 0, 2); // which is not what is replaced
        text.replaceText(0, 4, QStringLiteral("77"));
        QCOMPARE(told.text(QAccessible::Value), QStringLiteral("77") + before.mid(4));
        told.setText(QAccessible::Value, QStringLiteral("5"));
        QCOMPARE(told.text(QAccessible::Value), QStringLiteral("5"));
        text.insertText(1000, QStringLiteral("0"));
        QCOMPARE(told.text(QAccessible::Value), QStringLiteral("50"));
    }

    void whatIsWrittenIntoAFieldIsTypedAndTaken()
    {
        Shown<QLineEdit> field(makeLine());
        field.control.clearFocus();
        const QSignalSpy typed(&field.control, &QLineEdit::textEdited);
        const QSignalSpy taken(&field.control, &QLineEdit::editingFinished);
        toldOf(field.control).setText(QAccessible::Value, QStringLiteral("three"));
        QCOMPARE(typed.size(), 1);
        QCOMPARE(taken.size(), 1);
    }

    void aFieldThatIsTypedIntoTakesWhatIsWrittenWhenItIsLeft()
    {
        Shown<NumberField> field(new NumberField(QStringLiteral("Width")));
        const QSignalSpy entered(&field.control, &NumberField::edited);
        field.control.setFocus();
        toldOf(field.control).setText(QAccessible::Value, QStringLiteral("12"));
        QCOMPARE(entered.size(), 0);
        QTest::keyClicks(&field.control, QStringLiteral("3"));
        field.control.clearFocus();
        QCOMPARE(entered.size(), 1);
        QCOMPARE(entered.constFirst().constFirst().toDouble(), 123.0);
    }

    void whatIsNoNumberIsNotTaken()
    {
        Shown<NumberField> field(new NumberField(QStringLiteral("Width")));
        field.control.showNumber(5);
        field.control.clearFocus();
        const QSignalSpy entered(&field.control, &NumberField::edited);
        toldOf(field.control).setText(QAccessible::Value, QStringLiteral("wide"));
        QCOMPARE(entered.size(), 0);
        QCOMPARE(field.control.text(), QStringLiteral("5"));
    }

    void aNumberInADialogIsSetByItsValue()
    {
        Shown<QWidget> field(makeSpinBox());
        QAccessibleInterface &told = toldOf(field.control);
        QCOMPARE(told.role(), QAccessible::SpinBox);
        QCOMPARE(told.valueInterface()->currentValue().toInt(), 1234);
        QCOMPARE(told.valueInterface()->maximumValue().toInt(), 5000);
        told.valueInterface()->setCurrentValue(42);
        QCOMPARE(told.text(QAccessible::Value), QStringLiteral("42"));
    }

    void whatCannotBeTypedIntoIsNotWritten_data()
    {
        using Close = void (*)(QLineEdit &);
        QTest::addColumn<Close>("close");
        QTest::newRow("a field that is disabled")
            << Close([](QLineEdit &field) { field.setEnabled(false); });
        QTest::newRow("one that is only read")
            << Close([](QLineEdit &field) { field.setReadOnly(true); });
        QTest::newRow("one that is not shown") << Close([](QLineEdit &field) { field.hide(); });
    }

    void whatCannotBeTypedIntoIsNotWritten()
    {
        using Close = void (*)(QLineEdit &);
        QFETCH(Close, close);
        Shown<QLineEdit> field(makeLine());
        close(field.control);
        QAccessibleInterface &told = toldOf(field.control);
        told.setText(QAccessible::Value, QStringLiteral("three"));
        told.editableTextInterface()->insertText(0, QStringLiteral("three"));
        told.editableTextInterface()->deleteText(0, 1);
        QCOMPARE(told.text(QAccessible::Value), QStringLiteral("one two"));
    }
};

QUENARA_GUI_TEST(TestAccessibleText)

} // namespace tst_accessible_text

#include "tst_accessible_text.moc"
