#include "DialogInFront.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QPointer>
#include <QWindow>

namespace quenara {

namespace {

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

/// Makes a dialog transient for the window of another widget as it is shown: a window manager keeps
/// it in front of that one. Before, it has no window of its own.
class TransientFor : public QObject
{
public:
    explicit TransientFor(const QWidget &below) : m_below(below.window()->windowHandle()) {}

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            static_cast<QWidget *>(watched)->windowHandle()->setTransientParent(m_below);
        return QObject::eventFilter(watched, event);
    }

private:
    QPointer<QWindow> m_below;
};

/// Qt's widgets miss that a window gets the keyboard while a menu is open.
void followKeyboard(QWidget &window)
{
    if (QGuiApplication::focusWindow() == window.windowHandle())
        QApplication::setActiveWindow(&window);
}

} // namespace

int runInFront(QDialog &dialog)
{
    const QWidget *below = QApplication::activeModalWidget();
    TransientFor order(below ? *below : *dialog.parentWidget());
    dialog.installEventFilter(&order);
    const int result = dialog.exec();
    QWidget *front = QApplication::activeModalWidget();
    (front ? front : dialog.parentWidget())->activateWindow();
    return result;
}

void keepKeyboardInFront(QObject &context)
{
    QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &context, [](QWindow *window) {
        QWidget *front = QApplication::activeModalWidget();
        if (!window || !front)
            return;
        // Queued, since Qt still tells others of the change.
        if (isBehind(*window, *front)) {
            QMetaObject::invokeMethod(
                front, [front] { front->activateWindow(); }, Qt::QueuedConnection);
        } else if (window == front->windowHandle()) {
            QMetaObject::invokeMethod(
                front, [front] { followKeyboard(*front); }, Qt::QueuedConnection);
        }
    });
}

} // namespace quenara
