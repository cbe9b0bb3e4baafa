#pragma once

#include "ScreenWatch.h"

#include <QPointer>
#include <QWidget>

#include <optional>

namespace quenara {

/// Decides which screen the audience display covers, and has a window cover it. Which screens there
/// are comes from the desktop, what follows from that is decided by the functions of ScreenChoice.
class DisplayPlacement : public QObject
{
    Q_OBJECT

public:
    explicit DisplayPlacement(QObject *parent = nullptr);

    /// The display never goes to the screen with \a operatorWindow by itself.
    void keepOff(const QWidget &operatorWindow) { m_operatorWindow = &operatorWindow; }

    /// The primary one first; where there is none, the one with the operator's window.
    QList<PlacedScreen> screens() const;
    /// The one with the operator's window; empty without one.
    QRect operatorScreen() const;
    /// The one that \a window is on; none if it lies beside all of them.
    std::optional<PlacedScreen> screenOf(const QWidget &window) const;

    /// The screen that a display opened by command covers. Its `screen` is null without screens.
    PlacedScreen screenByCommand() const;
    /// The screen for the display that covers \a current, after the screens changed; none if it has
    /// to close.
    std::optional<PlacedScreen> screenToFollow(const QScreen *current) const;
    /// A screen that the display can open on by itself, if there is one.
    std::optional<PlacedScreen> freeScreen() const;

    /// Whether \a window lies on the screen with the operator's window.
    bool coversOperator(const QWidget &window) const;
    /// Whether \a window lies on the screen that \a other is on.
    bool sharesScreen(const QWidget &window, const QWidget &other) const;
    /// Whether the desktop has put \a window, which was to cover \a screen, on another one.
    bool isAstray(const QWidget &window, const QScreen *screen) const;

    /// Shows a new \a window without a frame over the whole of \a target.
    void cover(QWidget &window, const PlacedScreen &target) const;
    /// Has an open \a window cover \a target. False if only a new window can.
    [[nodiscard]] bool move(QWidget &window, const PlacedScreen &target) const;

signals:
    void screensChanged();

private:
    bool liesOn(const QWidget &window, const QRect &frame) const;
    bool goesUnmanaged(const QRect &frame) const;

    ScreenWatch m_screens;
    QPointer<const QWidget> m_operatorWindow;
};

} // namespace quenara
