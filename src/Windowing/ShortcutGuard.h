#pragma once

#include <QObject>

class QKeyEvent;

namespace quenara {

/// Keeps key presses from being taken as shortcuts that are none: keys without modifiers typed into
/// text, and the repeats of a key that is held down. Keeps fields from taking the keys for undo and
/// redo before the menus can. To be installed as an event filter on the
/// application.
class ShortcutGuard : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

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

    bool isRepeat(const QKeyEvent &press);

    Moment m_pressed;
    Moment m_released;
    bool m_repeats = false; ///< whether the last press was the repeat of a held key
};

} // namespace quenara
