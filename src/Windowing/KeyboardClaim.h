#pragma once

#include <QObject>
#include <QTimer>

class QWidget;

namespace quenara {

/// Gives a window the keyboard that no window manager knows, and sees to it for half a second that
/// it stays there: a window manager may not have answered yet when another window of the program
/// asked for it, as Qt has one ask whose menu closes. What somebody presses meanwhile ends that,
/// and so does another window that opens, or one of another program that gets the keyboard.
class KeyboardClaim : public QObject
{
    Q_OBJECT

public:
    /// Belongs to \a window.
    explicit KeyboardClaim(QWidget &window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] bool asksForKeyboard(const QObject &shown) const;
    void claim();
    void end();

    QWidget &m_window;
    QTimer m_interval;
    int m_claimsLeft;
};

} // namespace quenara
