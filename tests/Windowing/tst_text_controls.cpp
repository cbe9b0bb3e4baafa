#include "BareKeys.h"
#include "CanvasTextLayerEditor.h"
#include "GuiTestSupport.h"
#include "ProgramWindows.h"
#include "SongImportSheet.h"
#include "Typing.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>

using namespace quenara;
using namespace quenara::test;

namespace {

/// The text that a key writes; empty for a key that does something else.
QString textOf(Qt::Key key)
{
    const QString name = QKeySequence(key).toString().toLower();
    return key == Qt::Key_Space ? QStringLiteral(" ") : name.size() == 1 ? name : QString();
}

/// The program amid a service, a text layer selected, with a window open that fields are in.
struct Typing : ProgramWindows
{
    QWidget *window = &operatorWindow;

    explicit Typing(const QString &title, const Caller &caller = Caller::current())
    {
        store.updateProjectName(QStringLiteral("Evening"));
        store.nextLive();
        store.queueNext();
        selectText(caller);
        if (title == QStringLiteral("Paste Song Lyrics")) {
            store.setSongImportPresented(true);
            window = operatorWindow.findChild<SongImportSheet *>();
        } else if (title == QStringLiteral("Quenara Settings")) {
            settings.present();
            window = &settings;
        }
        activate(*window, caller);
    }

    void selectText(const Caller &caller)
    {
        store.selectSlide(*store.liveSlideID(), false);
        const std::optional<Slide> slide = store.slideWithID(store.selectedSlideID());
        for (const SlideElement &layer : slide->design.elements) {
            if (layer.text)
                return store.selectElement(layer.id);
        }
        fail(QStringLiteral("no text layer"), caller);
    }

    /// Everything that the window lets its user type into.
    QWidgetList controls() const
    {
        QWidgetList found;
        for (QWidget *widget : window->findChildren<QWidget *>()) {
            const bool canBeSeen =
                widget->isVisible() || qobject_cast<CanvasTextLayerEditor *>(widget);
            if (widget->window() == window && canBeSeen && takesText(widget))
                found.append(widget);
        }
        return found;
    }

    /// Begins to type as a user does, on the slide by a double click, with all of the text
    /// selected.
    void begin(QWidget &control, const Caller &caller = Caller::current())
    {
        if (!control.isVisible()) {
            openText(*window);
        } else if (!control.hasFocus()) {
            control.setFocus();
        }
        if (!control.hasFocus())
            fail(QStringLiteral("the control does not get the keyboard"), caller);
        press(*window, Qt::Key_A, Qt::ControlModifier);
    }

    QString textIn(const QWidget &control) const
    {
        if (const auto *line = qobject_cast<const QLineEdit *>(&control))
            return line->text();
        if (const auto *lines = qobject_cast<const QPlainTextEdit *>(&control))
            return lines->toPlainText();
        return store.selectedElement()->text->text;
    }

    /// What the keys of the menus change of the service.
    QString service() const
    {
        return QStringLiteral("slide %1 live, slide %2 queued, mode %3")
            .arg(QString::number(live()), QString::number(queued()), rawValue(store.outputMode()));
    }
};

} // namespace

class TestTextControls : public GuiTest
{
    Q_OBJECT

private:
    /// A row for everything in those windows that takes text.
    static void addControlsOf(const QStringList &titles)
    {
        QTest::addColumn<QString>("window");
        QTest::addColumn<qsizetype>("position");
        for (const QString &title : titles) {
            const Typing typing(title);
            const QWidgetList controls = typing.controls();
            for (qsizetype i = 0; i < controls.size(); ++i) {
                const QString row =
                    QStringLiteral("%1: %2").arg(title, controls.at(i)->accessibleName());
                QTest::newRow(qPrintable(row)) << title << i;
            }
        }
    }

private slots:
    void theKeysOfTheMenusAreTheControls_data()
    {
        addControlsOf({QStringLiteral("Operator"), QStringLiteral("Paste Song Lyrics"),
                       QStringLiteral("Quenara Settings")});
    }

    void theKeysOfTheMenusAreTheControls()
    {
        QFETCH(QString, window);
        QFETCH(qsizetype, position);
        Typing typing(window);
        QWidget &control = *typing.controls().at(position);
        const QString before = typing.service();
        for (const Qt::Key key : bareKeys()) {
            typing.begin(control);
            Typing::press(*typing.window, key);
            QCOMPARE(typing.service(), before);
            if (!textOf(key).isEmpty())
                QCOMPARE(typing.textIn(control), textOf(key));
        }
        QVERIFY(typing.window->isVisible());
    }

    void escapeLeavesTheControl_data() { theKeysOfTheMenusAreTheControls_data(); }

    void escapeLeavesTheControl()
    {
        QFETCH(QString, window);
        QFETCH(qsizetype, position);
        Typing typing(window);
        const QPointer<QWidget> control = typing.controls().at(position);
        typing.begin(*control);
        Typing::press(*typing.window, Qt::Key_Escape);
        QVERIFY(!control || !control->hasFocus());
        Typing::activate(typing.operatorWindow);
        Typing::press(typing.operatorWindow, Qt::Key_B);
        QCOMPARE(typing.store.outputMode(), OutputMode::blackout);
    }

    void undoAndRedoAreTheDocuments_data() { addControlsOf({QStringLiteral("Operator")}); }

    void undoAndRedoAreTheDocuments()
    {
        QFETCH(QString, window);
        QFETCH(qsizetype, position);
        Typing typing(window);
        QWidget &control = *typing.controls().at(position);
        const ZelvoProject before = typing.store.project();
        const QString text = typing.textIn(control);
        typing.begin(control);
        Typing::press(*typing.window, Qt::Key_7);
        Typing::press(*typing.window, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(typing.store.project(), before);
        QCOMPARE(typing.textIn(control), text);
        QVERIFY(control.hasFocus());
        Typing::press(*typing.window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(typing.store.project() != before);
        QVERIFY(typing.textIn(control) != text);
        QVERIFY(control.hasFocus());
    }

    void onASheetTheyAreTheControls_data() { addControlsOf({QStringLiteral("Paste Song Lyrics")}); }

    void onASheetTheyAreTheControls()
    {
        QFETCH(QString, window);
        QFETCH(qsizetype, position);
        Typing typing(window);
        QWidget &control = *typing.controls().at(position);
        const ZelvoProject before = typing.store.project();
        const QString text = typing.textIn(control);
        typing.begin(control);
        Typing::press(*typing.window, Qt::Key_7);
        QCOMPARE(typing.textIn(control), QStringLiteral("7"));
        Typing::press(*typing.window, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(typing.textIn(control), text);
        Typing::press(*typing.window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(typing.textIn(control), QStringLiteral("7"));
        QCOMPARE(typing.store.project(), before);
    }
};

QUENARA_GUI_TEST_MAIN(TestTextControls)
#include "tst_text_controls.moc"
