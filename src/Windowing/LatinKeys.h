#pragma once

#include <QObject>

class QKeyEvent;
class QWidget;

namespace quenara {

class CommandActions;

/// Runs the commands whose keys are letters where no key writes these. For the letter of a shortcut
/// Qt looks in every layout that the desktop has, and finds none if there is only, say, a Cyrillic
/// one. A key then counts as the letter that it has on an English keyboard.
///
/// To be installed as an event filter on the application before ShortcutGuard, which then keeps
/// from it each press that may not be a shortcut.
class LatinKeys : public QObject
{
    Q_OBJECT

public:
    explicit LatinKeys(CommandActions &commands, QObject *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ask(const QKeyEvent &press);
    bool runs(const QWidget &window, const QKeyEvent &press);

    CommandActions &m_commands;
    quint32 m_asked = 0; ///< the place of the key that was last asked to be a shortcut
};

} // namespace quenara
