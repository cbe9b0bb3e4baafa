#include "ColorWell.h"
#include "GuiTestSupport.h"
#include "OutputModeBadge.h"
#include "Picker.h"
#include "ProgramWindows.h"
#include "RundownList.h"
#include "RundownModel.h"
#include "SlideCanvas.h"
#include "SlideView.h"
#include "StartPanelView.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRandomGenerator>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_random_windows {

namespace {

constexpr int actionCount = 500;

/// The program with an operator who does anything that can be done, and what was done last.
struct Program : ProgramWindows
{
    QRandomGenerator random;
    QString lastAction;

    explicit Program(quint32 seed) : random(seed)
    {
        questions.answer = LeaveAnswer::proceed;
        openDisplay();
        openStage();
    }

    template<class List>
    auto anyOf(const List &list)
    {
        return list.at(random.bounded(int(list.size())));
    }

    RundownList &list() const { return *operatorWindow.findChild<RundownList *>(); }
    QString anyText() { return u"text %1"_s.arg(random.bounded(100)); }

    /// The open sheet of that kind, which there has to be.
    template<class Sheet>
    Sheet &sheet(const Caller &caller = Caller::current()) const
    {
        for (auto *sheet : operatorWindow.findChildren<Sheet *>()) {
            if (sheet->isVisible())
                return *sheet;
        }
        fail(u"the sheet is not open"_s, caller);
    }

    /// A row in sight; invalid if there is none.
    QModelIndex anyRow()
    {
        const QModelIndexList rows = list().rowsIn(list().viewport()->rect());
        return rows.isEmpty() ? QModelIndex() : anyOf(rows);
    }

    void clickRow(const QModelIndex &row) const
    {
        if (row.isValid()) {
            QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier,
                              list().visualRect(row).center());
        }
    }

    void turnToOperator() { activate(operatorWindow); }

    /// Types a title into the field in the rundown, if there is one.
    void typeSectionTitle()
    {
        auto *field = list().findChild<QLineEdit *>();
        if (!field)
            return;
        QTest::keyClicks(field, anyText());
        QTest::keyClick(field, random.bounded(4) == 0 ? Qt::Key_Escape : Qt::Key_Return);
        QTRY_VERIFY(!list().findChild<QLineEdit *>());
    }
};

struct Action
{
    const char *name;
    int weight;
    void (*perform)(Program &);
};

void pressTransportKey(Program &program)
{
    QList<QWidget *> windows{&program.operatorWindow};
    for (OutputWindow *output : {program.windows.displayWindow(), program.windows.stageWindow()}) {
        if (output)
            windows.append(output);
    }
    QWidget &window = *program.anyOf(windows);
    const QList<Qt::Key> keys{Qt::Key_Space, Qt::Key_Return,   Qt::Key_Enter,  Qt::Key_Right,
                              Qt::Key_Left,  Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Down,
                              Qt::Key_Up,    Qt::Key_B,        Qt::Key_L};
    ProgramWindows::activate(window);
    ProgramWindows::press(window, program.anyOf(keys));
}

/// Presses any button that opens no dialog of its own.
void pressButton(Program &program)
{
    QList<QAbstractButton *> buttons = program.operatorWindow.findChildren<QAbstractButton *>();
    buttons.removeIf([](const QAbstractButton *button) {
        const QStringList openers{u"New"_s, u"Paste song lyrics"_s};
        return !button->isVisible() || !button->isEnabled()
            || qobject_cast<const ColorWell *>(button) || openers.contains(nameOf(*button));
    });
    QAbstractButton *button = program.anyOf(buttons);
    program.lastAction += u' ' + nameOf(*button);
    QTest::mouseClick(button, Qt::LeftButton);
}

void clickARow(Program &program)
{
    program.clickRow(program.anyRow());
}

void chooseByKeyboard(QMenu &menu, QAction &choice)
{
    menu.setActiveAction(&choice);
    QTest::keyClick(&menu, Qt::Key_Return);
}

QAction &anyChoice(Program &program, const QMenu &menu)
{
    QList<QAction *> choices = menu.actions();
    choices.removeIf([](const QAction *item) { return item->isSeparator() || !item->isEnabled(); });
    return *program.anyOf(choices);
}

