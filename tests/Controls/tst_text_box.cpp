#include "ControlTest.h"
#include "TextBox.h"

#include <QClipboard>
#include <QMimeData>

#include <functional>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_text_box {

namespace {

/// A box that says "one", all of it selected.
struct Box : Shown<TextBox>
{
    Box() : Shown(new TextBox(u"Lyrics"_s))
    {
        control.setPlainText(u"one"_s);
        control.selectAll();
    }

    QString text() const { return control.toPlainText(); }
};

/// Presses and releases where the text begins.
void click(Box &box)
{
    QTest::mouseClick(box.control.viewport(), Qt::LeftButton, Qt::NoModifier,
                      box.control.cursorRect().center());
    // So that the next click is not the second half of a double click.
    QTest::qWait(QApplication::doubleClickInterval() + 1);
}

void copy(QMimeData *data)
{
    QGuiApplication::clipboard()->setMimeData(data);
}

} // namespace

class TestTextBox : public GuiTest
{
    Q_OBJECT

private slots:
    void aPasteOfNothingChangesNothing_data()
    {
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Ctrl+V") << Qt::KeyboardModifiers(Qt::ControlModifier) << Qt::Key_V;
        QTest::newRow("Shift+Insert") << Qt::KeyboardModifiers(Qt::ShiftModifier) << Qt::Key_Insert;
    }

    void aPasteOfNothingChangesNothing()
    {
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(Qt::Key, key);
        Box box;
        copy(new QMimeData); // without any format, as on X11 while nobody owns the clipboard
        QTest::keyClick(&box.control, key, modifiers);
        QCOMPARE(box.text(), u"one"_s);
        QGuiApplication::clipboard()->clear();
        QTest::keyClick(&box.control, key, modifiers);
        QCOMPARE(box.text(), u"one"_s);
        box.control.paste();
        QCOMPARE(box.text(), u"one"_s);
        QTest::keyClicks(&box.control, u"two"_s);
        QCOMPARE(box.text(), u"two"_s);
    }

    void whatIsPastedIsPlainText_data()
    {
        QTest::addColumn<QString>("format");
        QTest::newRow("beside HTML") << u"text/html"_s;
        QTest::newRow("beside Markdown") << u"text/markdown"_s;
    }

    void whatIsPastedIsPlainText()
    {
        QFETCH(QString, format);
        Box box;
        auto *data = new QMimeData;
        data->setData(format, "**<b>two</b>**");
        data->setText(u"**two**\r\nthree"_s);
        copy(data);
        QTest::keyClick(&box.control, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(box.text(), u"**two**\nthree"_s);
        QTest::keyClick(&box.control, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(box.text(), u"one"_s);
    }

    void ofATextThatIsTooLongTheBeginningIsPasted()
    {
        Box box;
        auto *data = new QMimeData;
        data->setText(u"a line of a song\n"_s.repeated(20'000));
        copy(data);
        QTest::keyClick(&box.control, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(box.text(), data->text().first(100'000));
    }

    void anExampleIsSelectedWholeAtFirstAndByTheFirstClickAlone()
    {
        Box box;
        const auto isAllSelected = [&box] {
            return box.control.textCursor().selectedText() == box.text();
        };
        box.control.showExample(u"an example"_s);
        QVERIFY(isAllSelected());
        box.control.moveCursor(QTextCursor::Start);
        click(box);
        QVERIFY(isAllSelected());
        click(box);
        QVERIFY(!box.control.textCursor().hasSelection());
    }

    void aTextThatIsNoExampleIsNotSelectedByAClick()
    {
        Box box;
        box.control.moveCursor(QTextCursor::Start);
        click(box);
        QVERIFY(!box.control.textCursor().hasSelection());
        box.control.showExample(u"an example"_s);
        QTest::keyClicks(&box.control, u"two"_s);
        click(box);
        QVERIFY(!box.control.textCursor().hasSelection());
    }

    void aPasteReplacesAnExampleWholeUnlessAPartIsSelected_data()
    {
        QTest::addColumn<std::function<void(Box &)>>("prepare");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const std::function<void(Box &)> &prepare,
                            const QString &expected) {
            QTest::newRow(name) << prepare << expected;
        };
        row(
            "untouched", [](Box &) {}, u"new"_s);
        row(
            "after a click", [](Box &box) { click(box); }, u"new"_s);
        row(
            "after the caret was placed",
            [](Box &box) { box.control.moveCursor(QTextCursor::Start); }, u"new"_s);
        row(
            "over a selected part",
            [](Box &box) {
                box.control.moveCursor(QTextCursor::Start);
                box.control.moveCursor(QTextCursor::NextWord, QTextCursor::KeepAnchor);
            },
            u"newexample"_s);
        row(
            "into what was written there",
            [](Box &box) { QTest::keyClicks(&box.control, u"my "_s); }, u"my new"_s);
    }

    void aPasteReplacesAnExampleWholeUnlessAPartIsSelected()
    {
        QFETCH(std::function<void(Box &)>, prepare);
        Box box;
        box.control.showExample(u"an example"_s);
        prepare(box);
        auto *data = new QMimeData;
        data->setText(u"new"_s);
        copy(data);
        QTest::keyClick(&box.control, Qt::Key_V, Qt::ControlModifier);
        QTEST(box.text(), "expected");
    }

    void aTextThatIsDroppedReplacesAnExampleWhole()
    {
        Box box;
        box.control.showExample(u"an example"_s);
        QMimeData data;
        data.setText(u"new"_s);
        const QPoint place(4, 8);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(box.control.viewport(), &enter);
        QDropEvent drop(QPointF(place), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(box.control.viewport(), &drop);
        QCOMPARE(box.text(), u"new"_s);
    }
};

QUENARA_GUI_TEST(TestTextBox)

} // namespace tst_text_box

#include "tst_text_box.moc"
