#include "AccessibleControls.h"
#include "AccessibleThings.h"
#include "BareKeys.h"
#include "GuiTestSupport.h"
#include "InterfaceStyle.h"
#include "ProgramStates.h"
#include "ZelvoTheme.h"

#include <QAbstractButton>
#include <QPointer>

#include <memory>
#include <utility>

using namespace quenara;
using namespace quenara::test;

namespace tst_opened_things {

namespace {

constexpr QSize largeEnough(1900, 1030); ///< for the inspector not to scroll

/// The program amid a service, with another slide queued than the live one, whose file panels and
/// questions are the real ones. None of them is answered.
struct AskingProgram : Program
{
    QPointer<QWidget> base; ///< the window that has the keyboard before something is opened
    int transported = 0; ///< how often a command with a bare key was done
    int chosen = 0; ///< how often a button was pressed or an item of a picker was chosen
    int triggered = 0; ///< how often an item of a menu was chosen

    explicit AskingProgram(Arrange arrange)
    {
        store.queueNext();
        panels.whileOpen = [this] {
            FileDialogRunner runner(dialogOwner());
            runner.startBeside(loneFile());
            runner.run(panels.asked.constLast());
        };
        questions.meanwhile = [this] {
            LeaveQuestionBox(dialogOwner()).ask(questions.asked.constLast());
        };
        QObject::connect(&commands, &CommandActions::settingsRequested, &settings,
                         &SettingsWindow::present);
        QObject::connect(&commands, &CommandActions::exportRequested, &exports,
                         &ExportWindow::present);
        operatorWindow.resize(largeEnough);
        arrange(*this);
        settle();
        base = QApplication::activeWindow();
        for (const CommandDescription &description : commandDescriptions()) {
            if (hasBareKey(description)) {
                QObject::connect(commands.action(description.command), &QAction::triggered,
                                 &operatorWindow, [this] { ++transported; });
            }
        }
    }

    QString audience() const
    {
        return QStringLiteral("slide %1 live, mode %2")
            .arg(QString::number(live()), rawValue(store.outputMode()));
    }

    /// What the bare keys change.
    QString show() const
    {
        return QStringLiteral("%1, slide %2 queued, slide %3 selected")
            .arg(audience(), QString::number(queued()),
                 QString::number(place(store.selectedSlideID())));
    }

    /// What a press can change of the program, but for what has the keyboard.
    QString state() const
    {
        QStringList shown;
        for (const QWidget *window : QApplication::topLevelWidgets()) {
            if (window->isVisible())
                shown.append(window->objectName());
        }
        shown.sort();
        return show() + shown.join(QLatin1Char(' ')) + store.selectedElementID().value_or(QString())
            + QString::number(store.undoStore().undoStack().size()) + store.project().id;
    }

    /// Whether something has the keyboard that has to be closed or answered.
    bool hasOpened() const
    {
        const QWidget *window = QApplication::activeWindow();
        return QApplication::activePopupWidget()
            || (window && window != base && window != &operatorWindow
                && !qobject_cast<const OutputWindow *>(window));
    }

    /// What was pressed may have closed that window for good.
    bool isBaseShown() const { return base && base->isVisible(); }

    void closeAll() const
    {
        closePopups();
        while (hasOpened()) {
            QApplication::activeWindow()->close();
            settle();
        }
        if (isBaseShown())
            activate(*base);
    }

    /// Counts what comes of the next key.
    void count()
    {
        chosen = 0;
        triggered = 0;
        m_counting = std::make_unique<QObject>();
        for (QWidget *widget : QApplication::allWidgets()) {
            if (const auto *button = qobject_cast<QAbstractButton *>(widget)) {
                QObject::connect(button, &QAbstractButton::clicked, m_counting.get(),
                                 [this] { ++chosen; });
            } else if (const auto *picker = qobject_cast<QComboBox *>(widget)) {
                QObject::connect(picker, &QComboBox::activated, m_counting.get(),
                                 [this] { ++chosen; });
            } else if (const auto *menu = qobject_cast<QMenu *>(widget)) {
                QObject::connect(menu, &QMenu::triggered, m_counting.get(),
                                 [this] { ++triggered; });
            }
        }
    }

