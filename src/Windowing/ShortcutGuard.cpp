#include "ShortcutGuard.h"

#include <QAbstractItemView>
#include <QKeyEvent>

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

/// Undo and redo are the document's wherever its commands are in reach, and a field's elsewhere.
bool isOfTheHistory(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Z
        && (event.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier;
}

} // namespace

bool ShortcutGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyRelease) {
        const auto &key = static_cast<const QKeyEvent &>(*event);
        m_released = {key.key(), key.timestamp()};
    } else if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = static_cast<const QKeyEvent &>(*event);
        if (isOfTheHistory(key)) {
            event->ignore();
            return true;
        }
        if (isRepeat(key) || (takesText(watched) && isWithoutModifiers(key))) {
            event->accept();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

/// X servers repeat a key that is held down as a release and a press at one moment, which the
/// toolkit takes for a new press where it has not arrived yet as the release is handled.
bool ShortcutGuard::isRepeat(const QKeyEvent &press)
{
    const Moment now{press.key(), press.timestamp()};
    // A key that went down and up at one moment was not held.
    const bool wasHeld = m_released != m_pressed;
    if (now != m_pressed) {
        m_pressed = now;
        m_repeats = wasHeld && now == m_released;
    }
    return press.isAutoRepeat() || m_repeats;
}

} // namespace quenara
