#include "AccessibleThings.h"
#include "GuiTestSupport.h"
#include "ProgramStates.h"
#include "SlideCanvas.h"
#include "Slider.h"
#include "Typing.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QRegularExpression>

#include <algorithm>

using namespace quenara;
using namespace quenara::test;

namespace tst_accessible_tree {

namespace {

/// Whether it comes and goes by itself: the time, when a file was changed, how far an area is
/// scrolled, and the buttons over the sections in sight, since the list is scrolled so that the
/// pointer, which an action has not, stays on what was clicked.
bool isFleeting(QAccessibleInterface &thing)
{
    static const QRegularExpression date(QStringLiteral(R"(\d:\d\d:\d\d$)"));
    const bool isDate = thing.role() == QAccessible::TreeItem
        && date.match(thing.text(QAccessible::Name)).hasMatch();
    return isDate || thing.role() == QAccessible::ScrollBar
        || thing.text(QAccessible::Description) == QStringLiteral("Time")
        || thing.text(QAccessible::Name).startsWith(QStringLiteral("Move section"));
}

/// What a reader finds in the whole program.
QString toldOf(const Program &program)
{
    QStringList told{QStringLiteral("live %1, queued %2, changed %3")
                         .arg(program.live())
                         .arg(program.queued())
                         .arg(program.store.hasUnsavedChanges())};
    for (QAccessibleInterface *thing : allThings()) {
        if (!isFleeting(*thing))
            told.append(wordsOf(*thing));
    }
    return told.join(QLatin1Char('\n'));
}

/// The lines of the one text that the other has not.
QString linesOfOne(const QString &one, const QString &other)
{
    QStringList lines = one.split(QLatin1Char('\n'));
    const QStringList others = other.split(QLatin1Char('\n'));
    lines.removeIf([&](const QString &line) { return others.contains(line); });
    return lines.join(QStringLiteral("; "));
}

/// Whether it is a part of Qt's own dialogs whose action does something else than a click: what
/// picks a colour off the screen takes the pointer, which nobody has here, and an item in a list of
/// files is selected and not opened.
bool isLeftToQt(const QAccessibleInterface &thing)
{
    const QAccessibleInterface *around = thing.parent();
    const bool isFile = around && around->object() && around->object()->isWidgetType()
        && qobject_cast<QAbstractItemView *>(around->object())
        && qobject_cast<QFileDialog *>(static_cast<QWidget *>(around->object())->window());
    return isFile || thing.text(QAccessible::Name) == QStringLiteral("Pick Screen Color");
}

void doClickAction(QAccessibleInterface &thing)
{
    thing.actionInterface()->doAction(clickActionOf(thing));
}

bool isBehindTheDialog(QAccessibleInterface &thing)
{
    const QWidget *dialog = QApplication::activeModalWidget();
    return dialog && dialog != &windowOf(thing);
}

/// What it is called by: its label or, without one, its name.
QString titleOf(QAccessibleInterface &thing)
{
    const auto labels = thing.relations(QAccessible::Label);
    return (labels.isEmpty() ? &thing : labels.constFirst().first)->text(QAccessible::Name);
}

bool canBeWritten(QAccessibleInterface &thing)
{
    return thing.editableTextInterface() && thing.state().editable && !thing.state().disabled;
}

/// A text that is not there yet and that every field takes.
QString newTextFor(QAccessibleInterface &thing)
{
    const bool isColor = thing.text(QAccessible::Value).startsWith(QLatin1Char('#'));
    return isColor ? QStringLiteral("#336699") : QStringLiteral("77");
}

void write(QAccessibleInterface &thing)
{
    thing.editableTextInterface()->replaceText(0, thing.textInterface()->characterCount(),
                                               newTextFor(thing));
}

void typeInto(QAccessibleInterface &thing)
{
    QWindow *window = windowOf(thing).windowHandle();
    ProgramWindows::activate(windowOf(thing));
    thing.actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
    for (const QChar character : newTextFor(thing))
        QTest::keyClick(window, character.toLatin1());
}

/// Leaves what is typed, if anything is.
void leaveTyping()
{
    if (takesText(QApplication::focusWidget()))
        QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_Tab);
}

/// All the ways in which an assistive technology changes what a thing holds, but for scrolling.
QList<std::function<void()>> changesOf(QAccessibleInterface &thing)
{
    QList<std::function<void()>> changes;
    if (canBeWritten(thing)) {
        QAccessibleEditableTextInterface *text = thing.editableTextInterface();
        changes << [&thing] { write(thing); } << [text] { text->deleteText(0, 1); } << [text] {
            text->insertText(0, QStringLiteral("7"));
        } << [&thing] { thing.setText(QAccessible::Value, newTextFor(thing)); };
    }
    QAccessibleValueInterface *value = thing.valueInterface();
    if (value && thing.role() != QAccessible::ScrollBar) {
        for (const QVariant &end : {value->minimumValue(), value->maximumValue()})
            changes << [value, end] { value->setCurrentValue(end); };
    }
    if (QAccessibleTableInterface *table = thing.tableInterface()) {
        for (int row = 0; row < table->rowCount(); ++row)
            changes << [table, row] { table->selectRow(row); };
    }
    return changes;
}

QAccessibleInterface &canvasOf(const Program &program)
{
    return *QAccessible::queryAccessibleInterface(
        program.operatorWindow.findChild<SlideCanvas *>());
}

constexpr auto itemsThatAct =
    std::to_array<Command>({Command::goLive, Command::nextLive, Command::previousLive,
                            Command::queueNext, Command::toggleBlackout, Command::toggleLogo,
                            Command::toggleStageWindow, Command::newBlankProject});

/// Chooses the item of the menu bar as an assistive technology does.
void pressItem(Program &program, Command command)
{
    QAction *action = program.commands.action(command);
    for (QMenu *menu : program.operatorWindow.menuBar()->findChildren<QMenu *>()) {
        const qsizetype place = menu->actions().indexOf(action);
        if (place < 0)
            continue;
        QAccessible::queryAccessibleInterface(menu)
            ->child(int(place))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::pressAction());
    }
    Program::settle();
}

