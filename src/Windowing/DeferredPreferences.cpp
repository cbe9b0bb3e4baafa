#include "DeferredPreferences.h"

#include <QEvent>
#include <QSettings>
#include <QTimer>
#include <QWidget>

namespace quenara {

DeferredPreferences::DeferredPreferences(QSettings &preferences, QWidget &window)
    : m_preferences(preferences), m_window(window)
{
    m_preferences.installEventFilter(this);
    m_window.installEventFilter(this);
}

bool DeferredPreferences::eventFilter(QObject *object, QEvent *event)
{
    // QSettings asks itself to write by this event, and not again until it has written.
    if (object == &m_preferences)
        return event->type() == QEvent::UpdateRequest;
    if (event->type() == QEvent::Paint)
        writeSoon();
    return false;
}

/// Writes after the painting, not in the middle of it.
void DeferredPreferences::writeSoon()
{
    m_preferences.removeEventFilter(this);
    m_window.removeEventFilter(this);
    QTimer::singleShot(0, &m_preferences, &QSettings::sync);
}

} // namespace quenara