    std::unique_ptr<QObject> m_counting; ///< ends the counting before
};

/// The ways in which something may be opened.
enum class Way { press, command, contextMenu };

/// What may have a context menu, in the order in which it was made.
QWidgetList withContextMenus()
{
    QWidgetList found;
    if (const QWidget *window = QApplication::activeWindow())
        found = window->findChildren<QWidget *>();
    found.removeIf([](const QWidget *widget) {
        return !widget->isVisible() || widget->window() != QApplication::activeWindow()
            || widget->contextMenuPolicy() == Qt::NoContextMenu;
    });
    return found;
}

QList<QAction *> itemsOf(const QMenu &menu)
{
    QList<QAction *> items;
    for (QAction *item : menu.actions()) {
        if (item->menu()) {
            items += itemsOf(*item->menu());
        } else {
            items.append(item);
        }
    }
    return items;
}

QList<QAction *> menuItems(const Program &program)
{
    QList<QAction *> items;
    for (const QAction *menu : program.operatorWindow.menuBar()->actions())
        items += itemsOf(*menu->menu());
    return items;
}

/// Something that may be opened, by its place among all that are opened in that way.
struct Opener
{
    Program::Arrange arrange;
    Way way;
    qsizetype place;

    void open(const AskingProgram &program) const
    {
        switch (way) {
        case Way::press:
            click(*allThings().at(place));
            break;
        case Way::command:
            menuItems(program).at(place)->trigger();
            break;
        case Way::contextMenu: {
            QWidget *widget = withContextMenus().at(place);
            const QPoint middle = widget->rect().center();
            QContextMenuEvent event(QContextMenuEvent::Mouse, middle, widget->mapToGlobal(middle));
            QApplication::sendEvent(widget, &event);
            break;
        }
        }
    }
};

/// All that a state offers to be pressed, done or asked for a menu, with its name.
QList<std::pair<QString, Opener>> offeredIn(Program::Arrange arrange)
{
    QList<std::pair<QString, Opener>> offered;
    const AskingProgram program(arrange);
    const QList<QAccessibleInterface *> things = allThings();
    for (qsizetype i = 0; i < things.size(); ++i) {
        QAccessibleInterface &thing = *things.at(i);
        const bool isOfMenuBar = isOfMenu(thing) && thing.parent()->role() == QAccessible::MenuBar;
        if (!clickActionOf(thing).isEmpty()
            && (isOfMenuBar || (!isOfMenu(thing) && isInSight(thing)))) {
            offered.append(
                {QStringLiteral("a click on ") + wordsOf(thing), {arrange, Way::press, i}});
        }
    }
    const QList<QAction *> items = menuItems(program);
    for (qsizetype i = 0; i < items.size(); ++i) {
        if (items.at(i)->isEnabled() && !items.at(i)->isSeparator()) {
            offered.append({QStringLiteral("the menu item ") + items.at(i)->text(),
                            {arrange, Way::command, i}});
        }
    }
    const QWidgetList widgets = withContextMenus();
    for (qsizetype i = 0; i < widgets.size(); ++i) {
        const QWidget *widget = widgets.at(i);
        const QString name =
            widget->accessibleName() + QLatin1Char(' ') + widget->parentWidget()->accessibleName();
        offered.append({QStringLiteral("the context menu of %1 %2")
                            .arg(QString::fromLatin1(widget->metaObject()->className()), name),
                        {arrange, Way::contextMenu, i}});
    }
    return offered;
}

} // namespace

class TestOpenedThings : public GuiTest
{
    Q_OBJECT

private slots:
    static void initTestCase()
    {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QApplication::setQuitOnLastWindowClosed(false);
    }

    void whatIsOpenHasEveryKeyAndTheShowNone_data() { addOpeners(); }

    void whatIsOpenHasEveryKeyAndTheShowNone()
    {
        QFETCH(Opener, opener);
        // What an answer is given by is pressed as the first key after an opening.
        QList<Qt::Key> keys = bareKeys();
        keys.removeIf([](Qt::Key key) { return closing().contains(key); });
        keys = closing() + keys;
        std::unique_ptr<AskingProgram> program;
        while (!keys.isEmpty()) {
            if (!program)
                program = std::make_unique<AskingProgram>(opener.arrange);
            const QString before = program->show();
            const ZelvoProject document = program->store.project();
            whileOpen([&] { opener.open(*program); },
                      [&] {
                          QVERIFY2(program->hasOpened(),
                                   QKeySequence(keys.constFirst()).toString().toUtf8());
                          do {
                              press(*program, keys.takeFirst(), before, document);
                          } while (!QTest::currentTestFailed() && !keys.isEmpty()
                                   && !closing().contains(keys.constFirst())
                                   && program->hasOpened());
                      });
            if (QTest::currentTestFailed())
                return;
            const bool isChanged = program->store.project() != document;
            program->closeAll();
            if (isChanged || !program->isBaseShown())
                program.reset();
        }
    }

