#include "GuiTestSupport.h"
#include "ProgramWindows.h"
#include "RundownList.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QColorDialog>
#include <QComboBox>
#include <QMetaEnum>

#include <algorithm>
#include <memory>

using namespace quenara;
using namespace quenara::test;

namespace {

/// The program in one of the states that it can be met in.
struct Program : ProgramWindows
{
    using Arrange = void (*)(Program &program);

    explicit Program(Arrange arrange)
    {
        store.nextLive();
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
};

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

constexpr State states[] = {
    {"a text layer is selected", selectText},      {"a shape is selected", selectShape},
    {"there is no slide", selectNoSlide},          {"the screen is black", blackOut},
    {"both output windows are open", openOutputs}, {"the start panel is open", openStartPanel},
    {"the song import is open", openSongImport},   {"a section is renamed", renameSection},
    {"the settings are open", openSettings},       {"an alert is open", openAlert},
    {"the program tells about itself", openAbout},
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

/// Whether it comes and goes by itself: the time, and the buttons over the sections in sight, since
/// the list is scrolled so that the pointer, which an action has not, stays on what was clicked.
bool isFleeting(QAccessibleInterface &thing)
{
    return thing.text(QAccessible::Description) == QStringLiteral("Time")
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

bool isInSight(const QAccessibleInterface &thing)
{
    const auto *widget = qobject_cast<const QWidget *>(thing.object());
    return !thing.state().offscreen
        && (!widget || widget->visibleRegion().contains(widget->rect().center()));
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
    void whatTakesTheKeyboardHasANameAndAProperRole_data() { addRowsForStates(); }

    void whatTakesTheKeyboardHasANameAndAProperRole()
    {
        QFETCH(Program::Arrange, arrange);
        const Program program(arrange);
        for (QAccessibleInterface *thing : allThings()) {
            const bool isControl = thing->state().focusable || !clickActionOf(*thing).isEmpty();
            if (!isControl)
                continue;
            const QByteArray told = wordsOf(*thing).toUtf8();
            QVERIFY2(!thing->text(QAccessible::Name).isEmpty()
                         || !thing->relations(QAccessible::Label).isEmpty(),
                     told);
            QVERIFY2(thing->role() != QAccessible::Client && thing->role() != QAccessible::NoRole,
                     told);
        }
    }

    void everyButtonHasAToolTip_data() { addRowsForStates(); }

    void everyButtonHasAToolTip()
    {
        QFETCH(Program::Arrange, arrange);
        const Program program(arrange);
        for (QAccessibleInterface *thing : allThings()) {
            const auto *button = qobject_cast<const QAbstractButton *>(thing->object());
            // The rows of the list of layers say all that there is to say of them.
            if (button && thing->role() != QAccessible::ListItem)
                QVERIFY2(!button->toolTip().isEmpty(), wordsOf(*thing).toUtf8());
        }
    }

    void anActionDoesWhatAClickDoes_data() { addRowsForStates(); }

    void anActionDoesWhatAClickDoes()
    {
        QFETCH(Program::Arrange, arrange);
        auto clicked = std::make_unique<Program>(arrange);
        const QString before = toldOf(*clicked);
        const QList<qsizetype> places = placesToCompare();
        clicked.reset();
        // A program is used again as long as nothing has come of what was done there.
        const auto toldAfter = [&](std::unique_ptr<Program> &program, qsizetype place,
                                   void (*act)(QAccessibleInterface &)) {
            if (!program)
                program = std::make_unique<Program>(arrange);
            act(*allThings().at(place));
            Program::settle();
            QString told = toldOf(*program);
            if (told != before)
                program.reset();
            return told;
        };
        std::unique_ptr<Program> acted;
        QStringList afterClicks;
        for (const qsizetype place : places)
            afterClicks.append(toldAfter(clicked, place, click));
        clicked.reset();
        for (qsizetype i = 0; i < places.size(); ++i) {
            const QString told = toldAfter(acted, places.at(i), doClickAction);
            QVERIFY2(told == afterClicks.at(i),
                     qPrintable(QStringLiteral("%1: an action leaves\n%2\nwhere a click leaves\n%3")
                                    .arg(m_compared.at(m_compared.size() - places.size() + i), told,
                                         afterClicks.at(i))));
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
            if (clickActionOf(thing).isEmpty() || isOfMenu(thing) || !isInSight(thing)
                || m_compared.contains(compared))
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
