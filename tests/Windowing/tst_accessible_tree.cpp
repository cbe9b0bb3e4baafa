#include "ChangedFileBox.h"
#include "ColorWell.h"
#include "FileDialogRunner.h"
#include "Files.h"
#include "GuiTestSupport.h"
#include "LeaveQuestionBox.h"
#include "ProgramWindows.h"
#include "Recovery.h"
#include "RundownList.h"
#include "SessionJournal.h"
#include "SessionRecorder.h"
#include "SlideCanvas.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QMenu>
#include <QMenuBar>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <utility>

using namespace quenara;
using namespace quenara::test;

namespace {

/// The program amid a service.
struct Program : ProgramWindows
{
    /// Brings the program into one of the states that it can be met in. What asks the operator
    /// something returns only once that is answered.
    using Arrange = void (*)(Program &program);

    Program() { store.nextLive(); }
    explicit Program(Arrange arrange) : Program()
    {
        arrange(*this);
        settle();
    }

    ~Program()
    {
        for (QWidget *popup = QApplication::activePopupWidget(); popup;
             popup = QApplication::activePopupWidget())
            popup->close();
    }

    static void settle()
    {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    std::unique_ptr<SessionRecorder> recorder;
    std::unique_ptr<Recovery> recovery;

    DialogParent dialogParent()
    {
        return [this] { return &operatorWindow; };
    }

    QMenu &openMenu(const QString &title)
    {
        QMenuBar &bar = *operatorWindow.menuBar();
        for (QAction *menu : bar.actions()) {
            if (menu->menu()->title().remove(QLatin1Char('&')) == title)
                QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(menu).center());
        }
        return *qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }
};

bool isReadingFolder(const QWidget &dialog)
{
    const auto *panel = qobject_cast<const QFileDialog *>(&dialog);
    const auto *files = dialog.findChild<QFileSystemModel *>();
    return panel && files && files->rowCount(files->index(panel->directory().path())) == 0;
}

/// Runs \a body in a program that was brought into a state, then answers what is still asked.
void inState(Program::Arrange arrange, const std::function<void(Program &)> &body,
             const Caller &caller = Caller::current())
{
    Program program;
    bool isMet = false;
    bool hasFailed = false;
    const auto meet = [&] {
        if (std::exchange(isMet, true))
            return;
        Program::settle();
        try {
            body(program);
        } catch (const TestFailure &) {
            hasFailed = true; // Qt lets no exception through
        }
    };
    QTimer whileAsked;
    QObject::connect(&whileAsked, &QTimer::timeout, &program.operatorWindow, [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (dialog && dialog->isActiveWindow() && !isReadingFolder(*dialog))
            meet();
        if (dialog && isMet && QApplication::activeModalWidget() == dialog)
            dialog->close();
    });
    whileAsked.start(1);
    arrange(program);
    whileAsked.stop();
    meet();
    if (hasFailed)
        fail(QStringLiteral("see above"), caller);
}

struct State
{
    const char *name;
    Program::Arrange arrange;
};

void selectText(Program &program)
{
    program.store.addTextLayer(SlideElementKind::text);
}

void selectShape(Program &program)
{
    program.store.addShapeLayer();
}

void selectNoSlide(Program &program)
{
    program.store.newBlankProject();
}

void blackOut(Program &program)
{
    program.store.toggleBlackout();
}

void openOutputs(Program &program)
{
    program.openDisplay();
    program.openStage();
}

void openStartPanel(Program &program)
{
    program.store.showStartPanel();
}

/// Leaves the work of a program that has ended, the same at each call.
void openRecovery(Program &program)
{
    static const QTemporaryDir folder;
    Session session;
    session.projectName = QStringLiteral("Sunday");
    session.project = showOf({1});
    QFile file(folder.filePath(QStringLiteral("left.journal")));
    writeFile(file.fileName(), SessionJournal().add(session).join());
    if (file.open(QIODevice::ReadWrite))
        file.setFileTime(QDateTime(QDate(2026, 3, 1), QTime(9, 30)),
                         QFileDevice::FileModificationTime);
    file.close();
    program.recorder = std::make_unique<SessionRecorder>(program.store, folder.path());
    program.recovery = std::make_unique<Recovery>(Recovery::Context{.store = program.store,
                                                                    .outputs = program.outputs,
                                                                    .recorder = *program.recorder,
                                                                    .questions = program.questions},
                                                  folder.path());
    program.operatorWindow.askAbout(*program.recovery);
}

void openSongImport(Program &program)
{
    program.store.setSongImportPresented(true);
}

void renameSection(Program &program)
{
    auto *list = program.operatorWindow.findChild<RundownList *>();
    list->setCurrentIndex(list->model()->index(0, 0));
    QTest::keyClick(list, Qt::Key_F2);
}

void openSettings(Program &program)
{
    program.settings.present();
}

void openAlert(Program &program)
{
    program.store.openProject(QUrl::fromLocalFile(QStringLiteral("/nowhere.quenara")));
}

void openAbout(Program &program)
{
    program.commands.action(Command::about)->trigger();
}

void openMenu(Program &program)
{
    program.openMenu(QStringLiteral("File"));
}

void openSectionMenu(Program &program)
{
    auto *list = program.operatorWindow.findChild<RundownList *>();
    const QPoint section = list->visualRect(list->model()->index(0, 0)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, section, list->mapToGlobal(section));
    QApplication::sendEvent(list->viewport(), &event);
}

void openList(Program &program)
{
    const auto pickers = program.operatorWindow.findChildren<QComboBox *>();
    const auto picker = std::find_if(pickers.begin(), pickers.end(),
                                     [](const QComboBox *box) { return box->isVisible(); });
    (*picker)->showPopup();
}

void openColorDialog(Program &program)
{
    selectShape(program);
    named<ColorWell>(program.operatorWindow, QStringLiteral("Fill")).click();
}

/// A file that lies alone in a folder, the same at each call.
QUrl loneFile()
{
    static const QTemporaryDir folder;
    const QString files = folder.filePath(QStringLiteral("files"));
    QDir(files).removeRecursively();
    QDir().mkdir(files);
    const QString path = files + QStringLiteral("/Sunday.quenara");
    writeFile(path, {});
    return QUrl::fromLocalFile(path);
}

void ask(Program &program, const FilePanel &panel)
{
    // The folders of the dialogs before would be among those to look in.
    QSettings(QSettings::UserScope, QStringLiteral("QtProject")).clear();
    FileDialogRunner runner(program.dialogParent());
    runner.startBeside(loneFile());
    runner.run(panel);
}

void openOpenPanel(Program &program)
{
    ask(program, zelvoProjectOpenPanel());
}

void openSavePanel(Program &program)
{
    ask(program, zelvoProjectSavePanel(QStringLiteral("Monday")));
}

void askBeforeLeaving(Program &program)
{
    program.store.addSlide();
    program.questions.meanwhile = [&program] {
        LeaveQuestionBox(program.dialogParent()).ask(program.questions.asked.constLast());
    };
    program.commands.action(Command::newBlankProject)->trigger();
}

void askAboutTheFile(Program &program)
{
    static_cast<void>(
        askAboutChangedFile(program.dialogParent(), QStringLiteral("Sunday.quenara")));
}

constexpr State states[] = {
    {"a text layer is selected", selectText},
    {"a shape is selected", selectShape},
    {"there is no slide", selectNoSlide},
    {"the screen is black", blackOut},
    {"both output windows are open", openOutputs},
    {"left-over work is offered", openRecovery},
    {"the start panel is open", openStartPanel},
    {"the song import is open", openSongImport},
    {"a section is renamed", renameSection},
    {"the settings are open", openSettings},
    {"an alert is open", openAlert},
    {"it is asked about a changed file", askAboutTheFile},
    {"the program tells about itself", openAbout},
    {"a menu is open", openMenu},
    {"the menu of a section is open", openSectionMenu},
    {"the list of a picker is open", openList},
    {"a colour is chosen", openColorDialog},
    {"a project to open is chosen", openOpenPanel},
    {"a file to save in is chosen", openSavePanel},
    {"it is asked what to do with changes", askBeforeLeaving},
};

bool isShown(QAccessibleInterface &thing)
{
    return thing.isValid() && !thing.state().invisible;
}

/// All that a reader finds in the program's windows, from the outside in.
void collect(QAccessibleInterface *thing, QList<QAccessibleInterface *> &found)
{
    if (!thing || !isShown(*thing))
        return;
    found.append(thing);
    for (int i = 0; i < thing->childCount(); ++i)
        collect(thing->child(i), found);
}

QList<QAccessibleInterface *> allThings()
{
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget *window) { return !window->isVisible(); });
    std::sort(windows.begin(), windows.end(), [](const QWidget *a, const QWidget *b) {
        return a->windowTitle() < b->windowTitle();
    });
    QList<QAccessibleInterface *> found;
    for (QWidget *window : windows)
        collect(QAccessible::queryAccessibleInterface(window), found);
    return found;
}

