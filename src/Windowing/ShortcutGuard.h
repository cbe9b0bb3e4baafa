#pragma once

#include <QObject>

namespace quenara {

/// Keeps key presses from being taken as shortcuts that are none: keys without modifiers typed into
/// text, and the repeats of a key that is held down. To be installed as an event filter on the
/// application.
class ShortcutGuard : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int m_releasedKey = 0;
    quint64 m_releaseTime = 0; ///< milliseconds of the platform's clock
};

} // namespace quenara
