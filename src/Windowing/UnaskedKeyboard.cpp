#include "UnaskedKeyboard.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QWindow>

namespace quenara {

UnaskedKeyboard::UnaskedKeyboard(QWidget &window, std::chrono::milliseconds settling)
    : QObject(&window), m_window(window), m_before(QApplication::activeWindow()),
      m_settling(settling)
{
    qApp->installEventFilter(this);
}

bool UnaskedKeyboard::eventFilter(QObject *watched, QEvent *event)
{
    if (m_isAsked)
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (!isOfWindow(*watched))
            break;
        event->accept(); // so that it is no shortcut
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (isOfWindow(*watched))
            return true;
        break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        if (isOfWindow(*watched))
            end();
        break;
    case QEvent::FocusOut:
        // Where somebody types, that goes on: a field that ends there would leave what is typed
        // once the keyboard is back to the show.
        return wouldEndTyping(*watched, static_cast<const QFocusEvent &>(*event));
    case QEvent::Expose:
        if (watched == m_window.windowHandle() && !m_stands.isValid())
            m_stands.start();
        break;
    case QEvent::WindowActivate:
        if (watched == &m_window)
            comeToFront();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool UnaskedKeyboard::isOfWindow(const QObject &receiver) const
{
    const auto *widget = qobject_cast<const QWidget *>(&receiver);
    return widget ? widget->window() == &m_window : &receiver == m_window.windowHandle();
}

bool UnaskedKeyboard::wouldEndTyping(const QObject &receiver, const QFocusEvent &event) const
{
    const auto *widget = qobject_cast<const QWidget *>(&receiver);
    return widget && m_before && widget->window() == m_before
        && event.reason() == Qt::ActiveWindowFocusReason
        && QGuiApplication::focusWindow() == m_window.windowHandle();
}

void UnaskedKeyboard::end()
{
    m_isAsked = true;
    deleteLater();
}

void UnaskedKeyboard::comeToFront()
{
    if (m_stands.isValid() && m_stands.hasExpired(m_settling.count()))
        return end();
    if (m_stands.isValid())
        m_stands.restart();
    if (m_before && m_before->isVisible())
        m_before->activateWindow();
}

} // namespace quenara
