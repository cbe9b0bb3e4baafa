#include "SystemColorScheme.h"

#include <QDBusPendingCallWatcher>
#include <QPalette>

namespace quenara {

namespace {

// The setting of the freedesktop desktop portal, and its values.
const auto settingGroup = QStringLiteral("org.freedesktop.appearance");
const auto settingKey = QStringLiteral("color-scheme");
const auto readMethod = QStringLiteral("Read");
constexpr unsigned prefersDark = 1;
constexpr unsigned prefersLight = 2;
constexpr int answerMilliseconds = 500;

/// The portal wraps the value in one variant or, in its older call, in two.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

SettingsPortal::SettingsPortal(const QDBusConnection &bus)
    : QDBusAbstractInterface(QStringLiteral("org.freedesktop.portal.Desktop"),
                             QStringLiteral("/org/freedesktop/portal/desktop"),
                             "org.freedesktop.portal.Settings", bus, nullptr)
{
    // Qt connects no signal of a type that it does not know by its name. This one it comes to know
    // when anything else of the process has used D-Bus.
    qRegisterMetaType<QDBusVariant>();
}

SystemColorScheme::SystemColorScheme(const QDBusConnection &bus, const QPalette &platformPalette,
                                     QObject *parent)
    : QObject(parent), m_portal(bus),
      m_arrival(m_portal.service(), bus, QDBusServiceWatcher::WatchForRegistration),
      m_paletteScheme(colorSchemeOf(platformPalette))
{
    if (!bus.isConnected())
        return;
    connect(&m_arrival, &QDBusServiceWatcher::serviceRegistered, this,
            &SystemColorScheme::askForSetting);
    connect(&m_portal, &SettingsPortal::SettingChanged, this, &SystemColorScheme::takeSetting);
    readSetting();
}

void SystemColorScheme::readSetting()
{
    // The program waits for the answer, so that no window is first drawn in the other scheme.
    m_portal.setTimeout(answerMilliseconds);
    const QDBusMessage answer = m_portal.call(readMethod, settingGroup, settingKey);
    m_portal.setTimeout(-1);
    if (answer.type() == QDBusMessage::ReplyMessage) {
        takeAnswer(answer);
    } else {
        askForSetting(); // a portal that is still starting answers later
    }
}

void SystemColorScheme::askForSetting()
{
    auto *watcher =
        new QDBusPendingCallWatcher(m_portal.asyncCall(readMethod, settingGroup, settingKey), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        if (!watcher->isError())
            takeAnswer(watcher->reply());
    });
}

void SystemColorScheme::takeAnswer(const QDBusMessage &answer)
{
    if (!answer.arguments().isEmpty())
        takeSetting(settingGroup, settingKey, QDBusVariant(answer.arguments().constFirst()));
}

void SystemColorScheme::takeSetting(const QString &group, const QString &key,
                                    const QDBusVariant &value)
{
    if (group != settingGroup || key != settingKey)
        return;
    const ColorScheme before = scheme();
    switch (unwrapped(value.variant()).toUInt()) {
    case prefersDark:
        m_portalScheme = ColorScheme::dark;
        break;
    case prefersLight:
        m_portalScheme = ColorScheme::light;
        break;
    default:
        m_portalScheme.reset();
        break;
    }
    if (scheme() != before)
        emit schemeChanged(scheme());
}

} // namespace quenara
