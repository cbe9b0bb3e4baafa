#include "WindowCloseObserver.h"

#include <QEvent>

#include <utility>

namespace quenara {

WindowCloseObserver::WindowCloseObserver(QObject *window, std::function<void()> onClose)
    : m_onClose(std::move(onClose))
{
    if (!m_onClose)
        qFatal("WindowCloseObserver needs a callback");
    window->installEventFilter(this);
}

bool WindowCloseObserver::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Close)
        return QObject::eventFilter(watched, event);
    // The callback may delete this observer with its window.
    const std::function<void()> onClose = m_onClose;
    onClose();
    return false;
}

} // namespace quenara
