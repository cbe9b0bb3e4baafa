#pragma once

#include <QObject>

class QSettings;
class QWidget;

namespace quenara {

/// Keeps preferences that change during the start from being written before a window has been
/// painted for the first time. QSettings writes them as soon as the event loop runs and waits for
/// the disk twice, which takes a busy one half a second.
class DeferredPreferences : public QObject
{
    Q_OBJECT

public:
    /// Keeps references to both.
    DeferredPreferences(QSettings &preferences, QWidget &window);

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void writeSoon();

    QSettings &m_preferences;
    QWidget &m_window;
};

} // namespace quenara
