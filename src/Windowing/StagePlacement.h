#pragma once

#include "WindowPlace.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <optional>

namespace quenara {

class DisplayPlacement;

/// Knows where the stage monitor was put beside the operator's screen, for when that screen goes
/// and comes back. Somebody has turned that one to the stage, so that no other will do.
class StagePlacement : public QObject
{
    Q_OBJECT

public:
    /// Keeps a reference to what knows the screens.
    explicit StagePlacement(const DisplayPlacement &displays, QObject *parent = nullptr);

    void keepOff(QWidget &operatorWindow) { operatorWindow.installEventFilter(this); }

    /// Remembers where \a window is put from now on.
    void follow(QWidget &window);

    /// The window is to be put anew, wherever one was before.
    void forget() { m_place.reset(); }

    /// To be called when the screens have changed. Where the window manager puts the window then is
    /// not its place.
    void awaitSettling();

    /// Whether the screen that the window was put on is gone, or shows what the operator's does.
    bool hasLostScreen() const;
    /// Whether that screen is there again and nothing of the operator's or the audience's lies on
    /// it. \a display is null while it is closed.
    bool canReturn(const QWidget *display) const;
    /// Puts \a window, which is not shown yet, where the stage monitor was, within its screen.
    void restore(QWidget &window) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void remember();
    std::optional<qsizetype> screenIndex() const;

    const DisplayPlacement &m_displays;
    QPointer<QWidget> m_window;
    QTimer m_settled;
    std::optional<WindowPlace> m_place; ///< none while it is on the operator's screen
    /// Whether it filled the screen, and how; `m_place` is then what it is else.
    Qt::WindowStates m_state;
    QMargins m_frame = usualFrame; ///< what the desktop adds to it while it does not fill a screen
};

} // namespace quenara
