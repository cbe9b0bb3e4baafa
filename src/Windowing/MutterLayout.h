#pragma once

#include <QDBusAbstractInterface>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

namespace quenara {

/// What Mutter, the compositor of GNOME, tells of its screens.
class MutterDisplayConfig : public QDBusAbstractInterface
{
    Q_OBJECT

public:
    explicit MutterDisplayConfig(const QDBusConnection &bus);

signals:
    void MonitorsChanged(); // NOLINT(readability-identifier-naming): D-Bus calls it so
};

/// How Mutter lays its screens out. Unless fractional scales are turned on it does so in pixels,
/// and Qt is told of a screen's size in pixels as if it were in points: 1920 x 1080 points of 2
/// pixels each, where there is room for 960 x 540. https://gitlab.gnome.org/GNOME/mutter,
/// org.gnome.Mutter.DisplayConfig.xml, "layout-mode".
class MutterLayout : public QObject
{
    Q_OBJECT

public:
    /// Waits for the answer if there is such a compositor.
    explicit MutterLayout(const QDBusConnection &bus, QObject *parent = nullptr);

    /// False without such a compositor.
    bool isInPixels() const { return m_isInPixels; }

signals:
    /// The layout or the screens in it are others. Of another scale alone Qt does not tell.
    void changed();

private:
    void askAgain();

    MutterDisplayConfig m_mutter;
    bool m_isInPixels = false;
};

} // namespace quenara
