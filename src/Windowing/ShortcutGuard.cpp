#include "ShortcutGuard.h"

#include "Command.h"
#include "Typing.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScopedValueRollback>

#include <algorithm>
#include <span>
#include <utility>

#if QT_CONFIG(xcb)
#include <xcb/xproto.h>
#endif

namespace quenara {

namespace {

/// Whether a press would write something into a text, or move about in it. AltGr writes further
/// characters on many keyboards, and leaves Space a space.
bool isWritten(const QKeyEvent &event)
{
    if (event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F35)
        return false;
    constexpr Qt::KeyboardModifiers levels =
        Qt::ShiftModifier | Qt::KeypadModifier | Qt::GroupSwitchModifier;
    return (event.modifiers() & ~levels) == Qt::NoModifier;
}

bool isUndoOrRedo(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Z
        && (event.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier;
}

/// Whether the press would copy, paste or delete something, which is a text's own while that has
/// the keyboard.
bool worksOnSelection(const QKeyEvent &press)
{
    const QKeySequence keys(press.keyCombination());
    const std::span<const CommandDescription> all = commandDescriptions();
    return std::any_of(all.begin(), all.end(), [&keys](const CommandDescription &description) {
        return description.worksOnSelection && keysOf(description).contains(keys);
    });
}

} // namespace

bool ShortcutGuard::nativeEventFilter(const QByteArray &type, void *message, qintptr * /*result*/)
{
    if (const auto move = moveIn(type, message))
        note(*move);
    return false;
}

bool ShortcutGuard::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        return !m_isGivingToPopup && claims(*watched, static_cast<QKeyEvent &>(*event));
    case QEvent::KeyPress:
        return wasForClosedPopup(static_cast<const QKeyEvent &>(*event))
            || isAltBeforePopup(static_cast<const QKeyEvent &>(*event))
            || pressesButtonAgain(*watched, static_cast<const QKeyEvent &>(*event));
    case QEvent::KeyRelease: {
        const auto &release = static_cast<const QKeyEvent &>(*event);
        if (release.timestamp() != 0)
            m_released = {release.key(), release.timestamp()};
        const bool isOfPopup = wasForClosedPopup(release);
        if (isOfPopup && release.key() == Qt::Key_Escape)
            leaveMenuBar();
        return isOfPopup;
    }
    default:
        return QObject::eventFilter(watched, event);
    }
}

/// Decides whether a press may be a shortcut. Returns false to leave that to the widget with the
/// focus. A press that is accepted goes on as a plain key.
bool ShortcutGuard::claims(QObject &receiver, QKeyEvent &press)
{
    const bool isRepeated = isRepeat(press);
    if (QApplication::activePopupWidget()) {
        m_popupKey = press.key();
        if (press.key() == Qt::Key_Alt)
            m_awaitsAlt = false;
        if (!isRepeated)
            giveToPopup(receiver, press);
        press.accept();
        return true;
    }
    if (press.key() == Qt::Key_Alt)
        m_awaitsAlt = true;
    if (!isRepeated)
        m_popupKey.reset();
    if (isUndoOrRedo(press)) {
        press.ignore();
        return true;
    }
    const bool isKeyOfReceiver = takesText(&receiver)
        ? isWritten(press) || worksOnSelection(press)
        : isWritten(press) && qobject_cast<const QMenuBar *>(&receiver);
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

/// While an assistive technology is connected, Qt asks it about a press before that arrives, but
/// opens a menu by its keys at once: their Alt would close it again.
bool ShortcutGuard::isAltBeforePopup(const QKeyEvent &press)
{
    return press.key() == Qt::Key_Alt && std::exchange(m_awaitsAlt, false)
        && QApplication::activePopupWidget();
}

/// A button takes no notice of repeats that it knows for such. Others would press it again and
/// again, a switch of what the audience sees included.
bool ShortcutGuard::pressesButtonAgain(const QObject &receiver, const QKeyEvent &press)
{
    return press.key() == Qt::Key_Space && qobject_cast<const QAbstractButton *>(&receiver)
        && isRepeat(press);
}

/// Qt has the menu bar keep the keyboard when Escape closes a menu, even one that the mouse opened:
/// the show would have no keys until Escape is pressed once more.
void ShortcutGuard::leaveMenuBar()
{
    auto *bar = qobject_cast<QMenuBar *>(QApplication::focusWidget());
    if (!bar)
        return;
    m_popupKey.reset();
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(bar, &escape);
}

/// X servers repeat a key that is held down as a release and a press at one moment, which Qt takes
/// for a new press if that has not arrived yet when the release is handled.
bool ShortcutGuard::isRepeat(const QKeyEvent &press)
{
    const Moment now{press.key(), press.timestamp()};
    // What is passed on of a press has no time.
    const bool isPassedOn = now.key == m_pressed.key && now.time == 0;
    if (now != m_pressed && !isPassedOn) {
        // A key that went down and up at one moment was not held.
        const bool wasHeld = m_released != m_pressed;
        m_pressed = now;
        m_repeats = (wasHeld && now == m_released) || isRepeatOfServer(press);
    }
    return press.isAutoRepeat() || m_repeats;
}

/// Qt may hear of several moves before it delivers the first.
void ShortcutGuard::note(const ServerMove &move)
{
    constexpr qsizetype mostRepeats = 100; // some four seconds of a held key
    if (!move.isPress) {
        m_serverReleased = move;
        return;
    }
    const bool isHeld = m_serverReleased.code == move.code && m_serverReleased.time == move.time
        && m_serverPressed.time != move.time;
    m_serverPressed = move;
    if (isHeld)
        m_serverRepeats.append(move);
    if (m_serverRepeats.size() > mostRepeats)
        m_serverRepeats.removeFirst();
}

bool ShortcutGuard::isRepeatOfServer(const QKeyEvent &press) const
{
    return std::any_of(
        m_serverRepeats.cbegin(), m_serverRepeats.cend(), [&press](const ServerMove &repeat) {
            return repeat.code == press.nativeScanCode() && repeat.time == press.timestamp();
        });
}

#if QT_CONFIG(xcb)

std::optional<ShortcutGuard::ServerMove> ShortcutGuard::moveIn(const QByteArray &type,
                                                               const void *message)
{
    constexpr int sentByClient = 0x80;
    if (type != "xcb_generic_event_t")
        return std::nullopt;
    const auto &event = *static_cast<const xcb_generic_event_t *>(message);
    const int kind = event.response_type & ~sentByClient;
    if (kind != XCB_KEY_PRESS && kind != XCB_KEY_RELEASE)
        return std::nullopt;
    const auto &move = *static_cast<const xcb_key_press_event_t *>(message);
    return ServerMove{kind == XCB_KEY_PRESS, move.detail, move.time};
}

#else

std::optional<ShortcutGuard::ServerMove> ShortcutGuard::moveIn(const QByteArray & /*type*/,
                                                               const void * /*message*/)
{
    return std::nullopt;
}

#endif

} // namespace quenara
