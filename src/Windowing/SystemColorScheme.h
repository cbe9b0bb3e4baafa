#pragma once

#include "ZelvoTheme.h"

#include <QDBusAbstractInterface>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QObject>

#include <optional>

namespace quenara {

/// The settings of the freedesktop desktop portal.
class SettingsPortal : public QDBusAbstractInterface
{
    Q_OBJECT

public:
    explicit SettingsPortal(const QDBusConnection &bus);

signals:
    // NOLINTNEXTLINE(readability-identifier-naming): a signal of D-Bus is found by its name there
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);
};

/// The colour scheme of the desktop, followed live: what the desktop portal's settings say, else
/// the lightness of the platform's own palette.
class SystemColorScheme : public QObject
{
    Q_OBJECT

public:
    /// Without a portal on \a bus, \a platformPalette decides.
    SystemColorScheme(const QDBusConnection &bus, const QPalette &platformPalette,
                      QObject *parent = nullptr);

    ColorScheme scheme() const { return m_portalScheme.value_or(m_paletteScheme); }

signals:
    void schemeChanged(quenara::ColorScheme scheme);

private:
    void readSetting();
    void askForSetting();
    void takeAnswer(const QDBusMessage &answer);
    void takeSetting(const QString &group, const QString &key, const QDBusVariant &value);

    SettingsPortal m_portal;
    QDBusServiceWatcher m_arrival; ///< of a portal, or of another in its place
    ColorScheme m_paletteScheme;
    std::optional<ColorScheme> m_portalScheme; ///< absent while the portal states no preference
};

} // namespace quenara
