#pragma once

#include "MutterLayout.h"

#include <QAbstractNativeEventFilter>
#include <QList>
#include <QObject>
#include <QRect>

#include <chrono>
#include <optional>

class QScreen;
class QWidget;
struct xcb_connection_t;

namespace quenara {

/// How long screens stay as they are before a window follows them: a loose plug comes and goes, and
/// the desktop takes its time to arrange them and their windows.
constexpr std::chrono::milliseconds screensSettleIn(300);

/// A screen where it is, in device-independent pixels.
struct PlacedScreen
{
    QScreen *screen = nullptr;
    QRect frame;

    /// What windows may cover of it: not the desktop's panels, as far as it tells of them.
    [[nodiscard]] QRect room() const;
};

[[nodiscard]] QList<QRect> framesOf(const QList<PlacedScreen> &screens);

/// Where the screens are, and when that changes. An X server is asked directly: Qt misses changes
/// of resolution there, and screens that begin or cease to mirror another.
class ScreenWatch : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    explicit ScreenWatch(QObject *parent = nullptr);

    /// In the platform's order, the primary one first if it has one. A screen that is gone is not
    /// in it, even if Qt has not heard of that yet.
    QList<PlacedScreen> screens() const;

    /// The place in screens() of the one that \a window is on: where its middle lies, or, where
    /// windows do not know where they lie, the one that the desktop shows it on. None if it lies
    /// beside all of them.
    [[nodiscard]] std::optional<qsizetype> indexUnder(const QWidget &window) const;

    /// What windows may cover of \a screen.
    [[nodiscard]] QRect roomOn(const QScreen &screen) const;

    /// Whether one of the screens is the primary one, and windows know and choose where they lie.
    /// On Wayland none is, and the desktop alone places windows.
    bool areWindowsPlaced() const { return m_areWindowsPlaced; }

    /// Whether windows can do without a window manager: on an X server that is no guest of a
    /// Wayland desktop, which gives the keyboard to none that it does not know.
    bool canGoUnmanaged() const { return m_canGoUnmanaged; }

signals:
    /// A screen came, went or changed. When one goes, this is emitted before Qt moves its windows.
    void changed();

private:
    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;
    void follow(const QScreen *screen) const;
    void tellSoon();

    xcb_connection_t *m_server; ///< null on other platforms
    bool m_areWindowsPlaced;
    std::optional<MutterLayout> m_mutter; ///< on Wayland
    bool m_canGoUnmanaged;
    bool m_isTelling = false;
};

} // namespace quenara
