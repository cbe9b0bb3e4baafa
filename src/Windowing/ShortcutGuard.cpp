#include "ShortcutGuard.h"

#include "Typing.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScopedValueRollback>

namespace quenara {

namespace {

bool isWithoutModifiers(const QKeyEvent &event)
{
    return (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
}

bool isUndoOrRedo(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Z
        && (event.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier;
}

} // namespace

bool ShortcutGuard::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        return !m_isGivingToPopup && claims(*watched, static_cast<QKeyEvent &>(*event));
    case QEvent::KeyPress:
        return wasForClosedPopup(static_cast<const QKeyEvent &>(*event));
    case QEvent::KeyRelease: {
        const auto &release = static_cast<const QKeyEvent &>(*event);
        m_released = {release.key(), release.timestamp()};
        return wasForClosedPopup(release);
    }
    default:
        return QObject::eventFilter(watched, event);
    }
}

/// Answers whether a press is a shortcut, unless what is in focus is to say: a press that comes
/// back accepted goes on as a plain key.
bool ShortcutGuard::claims(QObject &receiver, QKeyEvent &press)
{
    const bool isRepeated = isRepeat(press);
    if (QApplication::activePopupWidget()) {
        m_popupKey = press.key();
        if (!isRepeated)
            giveToPopup(receiver, press);
        press.accept();
        return true;
    }
    if (!isRepeated)
        m_popupKey.reset();
    if (isUndoOrRedo(press)) {
        press.ignore();
        return true;
    }
    const bool isKeyOfReceiver = isWithoutModifiers(press)
        && (takesText(&receiver) || qobject_cast<const QMenuBar *>(&receiver));
    if (isRepeated || isKeyOfReceiver)
        press.accept();
    return isRepeated || isKeyOfReceiver;
}

/// A combo box's list acts, and closes, on being asked whether a press is a shortcut. Qt would then
/// try the shortcuts of the window below.
void ShortcutGuard::giveToPopup(QObject &receiver, QKeyEvent &press)
{
    const QScopedValueRollback giving(m_isGivingToPopup, true);
    QCoreApplication::sendEvent(&receiver, &press);
}

bool ShortcutGuard::wasForClosedPopup(const QKeyEvent &event) const
{
    return event.key() == m_popupKey && !QApplication::activePopupWidget();
}

/// X servers repeat a key that is held down as a release and a press at one moment, which Qt takes
/// for a new press if that has not arrived yet when the release is handled.
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
