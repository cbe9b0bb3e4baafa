#pragma once

#include "ZelvoTheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QObject>

#include <optional>

namespace quenara {

/// The colour scheme of the desktop, followed live: what the desktop portal's settings say, else
/// the lightness of the platform's own palette.
class SystemColorScheme : public QObject
{
    Q_OBJECT

public:
    /// Without a portal on \a bus, \a platformPalette decides.
    SystemColorScheme(QDBusConnection bus, const QPalette &platformPalette,
                      QObject *parent = nullptr);

    ColorScheme scheme() const { return m_portalScheme.value_or(m_paletteScheme); }

signals:
    void schemeChanged(quenara::ColorScheme scheme);

private slots:
    void takeAnswer(const QDBusMessage &answer);
    void takeSetting(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void readSetting(const QDBusConnection &bus);

    ColorScheme m_paletteScheme;
    std::optional<ColorScheme> m_portalScheme; ///< absent while the portal states no preference
};

} // namespace quenara
