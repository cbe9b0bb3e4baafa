#pragma once

#include <QElapsedTimer>
#include <QFocusEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <chrono>

namespace quenara {

/// Keeps keys from a window that came by itself, to which a desktop may give the keyboard all the
/// same: what somebody types elsewhere must not act on the show. The keyboard goes back to the
/// window that had it, as far as the desktop lets it. Ends once the operator gives it to the
/// window: by a click, or by changing to it when it has been seen for a second. bringToFront()
/// deletes it.
class UnaskedKeyboard : public QObject
{
    Q_OBJECT

public:
    /// Belongs to \a window. To be made before that is shown. It is the desktop that gives it the
    /// keyboard within \a settling of its being seen.
    explicit UnaskedKeyboard(QWidget &window,
                             std::chrono::milliseconds settling = std::chrono::seconds(1));

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] bool isOfWindow(const QObject &receiver) const;
    [[nodiscard]] bool wouldEndTyping(const QObject &receiver, const QFocusEvent &event) const;
    void comeToFront();
    void end();

    QWidget &m_window;
    QPointer<QWidget> m_before; ///< the window that had the keyboard; null if none of the program's
    bool m_isAsked = false; ///< once the operator has given it the keyboard
    std::chrono::milliseconds m_settling;
    QElapsedTimer m_stands; ///< since the window is seen, or was last given the keyboard unasked
};

} // namespace quenara
