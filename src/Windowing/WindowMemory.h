#pragma once

#include <QObject>
#include <QString>

namespace quenara {

class OperatorWindow;

/// Opens the operator's window where it was when it was last closed, on the same screen if that is
/// there, and on the primary one else; always wholly in sight. What it keeps for that is state, not
/// a preference: it is stored in a file of its own.
class WindowMemory : public QObject
{
public:
    /// Puts \a window, which is not shown yet, in its place. A \a file that is missing or damaged
    /// counts as none. Keeps a reference to the window.
    WindowMemory(OperatorWindow &window, const QString &file);

    /// The file in the user's folder for state: `$XDG_STATE_HOME`, else `~/.local/state`, or what
    /// the platform has in its place.
    [[nodiscard]] static QString standardFile();

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void restore();
    void store() const;

    OperatorWindow &m_window;
    QString m_file;
};

} // namespace quenara
