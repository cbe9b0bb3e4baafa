#include "ControlTest.h"
#include "TextBox.h"

#include <QClipboard>
#include <QMimeData>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

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
};

QUENARA_GUI_TEST_MAIN(TestTextBox)
#include "tst_text_box.moc"
