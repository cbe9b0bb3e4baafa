#include "ActivationGuard.h"

#include "QtWorkarounds.h"

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

/// Whether \a dialog stands on \a window or on what belongs to it.
bool isBehind(const QWindow &window, const QWidget &dialog)
{
    const QWindow *own = dialog.windowHandle();
    const QWindow *owner =
        dialog.parentWidget() ? dialog.parentWidget()->window()->windowHandle() : nullptr;
    const auto belongsTo = [&window](const QWindow *other) {
        return other
            && (other == &window || other->isAncestorOf(&window, QWindow::IncludeTransients));
    };
    return belongsTo(owner) && !belongsTo(own);
}

void settleKeyboard()
{
    const QWindow *window = QGuiApplication::focusWindow();
    QWidget *front = QApplication::activeModalWidget();
    if (window && front && isBehind(*window, *front))
        return front->activateWindow();
    QWidget *widget = widgetWithKeyboard();
    if (widget && widget != QApplication::activeWindow() && !QApplication::activePopupWidget())
        makeActive(*widget);
}

} // namespace

ActivationGuard::ActivationGuard(QObject *parent) : QObject(parent)
{
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &ActivationGuard::checkSoon);
}

bool ActivationGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide) {
        const auto *widget = qobject_cast<const QWidget *>(watched);
        if (widget && widget->windowType() == Qt::Popup)
            checkSoon();
    }
    return QObject::eventFilter(watched, event);
}

/// After Qt has done what it does by itself.
void ActivationGuard::checkSoon()
{
    QMetaObject::invokeMethod(this, settleKeyboard, Qt::QueuedConnection);
}

} // namespace quenara
