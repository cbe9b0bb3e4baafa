#include "BareKeys.h"
#include "CanvasTextLayerEditor.h"
#include "GuiTestSupport.h"
#include "ProgramWindows.h"
#include "SongImportSheet.h"
#include "Typing.h"

#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>

#include <algorithm>

using namespace quenara;
using namespace quenara::test;

namespace tst_text_controls {

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

    void type(std::initializer_list<Qt::Key> keys) const
    {
        for (const Qt::Key key : keys)
            press(*window, key);
    }

    void save() const { press(*window, Qt::Key_S, Qt::ControlModifier); }

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

using Leave = void (*)(Typing &typing);

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

    void aSaveLeavesTheCaretAndTheSelectionWhereTheyAre_data()
    {
        theKeysOfTheMenusAreTheControls_data();
    }

    void aSaveLeavesTheCaretAndTheSelectionWhereTheyAre()
    {
        QFETCH(QString, window);
        QFETCH(qsizetype, position);
        Typing typing(window);
        typing.panels.answer = typing.fileUrl(QStringLiteral("show.quenara"));
        QWidget &control = *typing.controls().at(position);
        typing.begin(control);
        typing.type({Qt::Key_1, Qt::Key_2, Qt::Key_3});
        typing.save();
        typing.type({Qt::Key_4, Qt::Key_5});
        QCOMPARE(typing.textIn(control), QStringLiteral("12345"));
        Typing::press(*typing.window, Qt::Key_Left);
        typing.save();
        typing.type({Qt::Key_6});
        QCOMPARE(typing.textIn(control), QStringLiteral("123465"));
        for (int i = 0; i < 2; ++i)
            Typing::press(*typing.window, Qt::Key_Left, Qt::ShiftModifier);
        typing.save();
        typing.type({Qt::Key_7});
        QCOMPARE(typing.textIn(control), QStringLiteral("12375"));
    }

    void undoAndRedoLeaveTheCaretWhereItIs_data() { undoAndRedoAreTheDocuments_data(); }

    void undoAndRedoLeaveTheCaretWhereItIs()
    {
        QFETCH(QString, window);
        QFETCH(qsizetype, position);
        Typing typing(window);
        QWidget &control = *typing.controls().at(position);
        const QString before = typing.textIn(control);
        typing.begin(control);
        typing.type({Qt::Key_1, Qt::Key_2, Qt::Key_3});
        Typing::press(*typing.window, Qt::Key_Left);
        Typing::press(*typing.window, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(typing.textIn(control), before);
        Typing::press(*typing.window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(typing.textIn(control), QStringLiteral("123"));
        // On the slide, the caret stands behind what comes back.
        const bool isOnSlide = qobject_cast<CanvasTextLayerEditor *>(&control);
        const qsizetype caret = isOnSlide ? 3 : std::min<qsizetype>(2, before.size());
        typing.type({Qt::Key_4});
        QCOMPARE(typing.textIn(control), QStringLiteral("123").insert(caret, QLatin1Char('4')));
    }

    void theTextOnTheSlideIsNoLongerEditedOnceTheKeyboardIsElsewhere_data()
    {
        QTest::addColumn<Leave>("leave");
        QTest::addRow("in a field") << +[](Typing &typing) {
            named<QLineEdit>(typing.operatorWindow, QStringLiteral("Name")).setFocus();
        };
        QTest::addRow("in the rundown") << +[](Typing &typing) {
            named(typing.operatorWindow, QStringLiteral("Rundown")).setFocus();
        };
        QTest::addRow("in another window after the menu bar") << +[](Typing &typing) {
            typing.openStage();
            Typing::activate(typing.operatorWindow);
            Typing::press(typing.operatorWindow, Qt::Key_Alt);
            Typing::activate(*typing.windows.stageWindow());
        };
        QTest::addRow("in another window") << +[](Typing &typing) {
            typing.openStage();
            Typing::activate(*typing.windows.stageWindow());
        };
        QTest::addRow("back from another window") << +[](Typing &typing) {
            typing.openStage();
            Typing::activate(*typing.windows.stageWindow());
            Typing::activate(typing.operatorWindow);
        };
        QTest::addRow("in a sheet") << +[](Typing &typing) {
            typing.store.showStartPanel();
            Typing::activate(
                *typing.operatorWindow.findChild<QDialog *>(QStringLiteral("startPanel")));
        };
    }

    void theTextOnTheSlideIsNoLongerEditedOnceTheKeyboardIsElsewhere()
    {
        QFETCH(Leave, leave);
        Typing typing(QStringLiteral("Operator"));
        auto *editor = typing.operatorWindow.findChild<CanvasTextLayerEditor *>();
        typing.begin(*editor);
        typing.type({Qt::Key_1});
        leave(typing);
        QVERIFY(!editor->isVisible());
        QCOMPARE(typing.textIn(*editor), QStringLiteral("1"));
        // No key goes into the text any more.
        Typing::press(*QApplication::activeWindow(), Qt::Key_2);
        QCOMPARE(typing.textIn(*editor), QStringLiteral("1"));
    }

    void theMenuBarGivesTheTextOnTheSlideTheKeyboardBack()
    {
        Typing typing(QStringLiteral("Operator"));
        auto *editor = typing.operatorWindow.findChild<CanvasTextLayerEditor *>();
        typing.begin(*editor);
        Typing::press(typing.operatorWindow, Qt::Key_Alt);
        Typing::press(typing.operatorWindow, Qt::Key_B);
        QCOMPARE(typing.store.outputMode(), OutputMode::live);
        Typing::press(typing.operatorWindow, Qt::Key_Escape);
        QVERIFY(editor->hasFocus());
        typing.type({Qt::Key_1});
        QCOMPARE(typing.textIn(*editor), QStringLiteral("1"));
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

QUENARA_GUI_TEST(TestTextControls)

} // namespace tst_text_controls

#include "tst_text_controls.moc"
