#include "TextInputGuard.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QWidget>

namespace quenara {

namespace {

bool isWithoutModifiers(const QKeyEvent &event)
{
    return (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
}

bool takesText(const QObject *object)
{
    // Item views ask for an input method too, for editors that have the focus themselves.
    const auto *widget = qobject_cast<const QWidget *>(object);
    return widget && widget->testAttribute(Qt::WA_InputMethodEnabled)
        && !qobject_cast<const QAbstractItemView *>(widget);
}

} // namespace

bool TextInputGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && takesText(watched)
        && isWithoutModifiers(static_cast<const QKeyEvent &>(*event))) {
        event->accept();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace quenara
