#include "ActivationGuard.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace quenara {

namespace {

/// The widget that is the window with the keyboard; null without one.
QWidget *widgetWithKeyboard()
{
    const QWindow *window = QGuiApplication::focusWindow();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *widget : windows) {
        if (window && widget->windowHandle() == window)
            return widget;
    }
    return nullptr;
}

void activateWindowWithKeyboard()
{
    QWidget *window = widgetWithKeyboard();
    if (window && window != QApplication::activeWindow() && !QApplication::activePopupWidget())
        QApplication::setActiveWindow(window);
}

} // namespace

ActivationGuard::ActivationGuard(QObject *parent) : QObject(parent)
{
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &ActivationGuard::checkSoon);
}

bool ActivationGuard::eventFilter(QObject *watched, QEvent *event)
{
    const auto *widget = qobject_cast<const QWidget *>(watched);
    if (event->type() == QEvent::Hide && widget && widget->windowType() == Qt::Popup)
        checkSoon();
    return QObject::eventFilter(watched, event);
}

/// After Qt has done what it does by itself.
void ActivationGuard::checkSoon()
{
    QMetaObject::invokeMethod(this, activateWindowWithKeyboard, Qt::QueuedConnection);
}

} // namespace quenara
