#include "CommandActions.h"

#include "AccessibleControls.h"
#include "OutputWindows.h"
#include "PlainToolTip.h"
#include "Typing.h"
#include "WorkspaceStore.h"

#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace quenara {

namespace {

/// What the command's button does, and the key that does it.
QString toolTipOf(const CommandDescription &description, const QAction &action)
{
    const QString text =
        description.toolTip ? QString::fromUtf8(description.toolTip) : action.iconText();
    return buttonToolTip(text, action.shortcut());
}

/// Whether a menu with \a action is open.
bool isInOpenMenu(const QAction &action)
{
    const QList<QObject *> shownBy = action.associatedObjects();
    return std::any_of(shownBy.cbegin(), shownBy.cend(), [](const QObject *object) {
        const auto *menu = qobject_cast<const QMenu *>(object);
        return menu && menu->isVisible();
    });
}

/// An action that knows whether one of its keys was pressed.
class CommandAction : public QAction
{
public:
    using QAction::QAction;

    bool isTriggeredByKey() const { return m_isTriggeredByKey; }

protected:
    bool event(QEvent *event) override
    {
        const QScopedValueRollback byKey(m_isTriggeredByKey, event->type() == QEvent::Shortcut);
        return QAction::event(event);
    }

private:
    bool m_isTriggeredByKey = false;
};

} // namespace

CommandActions::CommandActions(Context context, QObject *parent)
    : QObject(parent), m_context(std::move(context))
{
    for (const CommandDescription &description : commandDescriptions())
        m_actions.append(makeAction(description));
    connect(&store(), &WorkspaceStore::changed, this, &CommandActions::showState);
    connect(&outputs(), &OutputWindows::changed, this, &CommandActions::showState);
    showState();
}

QAction *CommandActions::makeAction(const CommandDescription &description)
{
    auto *action = new CommandAction(QString::fromUtf8(description.title), this);
    action->setIconText(
        QString::fromUtf8(description.buttonTitle ? description.buttonTitle : description.title));
    action->setData(QString::fromUtf8(description.symbol));
    action->setShortcuts(keysOf(description));
    action->setToolTip(toolTipOf(description, *action));
    // Window shortcuts, not the application's: a dialog must neither run commands by its keys nor
    // keep the keys of the other windows from doing so.
    action->setShortcutContext(Qt::WindowShortcut);
    action->setAutoRepeat(description.repeats);
    action->setMenuRole(description.role);
    connect(action, &QAction::triggered, this, [this, action, command = description.command] {
        if (isInReach(*action, action->isTriggeredByKey()))
            perform(command);
    });
    return action;
}

bool CommandActions::isOn(Command command) const
{
    return descriptionOf(command).isOn(store(), outputs());
}

/// Whether \a action, of a menu, is triggered by what a click could do, too. Assistive technologies
/// choose items of closed menus, and behind dialogs. Keys come from windows that no dialog blocks.
bool CommandActions::isInReach(const QAction &action, bool isKey)
{
    if (isKey)
        return true;
    if (QApplication::activePopupWidget() && !isInOpenMenu(action)) {
        closePopups(); // as a click beside them does
        return false;
    }
    return !QApplication::activeModalWidget();
}

/// While a dialog is open on the operator's window, the keys of an output window go on running the
/// service, but must not change the document.
bool CommandActions::isRefused(Command command, const QWidget *sheet)
{
    const QWidget *dialog = QApplication::activeModalWidget();
    return descriptionOf(command).worksOnDocument && dialog && dialog != sheet;
}

void CommandActions::perform(Command command, const QWidget *sheet)
{
    if (isRefused(command, sheet))
        return;
    closePopups();
    const CommandDescription &description = descriptionOf(command);
    if (description.continuesTyping) {
        takeTyping();
    } else {
        endTyping();
    }
    if (description.dropsDocument) {
        replaceDocument([&] { description.run(*this); });
    } else {
        description.run(*this);
    }
}

void CommandActions::selectAndPerform(const std::function<void()> &select, Command command) const
{
    if (isRefused(command, nullptr))
        return;
    closePopups();
    select();
    action(command)->trigger();
}

void CommandActions::openProject(const QUrl &url, const QWidget *sheet)
{
    if (isRefused(Command::open, sheet))
        return;
    closePopups();
    endTyping(); // what was typed counts as unsaved, too
    replaceDocument([&] { store().openProject(url); });
}

void CommandActions::replaceDocument(const std::function<void()> &replace)
{
    if (!m_context.mayReplaceDocument())
        return;
    emit documentReleased();
    replace();
}

QString CommandActions::title(const CommandDescription &description) const
{
    const bool isOfLayer = store().lastSelected() == SelectionKind::layer;
    if (description.titleForLayer && isOfLayer)
        return QString::fromUtf8(description.titleForLayer);
    if (description.titleWhileOn && isOn(description.command))
        return QString::fromUtf8(description.titleWhileOn);
    return QString::fromUtf8(description.title);
}

void CommandActions::showState()
{
    for (const CommandDescription &description : commandDescriptions()) {
        QAction &action = *this->action(description.command);
        action.setEnabled((!description.isEnabled || description.isEnabled(store()))
                          && (!description.isPossible || description.isPossible(outputs())));
        action.setText(title(description));
    }
    emit switched();
}

} // namespace quenara