    /// A row for each kind of thing that can be opened.
    void whatIsOpenStaysOpenWhenTheDesktopChangesItsColours_data()
    {
        findOpeners();
        QTest::addColumn<Opener>("opener");
        for (const auto &[kind, opener] : m_kinds.asKeyValueRange())
            QTest::newRow(qPrintable(kind)) << opener;
    }

    void whatIsOpenStaysOpenWhenTheDesktopChangesItsColours()
    {
        QFETCH(Opener, opener);
        const AskingProgram program(opener.arrange);
        const QString before = program.show();
        whileOpen([&] { opener.open(program); },
                  [&] {
                      const QWidget *popup = QApplication::activePopupWidget();
                      const QWidget *window = QApplication::activeWindow();
                      for (const ZelvoTheme &theme : {ZelvoTheme::dark(), ZelvoTheme::light()}) {
                          applyTheme(theme);
                          Program::settle();
                          QVERIFY(program.hasOpened());
                          QCOMPARE(QApplication::activePopupWidget(), popup);
                          QCOMPARE(QApplication::activeWindow(), window);
                      }
                  });
        QCOMPARE(program.show(), before);
    }

    void everyKindOfThingWasOpened()
    {
        findOpeners();
        for (const char *kind :
             {"QMenu", "QComboBoxPrivateContainer", "QColorDialog", "QFileDialog", "AlertBox",
              "StartPanelView", "SongImportSheet", "SettingsWindow"})
            QVERIFY2(m_kinds.contains(QString::fromLatin1(kind)), kind);
    }

private:
    /// Adds a row for everything that opens something, found by trying whatever there is.
    void addOpeners()
    {
        findOpeners();
        QTest::addColumn<Opener>("opener");
        for (const auto &[name, opener] : std::as_const(m_openers))
            QTest::newRow(qPrintable(name)) << opener;
    }

    void findOpeners()
    {
        if (!m_openers.isEmpty())
            return;
        QSet<QString> tried;
        for (const State &state : ownStates) {
            std::unique_ptr<AskingProgram> program;
            for (const auto &[name, opener] : offeredIn(state.arrange)) {
                if (tried.contains(name))
                    continue;
                tried.insert(name);
                if (!program)
                    program = std::make_unique<AskingProgram>(state.arrange);
                const QString before = program->state();
                bool opens = false;
                whileOpen([&] { opener.open(*program); },
                          [&] {
                              opens = program->hasOpened();
                              if (opens && !m_kinds.contains(openClass()))
                                  m_kinds.insert(openClass(), opener);
                          });
                // A program is used again as long as nothing has come of it.
                if (opens || program->state() != before)
                    program.reset();
                if (opens) {
                    const QString place = QLatin1String(", while ") + QLatin1String(state.name);
                    m_openers.append({name + place, opener});
                }
            }
        }
    }

    static QList<Qt::Key> closing() { return {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}; }

    static QString openClass()
    {
        const QWidget *popup = QApplication::activePopupWidget();
        const QWidget *open = popup ? popup : QApplication::activeWindow();
        return QString::fromLatin1(open->metaObject()->className())
            .remove(QStringLiteral("quenara::"));
    }

    static void press(AskingProgram &program, Qt::Key key, const QString &before,
                      const ZelvoProject &document)
    {
        const QByteArray name = QKeySequence(key).toString().toUtf8();
        const bool isToQueue = openClass() == QStringLiteral("GoToSlideSheet");
        const QString audience = program.audience();
        program.count();
        // What the answer makes the program ask next is cancelled.
        whileOpen(
            [&] {
                ProgramWindows::press(*QApplication::activeWindow(), key);
                Program::settle();
            },
            [] {});
        QVERIFY2(program.transported == 0, name);
        // What was chosen may have replaced the document, and the show with it.
        if (program.store.project().id == document.id) {
            QVERIFY2(program.audience() == audience, name);
            QVERIFY2(isToQueue || program.show() == before,
                     name + qPrintable(program.show()) + " not " + qPrintable(before));
        }
        const int answers = program.chosen > 0 ? program.chosen : program.triggered;
        QVERIFY2(answers <= 1, name);
    }

    QList<std::pair<QString, Opener>> m_openers;
    QMap<QString, Opener> m_kinds; ///< one for each kind of thing that is opened
};

QUENARA_GUI_TEST(TestOpenedThings)

} // namespace tst_opened_things

#include "tst_opened_things.moc"
