#pragma once

#include "Command.h"

#include <QList>
#include <QObject>
#include <QUrl>

#include <functional>

class QWidget;

namespace quenara {

/// The commands as actions, one a command, from which menus, keys and buttons are made: each is
/// enabled and titled as its description says of the present state.
class CommandActions : public QObject
{
    Q_OBJECT

public:
    /// What the commands work on and whom they ask. The references must outlive the actions.
    struct Context
    {
        WorkspaceStore &store;
        OutputWindows &outputs;
        /// Asks the operator if there is something to lose.
        std::function<bool()> mayReplaceDocument;
    };

    explicit CommandActions(Context context, QObject *parent = nullptr);

    WorkspaceStore &store() const { return m_context.store; }
    OutputWindows &outputs() const { return m_context.outputs; }

    /// Never null. Its icon text is the button's title, its data the name of the button's symbol.
    QAction *action(Command command) const { return m_actions.at(qsizetype(command)); }

    /// For a command that switches something on and off.
    [[nodiscard]] bool isOn(Command command) const;

    /// Does what triggering the action does. \a sheet is the dialog that offers the command, if
    /// any: while another dialog is open, no command works on the document.
    void perform(Command command, const QWidget *sheet = nullptr);

    /// Has \a select choose what the command works on, then triggers its action. Does neither if a
    /// dialog keeps the command from the document.
    void selectAndPerform(const std::function<void()> &select, Command command) const;

    /// Opens a project that the operator picked from a list, in place of the present one. \a sheet
    /// is the dialog with the list, if any: while another dialog is open, nothing is opened.
    void openProject(const QUrl &url, const QWidget *sheet = nullptr);

signals:
    /// The operator has agreed to drop the document. Another one replaces it next, or a panel asks
    /// which.
    void documentReleased();
    /// isOn() may have changed for some command.
    void switched();

    // Requests to the program's windows.
    void quitRequested();
    void settingsRequested();
    void goToSlideRequested();
    void exportRequested();
    void aboutRequested();

private:
    QAction *makeAction(const CommandDescription &description);
    QString title(const CommandDescription &description) const;
    static bool isInReach(const QAction &action, bool isKey);
    static bool isRefused(Command command, const QWidget *sheet);
    void replaceDocument(const std::function<void()> &replace);
    void showState();

    Context m_context;
    QList<QAction *> m_actions; ///< by the commands' places
};

} // namespace quenara