void useARowsMenu(Program &program)
{
    const QModelIndex row = program.anyRow();
    if (!row.isValid())
        return;
    const QPoint place = program.list().visualRect(row).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                            program.list().viewport()->mapToGlobal(place));
    QApplication::sendEvent(program.list().viewport(), &event);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QAction *choice = &anyChoice(program, *menu);
    if (QMenu *types = choice->menu()) {
        chooseByKeyboard(*menu, *choice);
        QTRY_VERIFY(types->isVisible());
        menu = types;
        choice = &anyChoice(program, *menu);
    }
    program.lastAction += u' ' + choice->text();
    chooseByKeyboard(*menu, *choice);
    program.turnToOperator(); // which is active again on a desktop once the menu is closed
    program.typeSectionTitle();
}

void renameASection(Program &program)
{
    program.turnToOperator();
    program.clickRow(program.anyRow());
    QTest::keyClick(&program.list(), Qt::Key_F2);
    program.typeSectionTitle();
}

void renameTheProject(Program &program)
{
    auto &name = named<QLineEdit>(program.operatorWindow, u"Project Name"_s);
    name.setFocus();
    name.selectAll();
    QTest::keyClicks(&name, program.anyText());
    QTest::keyClick(&name, Qt::Key_Return);
}

void undoOrRedo(Program &program)
{
    program.turnToOperator();
    const Qt::KeyboardModifiers redo = Qt::ControlModifier | Qt::ShiftModifier;
    ProgramWindows::press(program.operatorWindow, Qt::Key_Z,
                          program.random.bounded(3) == 0 ? redo : Qt::ControlModifier);
}

void chooseFromAList(Program &program)
{
    QList<Picker *> pickers = program.operatorWindow.findChildren<Picker *>();
    pickers.removeIf(
        [](const Picker *picker) { return !picker->isVisible() || !picker->isEnabled(); });
    if (pickers.isEmpty())
        return;
    Picker *picker = program.anyOf(pickers);
    program.lastAction += u' ' + picker->accessibleName();
    picker->setFocus();
    QTest::keyClick(picker, Qt::Key_Down, Qt::AltModifier);
    for (int i = program.random.bounded(4); i > 0; --i)
        QTest::keyClick(picker->view(), Qt::Key_Down);
    QTest::keyClick(picker->view(), Qt::Key_Return);
}

void useTheCanvas(Program &program)
{
    auto *canvas = program.operatorWindow.findChild<SlideCanvas *>();
    if (canvas->slideRect().isEmpty())
        return; // there is no slide
    const auto anyPoint = [&] {
        const QRect area = canvas->slideRect().toAlignedRect();
        return QPoint(area.left() + program.random.bounded(area.width()),
                      area.top() + program.random.bounded(area.height()));
    };
    QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, anyPoint());
    if (program.random.bounded(2) == 0)
        QTest::mouseMove(canvas, anyPoint());
    QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, anyPoint());
}

void useALayersMenu(Program &program)
{
    auto *canvas = program.operatorWindow.findChild<SlideCanvas *>();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(canvas, &event);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu)
        return; // there is no layer
    QAction &choice = anyChoice(program, *menu);
    program.lastAction += u' ' + choice.text();
    chooseByKeyboard(*menu, choice);
    program.turnToOperator();
}

void importASong(Program &program)
{
    press(program.operatorWindow, u"Paste song lyrics"_s);
    auto &sheet = program.sheet<SongImportSheet>();
    QTest::keyClicks(sheet.findChild<QLineEdit *>(), program.anyText());
    QTest::keyClicks(sheet.findChild<QPlainTextEdit *>(), program.anyText());
    press(sheet, program.random.bounded(4) == 0 ? u"Cancel"_s : u"Import Song"_s);
}

void startAnew(Program &program)
{
    const QStringList choices{u"New Blank Project"_s, u"New Sunday Service"_s,
                              u"Open Demo Service"_s};
    press(program.operatorWindow, u"New"_s);
    press(program.sheet<StartPanelView>(), program.anyOf(choices));
}