void addRowsForStates()
{
    QTest::addColumn<Program::Arrange>("arrange");
    for (const State &state : ownStates)
        QTest::newRow(state.name) << state.arrange;
    for (const State &state : opened)
        QTest::newRow(state.name) << state.arrange;
}

void addRowsForDialogs()
{
    QTest::addColumn<Program::Arrange>("arrange");
    for (const State &state : {State{"the start panel", openStartPanel},
                               {"the recovery", openRecovery},
                               {"the song import", openSongImport},
                               {"the search for a slide", openGoToSlide},
                               {"an alert", openAlert},
                               {"a colour dialog", openColorDialog},
                               {"a file panel", openSavePanel},
                               {"a question", askBeforeLeaving}})
        QTest::newRow(state.name) << state.arrange;
}

void addRowsForPopups()
{
    QTest::addColumn<Program::Arrange>("open");
    QTest::newRow("a menu of the menu bar") << Program::Arrange(openMenu);
    QTest::newRow("the menu of a section") << Program::Arrange(openSectionMenu);
    QTest::newRow("the list of a picker") << Program::Arrange(openList);
}

} // namespace

class TestAccessibleTree : public GuiTest
{
    Q_OBJECT

private slots:
    void theLayersOnTheCanvasAreItsItemsFromTheTopDown()
    {
        const Program program(selectText);
        QAccessibleInterface &canvas = canvasOf(program);
        QStringList told;
        for (int i = 0; i < canvas.childCount(); ++i) {
            if (canvas.child(i)->role() == QAccessible::ListItem)
                told.append(canvas.child(i)->text(QAccessible::Name));
            QCOMPARE(canvas.indexOfChild(canvas.child(i)), i);
        }
        QList<SlideElement> layers = program.slide().design.elements;
        std::stable_sort(layers.begin(), layers.end(),
                         [](const auto &a, const auto &b) { return a.zIndex > b.zIndex; });
        QStringList expected;
        for (const SlideElement &layer : std::as_const(layers))
            expected.append(layer.name);
        QCOMPARE(told, expected);
    }

    void aLayerOnTheCanvasStandsWhereItIsSeenAndSaysWhatIsSelected()
    {
        Program program(selectText);
        QAccessibleInterface &layer = *canvasOf(program).child(0);
        const QRect seen = layer.rect();
        QVERIFY(layer.state().selected);
        QVERIFY(!canvasOf(program).child(1)->state().selected);
        program.store.updateSelectedElement(
            [](SlideElement &element) { element.frame = element.frame.offsetBy(100, 0); });
        QVERIFY(layer.rect().left() > seen.left());
        QCOMPARE(layer.rect().top(), seen.top());
        program.store.selectElement(std::nullopt);
        QVERIFY(!layer.state().selected);
        program.store.undo();
        program.store.undo();
        QVERIFY(!layer.isValid());
    }

