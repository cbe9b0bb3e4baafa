#include "KeyboardClaim.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

#include <chrono>

namespace quenara {

namespace {

using namespace std::chrono_literals;

constexpr auto claimEvery = 50ms;
constexpr int claims = 10;

} // namespace

KeyboardClaim::KeyboardClaim(QWidget &window)
    : QObject(&window), m_window(window), m_claimsLeft(claims)
{
    connect(&m_interval, &QTimer::timeout, this, &KeyboardClaim::claim);
    m_interval.start(claimEvery);
    qApp->installEventFilter(this);
    m_window.activateWindow();
}

/// A key that is a shortcut arrives as the question whether it may be one, and not as a press.
bool KeyboardClaim::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        m_interval.stop();
        deleteLater();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void KeyboardClaim::claim()
{
    const QWindow *holder = QGuiApplication::focusWindow();
    if (holder && holder != m_window.windowHandle())
        m_window.activateWindow();
    if (--m_claimsLeft == 0)
        deleteLater();
}

} // namespace quenara
