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

} // namespace

bool ShortcutGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyRelease) {
        const auto &key = static_cast<const QKeyEvent &>(*event);
        m_releasedKey = key.key();
        m_releaseTime = key.timestamp();
    } else if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = static_cast<const QKeyEvent &>(*event);
        // X servers repeat a key as a release and a press at the same moment. The toolkit takes the
        // press for a new one when it has not arrived yet as the release is handled.
        const bool isRepeat = key.isAutoRepeat()
            || (key.key() == m_releasedKey && key.timestamp() == m_releaseTime
                && m_releaseTime != 0);
        if (isRepeat || (takesText(watched) && isWithoutModifiers(key))) {
            event->accept();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace quenara