    void theLayerThatTabReachesHasTheFocusAndTellsOfItsMoves()
    {
        Program program(selectText);
        auto *canvas = program.operatorWindow.findChild<SlideCanvas *>();
        canvas->setFocus(Qt::TabFocusReason);
        Program::press(program.operatorWindow, Qt::Key_Tab);
        QAccessibleInterface &layer = *canvasOf(program).child(0);
        QVERIFY(layer.state().focused);
        QCOMPARE(canvasOf(program).focusChild(), &layer);
        const QString place = layer.text(QAccessible::Description);
        Program::press(program.operatorWindow, Qt::Key_Right, Qt::ControlModifier);
        QVERIFY(layer.text(QAccessible::Description) != place);
        Program::press(program.operatorWindow, Qt::Key_Tab);
        QVERIFY(!layer.state().focused);
        QVERIFY(canvasOf(program).child(1)->state().focused);
    }

    void anActionOnWhatLiesBehindAnOpenListOrMenuOnlyClosesThat_data() { addRowsForPopups(); }

    void anActionOnWhatLiesBehindAnOpenListOrMenuOnlyClosesThat()
    {
        QFETCH(Program::Arrange, open);
        Program program(selectText);
        const QString before = toldOf(program);
        const qsizetype count = allThings().size();
        int acted = 0;
        for (qsizetype place = 0; place < count; ++place) {
            QAccessibleInterface *thing = allThings().at(place);
            if (clickActionOf(*thing).isEmpty() || isOfMenu(*thing))
                continue;
            const QByteArray words = wordsOf(*thing).toUtf8();
            open(program);
            QVERIFY(QApplication::activePopupWidget());
            doClickAction(*thing);
            Program::settle();
            QVERIFY2(!QApplication::activePopupWidget(), words);
            QVERIFY2(toldOf(program) == before, words);
            ++acted;
        }
        QVERIFY(acted > 50);
    }

    void anItemOfAClosedMenuOnlyClosesTheListOrMenuThatIsOpen_data()
    {
        QTest::addColumn<Program::Arrange>("open");
        QTest::newRow("the menu of a section") << Program::Arrange(openSectionMenu);
        QTest::newRow("the menu of a layer") << Program::Arrange(openLayerMenu);
        QTest::newRow("the list of a picker") << Program::Arrange(openList);
    }

    void anItemOfAClosedMenuOnlyClosesTheListOrMenuThatIsOpen()
    {
        QFETCH(Program::Arrange, open);
        for (const Command command : itemsThatAct) {
            Program program(selectText);
            open(program);
            const WorkspaceState before = program.store.state();
            pressItem(program, command);
            QVERIFY(!QApplication::activePopupWidget());
            QCOMPARE(program.store.state(), before);
            QVERIFY(!program.windows.isStageWindowOpen());
        }
    }

    void anItemOfAMenuDoesNothingBehindADialog_data() { addRowsForDialogs(); }

    void anItemOfAMenuDoesNothingBehindADialog()
    {
        QFETCH(Program::Arrange, arrange);
        inState(arrange, [](Program &program) {
            QVERIFY(QApplication::activeModalWidget());
            const WorkspaceState before = program.store.state();
            for (const Command command : itemsThatAct)
                pressItem(program, command);
            QCOMPARE(program.store.state(), before);
            QVERIFY(!program.windows.isStageWindowOpen());
            QVERIFY(!program.windows.isDisplayWindowOpen());
        });
    }

    void whatLiesBehindADialogIsNotChanged_data() { addRowsForDialogs(); }

    void whatLiesBehindADialogIsNotChanged()
    {
        QFETCH(Program::Arrange, arrange);
        inState(arrange, [](const Program &program) {
            const QString before = toldOf(program);
            int tried = 0;
            for (QAccessibleInterface *thing : allThings()) {
                if (!isBehindTheDialog(*thing))
                    continue;
                const QByteArray words = wordsOf(*thing).toUtf8();
                for (const auto &change : changesOf(*thing)) {
                    change();
                    Program::settle();
                    QVERIFY2(toldOf(program) == before, words);
                    ++tried;
                }
            }
            QVERIFY2(tried > 20, QByteArray::number(tried));
        });
    }

    void whatLiesBehindAnOpenListOrMenuIsNotChanged_data() { addRowsForPopups(); }

