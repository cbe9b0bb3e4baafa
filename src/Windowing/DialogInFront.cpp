#include "DialogInFront.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QPointer>
#include <QWindow>

namespace quenara {

namespace {

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

} // namespace quenara