constexpr auto actions = std::to_array<Action>({
    {"a transport key", 30, pressTransportKey},
    {"a button", 30, pressButton},
    {"a row", 12, clickARow},
    {"a row's menu", 8, useARowsMenu},
    {"a section's title", 3, renameASection},
    {"the project's name", 2, renameTheProject},
    {"undo or redo", 8, undoOrRedo},
    {"a list", 4, chooseFromAList},
    {"the canvas", 6, useTheCanvas},
    {"a layer's menu", 4, useALayersMenu},
    {"a song", 3, importASong},
    {"another document", 1, startAnew},
});

void act(Program &program)
{
    int total = 0;
    for (const Action &action : actions)
        total += action.weight;
    int drawn = program.random.bounded(total);
    for (const Action &action : actions) {
        drawn -= action.weight;
        if (drawn < 0) {
            program.lastAction = QLatin1String(action.name);
            return action.perform(program);
        }
    }
}

// What the windows must show, said once more as plainly as it can be: on the list of the slides,
// looked through from the front each time.

struct Place
{
    ServiceItem item;
    Slide slide;
};

QList<Place> showOf(const WorkspaceStore &store)
{
    QList<Place> show;
    for (const ServiceItem &item : store.project().serviceItems) {
        for (const Slide &slide : item.slides)
            show.append({item, slide});
    }
    return show;
}

qsizetype indexIn(const QList<Place> &show, const std::optional<QString> &id)
{
    qsizetype index = 0;
    while (index < show.size() && show.at(index).slide.id != id)
        ++index;
    return index == show.size() ? -1 : index;
}

std::optional<Slide> slideIn(const QList<Place> &show, qsizetype index)
{
    return index < 0 || index >= show.size() ? std::nullopt : std::optional(show.at(index).slide);
}

QString wordsOf(const std::optional<Slide> &slide, const QString &without)
{
    if (!slide)
        return without;
    return slide->body.isEmpty() ? slide->title : slide->body;
}

QStringList stageTextsFor(const WorkspaceStore &store)
{
    const QList<Place> show = showOf(store);
    const qsizetype live = indexIn(show, store.liveSlideID());
    QString words = wordsOf(slideIn(show, live), u"No live slide"_s);
    if (store.outputMode() == OutputMode::blackout)
        words = u"BLACKOUT"_s;
    if (store.outputMode() == OutputMode::logo)
        words = u"LOGO / HOLDING"_s;
    const auto queued = slideIn(show, indexIn(show, store.queuedSlideID()));
    return {live < 0 ? u"No Section"_s : show.at(live).item.title,
            u"%1 / %2"_s.arg(live + 1).arg(show.size()), words, queued ? queued->title : QString(),
            wordsOf(slideIn(show, live + 1), u"No next slide"_s)};
}

QStringList stageTextsOn(const QWidget &stage)
{
    QStringList texts;
    for (const char *name :
         {"currentSection", "slideCount", "currentText", "queuedTitle", "nextText"})
        texts.append(stage.findChild<QLabel *>(QLatin1String(name))->text());
    return texts;
}

/// A row as one text: its number if it is a slide's, its title and its marks.
QString rowText(int number, const QString &title, bool isSelected, bool isQueued, bool isLive)
{
    return QString::number(number) + u' ' + title + (isSelected ? u" selected"_s : QString())
        + (isQueued ? u" queued"_s : QString()) + (isLive ? u" live"_s : QString());
}

QStringList rowsFor(const WorkspaceStore &store)
{
    QStringList rows;
    for (const ServiceItem &item : store.project().serviceItems) {
        rows.append(rowText(0, item.title, item.id == store.selectedServiceItemID(), false, false));
        for (int i = 0; i < int(item.slides.size()); ++i) {
            const Slide &slide = item.slides.at(i);
            rows.append(rowText(i + 1, slide.title.isEmpty() ? u"Untitled"_s : slide.title,
                                slide.id == store.selectedSlideID(),
                                slide.id == store.queuedSlideID(),
                                slide.id == store.liveSlideID()));
        }
    }
    return rows;
}

QStringList rowsOn(const RundownList &list)
{
    QStringList rows;
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        const QModelIndex index = list.model()->index(row, 0);
        rows.append(rowText(index.data(RundownModel::numberRole).toInt(),
                            index.data(Qt::DisplayRole).toString(),
                            index.data(RundownModel::isSelectedRole).toBool(),
                            index.data(RundownModel::isQueuedRole).toBool(),
                            index.data(RundownModel::isLiveRole).toBool()));
    }
    return rows;
}