    void whatLiesBehindAnOpenListOrMenuIsNotChanged()
    {
        QFETCH(Program::Arrange, open);
        Program program(selectText);
        const QString before = toldOf(program);
        int tried = 0;
        for (QAccessibleInterface *thing : allThings()) {
            const QByteArray words = wordsOf(*thing).toUtf8();
            for (const auto &change : changesOf(*thing)) {
                open(program);
                QVERIFY(QApplication::activePopupWidget());
                change();
                Program::settle();
                QVERIFY2(!QApplication::activePopupWidget(), words);
                QVERIFY2(toldOf(program) == before, words);
                ++tried;
            }
        }
        QVERIFY2(tried > 20, QByteArray::number(tried));
    }

    void whatIsWrittenIsTakenAsIfItWereTyped_data() { addRowsForStates(); }

    void whatIsWrittenIsTakenAsIfItWereTyped()
    {
        QFETCH(Program::Arrange, arrange);
        QList<qsizetype> places;
        const auto findFields = [&](const Program &) {
            const QList<QAccessibleInterface *> things = allThings();
            for (qsizetype i = 0; i < things.size(); ++i) {
                QAccessibleInterface &thing = *things.at(i);
                const QString name = titleOf(thing);
                if (canBeWritten(thing) && !isBehindTheDialog(thing)
                    && !QApplication::activePopupWidget() && !m_written.contains(name)) {
                    m_written.append(name);
                    places.append(i);
                }
            }
        };
        inState(arrange, findFields);
        for (const qsizetype place : std::as_const(places)) {
            QString name;
            const auto toldAfter = [&](void (*enter)(QAccessibleInterface &)) {
                QString told;
                inState(arrange, [&](const Program &program) {
                    QAccessibleInterface &field = *allThings().at(place);
                    name = wordsOf(field);
                    const QString before = toldOf(program);
                    enter(field);
                    leaveTyping();
                    Program::settle();
                    told = toldOf(program);
                    QVERIFY2(told != before, qPrintable(name));
                });
                return told;
            };
            const QString typed = toldAfter(typeInto);
            const QString written = toldAfter(write);
            QVERIFY2(written == typed,
                     qPrintable(name + linesOfOne(written, typed) + QStringLiteral(" and not ")
                                + linesOfOne(typed, written)));
        }
    }

    void allFieldsOfTheProgramWereWritten()
    {
        for (const char *name : {"Project Name", "Title", "Name", "X", "Song title", "Lyrics",
                                 "Section Title", "HTML:", "Hue:", "File name:"}) {
            QVERIFY2(m_written.contains(QString::fromLatin1(name)),
                     qPrintable(m_written.join(QLatin1Char('\n'))));
        }
    }

    void whatIsWrittenIntoAFieldOfTheOperatorsWindowIsOneStep()
    {
        int written = 0;
        for (int field = 0;; ++field) {
            Program program(selectText);
            QList<QAccessibleInterface *> fields = allThings();
            fields.removeIf([](QAccessibleInterface *thing) { return !canBeWritten(*thing); });
            if (field >= fields.size())
                break;
            const ZelvoProject before = program.store.project();
            write(*fields.at(field));
            const QByteArray words = wordsOf(*fields.at(field)).toUtf8();
            QVERIFY2(program.store.project() != before, words);
            program.store.undo();
            QVERIFY2(program.store.project() == before, words);
            ++written;
        }
        QCOMPARE(written, 7); // the project's name, the slide's, the layer's, its frame
    }

    void aSliderIsNotSetBehindADialogNorAnOpenList()
    {
        for (const Program::Arrange open : {openList, openSectionMenu, openStartPanel}) {
            Program program(selectText);
            auto *slider = program.operatorWindow.findChild<Slider *>();
            QAccessibleValueInterface *value =
                QAccessible::queryAccessibleInterface(slider)->valueInterface();
            open(program);
            Program::settle();
            const ZelvoProject before = program.store.project();
            value->setCurrentValue(0.5);
            QCOMPARE(program.store.project(), before);
            QVERIFY(!QApplication::activePopupWidget());
            program.store.setStartPanelPresented(false);
            Program::settle();
            value->setCurrentValue(0.5);
            QVERIFY(program.store.project() != before);
        }
    }

    void anItemOfAnOpenMenuClosesTheMenuAndActs()
    {
        Program program(selectText);
        QMenu &menu = program.openMenu(QStringLiteral("Transport"));
        const qsizetype live = program.live();
        const qsizetype place = menu.actions().indexOf(program.commands.action(Command::nextLive));
        QAccessibleInterface *item =
            QAccessible::queryAccessibleInterface(&menu)->child(int(place));
        item->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        Program::settle();
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(program.live(), live + 1);
    }

    void whatTakesTheKeyboardHasANameAndAProperRole_data() { addRowsForStates(); }

