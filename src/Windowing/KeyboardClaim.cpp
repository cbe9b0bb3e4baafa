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

bool KeyboardClaim::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    // A key that is a shortcut arrives as the question whether it may be one, and not as a press.
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        end();
        break;
    case QEvent::Show:
        if (asksForKeyboard(*watched))
            end();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

/// Whether what is shown is another window that came to have the keyboard, as a question does.
bool KeyboardClaim::asksForKeyboard(const QObject &shown) const
{
    const auto *window = qobject_cast<const QWidget *>(&shown);
    return window && window != &m_window && window->isWindow()
        && window->windowType() != Qt::ToolTip
        && !window->testAttribute(Qt::WA_ShowWithoutActivating);
}

void KeyboardClaim::end()
{
    m_interval.stop();
    deleteLater();
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