/// The titles of all menu items, those that are disabled in brackets.
QStringList menuTitles(const QWidget &window)
{
    QStringList titles;
    for (const QMenu *menu : window.findChild<QMenuBar *>()->findChildren<QMenu *>()) {
        for (const QAction *item : menu->actions())
            titles.append(item->isEnabled() ? item->text() : u'(' + item->text() + u')');
    }
    return titles;
}

bool isBadged(const QWidget &window, OutputMode mode)
{
    int badgeCount = 0;
    for (const OutputModeBadge *badge : window.findChildren<OutputModeBadge *>())
        badgeCount += badge->accessibleName() == title(mode).toUpper() ? 1 : 0;
    return badgeCount == 1;
}

QString titleBy(const std::optional<Slide> &slide)
{
    return slide ? slide->title : u"None"_s;
}

void compareOperator(const Program &program)
{
    const WorkspaceStore &store = program.store;
    const QWidget &window = program.operatorWindow;
    QVERIFY(isBadged(window, store.outputMode()));
    QCOMPARE(rowsOn(program.list()), rowsFor(store));

    const QStringList titles = menuTitles(window);
    const auto has = [&](bool condition, const QString &one, const QString &other) {
        return titles.contains(condition ? one : other)
            && !titles.contains(condition ? other : one);
    };
    QVERIFY(has(store.canUndo(), u"Undo"_s, u"(Undo)"_s));
    QVERIFY(has(store.canRedo(), u"Redo"_s, u"(Redo)"_s));
    QVERIFY(has(program.windows.isDisplayWindowOpen(), u"Close Display Window"_s,
                u"Open Display Window"_s));
    QVERIFY(has(program.windows.isStageWindowOpen(), u"Close Monitor Window"_s,
                u"Open Monitor Window"_s));

    const QList<Place> show = showOf(store);
    const auto queued = slideIn(show, indexIn(show, store.queuedSlideID()));
    const auto live = slideIn(show, indexIn(show, store.liveSlideID()));
    QCOMPARE(named<SlideView>(window, u"Queued slide"_s).slide(), queued);
    QCOMPARE(named<SlideView>(window, u"Live slide"_s).slide(), live);
    QStringList previewTitles;
    for (const QLabel *label : window.findChildren<QLabel *>()) {
        if (label->property("role") == u"previewTitle"_s)
            previewTitles.append(label->text());
    }
    QCOMPARE(previewTitles, (QStringList{titleBy(queued), titleBy(live)}));
}

void compareStage(const Program &program)
{
    const OutputWindow *stage = program.windows.stageWindow();
    QCOMPARE(stage != nullptr, program.windows.isStageWindowOpen());
    if (!stage)
        return;
    const QList<Place> show = showOf(program.store);
    const qsizetype live = indexIn(show, program.store.liveSlideID());
    QVERIFY(isBadged(*stage, program.store.outputMode()));
    QCOMPARE(stageTextsOn(*stage), stageTextsFor(program.store));
    QCOMPARE(named<SlideView>(*stage, u"Current slide"_s).slide(), slideIn(show, live));
    QCOMPARE(named<SlideView>(*stage, u"Next slide"_s).slide(), slideIn(show, live + 1));
}

} // namespace

/// Whatever the operator does, all windows show the same state.
class TestRandomWindows : public GuiTest
{
    Q_OBJECT

private slots:
    void afterEveryActionAllWindowsAgreeWithTheStore_data()
    {
        QTest::addColumn<quint32>("seed");
        QTest::newRow("seed 1") << quint32(1);
        QTest::newRow("seed 2") << quint32(2);
    }

    void afterEveryActionAllWindowsAgreeWithTheStore()
    {
        QFETCH(quint32, seed);
        Program program(seed);
        for (int i = 0; i < actionCount; ++i) {
            act(program);
            QVERIFY2(!QApplication::activePopupWidget() && !QApplication::activeModalWidget(),
                     qPrintable(program.lastAction));
            compareOperator(program);
            compareStage(program);
            if (QTest::currentTestFailed()) {
                qInfo().noquote() << "action" << i << program.lastAction;
                return;
            }
        }
    }
};

QUENARA_GUI_TEST(TestRandomWindows)

} // namespace tst_random_windows

#include "tst_random_windows.moc"