    void whatTakesTheKeyboardHasANameAndAProperRole()
    {
        QFETCH(Program::Arrange, arrange);
        inState(arrange, [](const Program &) {
            for (QAccessibleInterface *thing : allThings()) {
                const bool isControl = thing->state().focusable || !clickActionOf(*thing).isEmpty();
                if (!isControl)
                    continue;
                const QByteArray told = wordsOf(*thing).toUtf8();
                QVERIFY2(!thing->text(QAccessible::Name).isEmpty()
                             || !thing->relations(QAccessible::Label).isEmpty(),
                         told);
                QVERIFY2(thing->role() != QAccessible::Client
                             && thing->role() != QAccessible::NoRole,
                         told);
            }
        });
    }

    void everyButtonHasAToolTip_data() { addRowsForStates(); }

    void everyButtonHasAToolTip()
    {
        QFETCH(Program::Arrange, arrange);
        inState(arrange, [](const Program &) {
            for (QAccessibleInterface *thing : allThings()) {
                const auto *button = qobject_cast<const QAbstractButton *>(thing->object());
                // The rows of the list of layers say all that there is to say of them.
                if (button && thing->role() != QAccessible::ListItem)
                    QVERIFY2(!button->toolTip().isEmpty(), wordsOf(*thing).toUtf8());
            }
        });
    }

    void anActionDoesWhatAClickDoes_data() { addRowsForStates(); }

    void anActionDoesWhatAClickDoes()
    {
        QFETCH(Program::Arrange, arrange);
        QString before;
        QList<qsizetype> places;
        inState(arrange, [&](const Program &program) {
            before = toldOf(program);
            places = placesToCompare();
        });
        // A program is used again as long as nothing has come of what was done there.
        const auto toldAfterEach = [&](void (*act)(QAccessibleInterface &)) {
            QStringList told;
            while (told.size() < places.size()) {
                inState(arrange, [&](const Program &program) {
                    do {
                        act(*allThings().at(places.at(told.size())));
                        Program::settle();
                        told.append(toldOf(program));
                    } while (told.constLast() == before && told.size() < places.size());
                });
            }
            return told;
        };
        const QStringList afterClicks = toldAfterEach(click);
        const QStringList afterActions = toldAfterEach(doClickAction);
        for (qsizetype i = 0; i < places.size(); ++i) {
            QVERIFY2(afterActions.at(i) == afterClicks.at(i),
                     qPrintable(QStringLiteral("%1: an action leaves %2 where a click leaves %3")
                                    .arg(m_compared.at(m_compared.size() - places.size() + i),
                                         linesOfOne(afterActions.at(i), afterClicks.at(i)),
                                         linesOfOne(afterClicks.at(i), afterActions.at(i)))));
        }
    }

    void allControlsOfTheProgramWereCompared()
    {
        QStringList missing;
        for (const QAccessible::Role role :
             {QAccessible::Button, QAccessible::CheckBox, QAccessible::RadioButton,
              QAccessible::ComboBox, QAccessible::ListItem}) {
            const QString start = roleName(role) + QStringLiteral(" |");
            const bool isThere =
                std::any_of(m_compared.cbegin(), m_compared.cend(),
                            [&](const QString &compared) { return compared.startsWith(start); });
            if (!isThere)
                missing.append(start);
        }
        QCOMPARE(missing, QStringList());
        constexpr qsizetype leastControls = 100;
        QVERIFY2(m_compared.size() > leastControls, qPrintable(m_compared.join(QLatin1Char('\n'))));
    }

private:
    /// The places in allThings() of what can be clicked and was not compared in another state.
    QList<qsizetype> placesToCompare()
    {
        const QList<QAccessibleInterface *> things = allThings();
        const QWidget *dialog = QApplication::activeModalWidget();
        QList<qsizetype> places;
        for (qsizetype i = 0; i < things.size(); ++i) {
            QAccessibleInterface &thing = *things.at(i);
            const QString compared = wordsOf(thing) + (dialog ? dialog->objectName() : QString());
            if (clickActionOf(thing).isEmpty() || isOfMenu(thing) || isLeftToQt(thing)
                || !isInSight(thing) || m_compared.contains(compared))
                continue;
            m_compared.append(compared);
            places.append(i);
        }
        return places;
    }

    QStringList m_compared; ///< what was said of each before
    QStringList m_written; ///< the fields that were written into
};

QUENARA_GUI_TEST(TestAccessibleTree)

} // namespace tst_accessible_tree

#include "tst_accessible_tree.moc"
