#pragma once

#include <QAbstractNativeEventFilter>
#include <QList>
#include <QObject>

#include <optional>

class QKeyEvent;

namespace quenara {

/// Decides for every key press of the program whether it may be a shortcut. It may not while a
/// popup (a list, a menu) is open, which then has every key; when it is typed into a text or moves
/// about a menu bar; or when it is the repeat of a key that is held down. Undo and redo always may,
/// although text fields would take their keys for themselves.
///
/// A key that closed a popup reaches nothing else until it is pressed anew, and an Alt that was
/// pressed before a popup opened does not reach that. A key that is held presses the button with
/// the focus once.
///
/// To be installed on the application as an event filter and as one of its native events, from
/// which it knows when keys were released: Qt does not tell while an assistive technology is
/// connected.
class ShortcutGuard : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// A key and when it moved, in milliseconds of the platform's clock.
    struct Moment
    {
        int key = 0;
        quint64 time = 0;

        bool operator==(const Moment &) const = default;
    };

    /// A press or a release as the X server tells of it, which is before Qt does.
    struct ServerMove
    {
        bool isPress = false;
        quint32 code = 0; ///< of the key on the keyboard
        quint64 time = 0; ///< as that of a Moment
    };

    bool claims(QObject &receiver, QKeyEvent &press);
    void giveToPopup(QObject &receiver, QKeyEvent &press);
    bool wasForClosedPopup(const QKeyEvent &event) const;
    bool isAltBeforePopup(const QKeyEvent &press);
    bool pressesButtonAgain(const QObject &receiver, const QKeyEvent &press);
    void leaveMenuBar();
    bool isRepeat(const QKeyEvent &press);
    void note(const ServerMove &move);
    [[nodiscard]] bool isRepeatOfServer(const QKeyEvent &press) const;
    static std::optional<ServerMove> moveIn(const QByteArray &type, const void *message);

    Moment m_pressed;
    ServerMove m_serverPressed;
    ServerMove m_serverReleased;
    QList<ServerMove> m_serverRepeats; ///< the last presses that were of a held key
    Moment m_released;
    bool m_repeats = false; ///< whether the last press was the repeat of a held key
    bool m_awaitsAlt = false; ///< pressed without a popup, not yet arrived
    std::optional<int> m_popupKey; ///< the last key pressed, if a popup was open then
    bool m_isGivingToPopup = false;
};

} // namespace quenara