QString roleName(QAccessible::Role role)
{
    return QString::fromUtf8(QMetaEnum::fromType<QAccessible::Role>().valueToKey(role));
}

/// What a reader says of a thing, but for where it is and whether it has the keyboard.
QString wordsOf(QAccessibleInterface &thing)
{
    const QAccessible::State state = thing.state();
    QStringList words{roleName(thing.role()), thing.text(QAccessible::Name),
                      thing.text(QAccessible::Description), thing.text(QAccessible::Value)};
    if (state.checked)
        words.append(QStringLiteral("checked"));
    if (state.selected)
        words.append(QStringLiteral("selected"));
    if (state.disabled)
        words.append(QStringLiteral("disabled"));
    return words.join(QStringLiteral(" | "));
}

/// Whether it comes and goes by itself: the time, when a file was changed, and the buttons over the
/// sections in sight, since the list is scrolled so that the pointer, which an action has not,
/// stays on what was clicked.
bool isFleeting(QAccessibleInterface &thing)
{
    static const QRegularExpression date(QStringLiteral(R"(\d:\d\d:\d\d$)"));
    const bool isDate = thing.role() == QAccessible::TreeItem
        && date.match(thing.text(QAccessible::Name)).hasMatch();
    return isDate || thing.text(QAccessible::Description) == QStringLiteral("Time")
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

QString clickActionOf(QAccessibleInterface &thing)
{
    QAccessibleActionInterface *actions = thing.actionInterface();
    const QStringList names = actions ? actions->actionNames() : QStringList();
    const QString first = names.value(0);
    const bool isClick = first == QAccessibleActionInterface::pressAction()
        || first == QAccessibleActionInterface::toggleAction()
        || first == QAccessibleActionInterface::showMenuAction();
    return isClick ? first : QString();
}

bool isOfMenu(const QAccessibleInterface &thing)
{
    return thing.role() == QAccessible::MenuItem || thing.role() == QAccessible::PopupMenu;
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

/// Clicks as the desktop does: into the window in front at that place of the screen.
void click(QAccessibleInterface &thing)
{
    const QPoint middle = thing.rect().center();
    QAccessibleInterface *around = thing.parent();
    const auto *widget = qobject_cast<const QWidget *>(thing.object());
    while (!widget && around) {
        widget = qobject_cast<const QWidget *>(around->object());
        around = around->parent();
    }
    QWidget *window = widget->window();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      window->mapFromGlobal(middle));
}

/// Whether a click in its middle meets the thing.
bool isInSight(QAccessibleInterface &thing)
{
    const auto *widget = qobject_cast<const QWidget *>(thing.object());
    if (thing.state().offscreen || widget)
        return widget && widget->visibleRegion().contains(widget->rect().center());
    const QPoint middle = thing.rect().center();
    return thing.parent()->childAt(middle.x(), middle.y()) == &thing;
}

QAccessibleInterface &canvasOf(const Program &program)
{
    return *QAccessible::queryAccessibleInterface(
        program.operatorWindow.findChild<SlideCanvas *>());
}

void addRowsForStates()
{
    QTest::addColumn<Program::Arrange>("arrange");
    for (const State &state : states)
        QTest::newRow(state.name) << state.arrange;
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

    void anActionOnWhatLiesBehindAnOpenListOrMenuOnlyClosesThat_data()
    {
        QTest::addColumn<Program::Arrange>("open");
        QTest::newRow("a menu of the menu bar") << Program::Arrange(openMenu);
        QTest::newRow("the menu of a section") << Program::Arrange(openSectionMenu);
        QTest::newRow("the list of a picker") << Program::Arrange(openList);
    }

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
};

QUENARA_GUI_TEST_MAIN(TestAccessibleTree)
#include "tst_accessible_tree.moc"
