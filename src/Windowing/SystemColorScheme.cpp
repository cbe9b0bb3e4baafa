#include "SystemColorScheme.h"

#include <QPalette>

namespace quenara {

namespace {

// The settings interface of the freedesktop desktop portal.
const auto portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const auto settingGroup = QStringLiteral("org.freedesktop.appearance");
const auto settingKey = QStringLiteral("color-scheme");
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

SystemColorScheme::SystemColorScheme(QDBusConnection bus, const QPalette &platformPalette,
                                     QObject *parent)
    : QObject(parent), m_paletteScheme(colorSchemeOf(platformPalette))
{
    if (!bus.isConnected())
        return;
    bus.connect(portalService, portalPath, settingsInterface, QStringLiteral("SettingChanged"),
                this, SLOT(takeSetting(QString, QString, QDBusVariant)));
    readSetting(bus);
}

void SystemColorScheme::readSetting(const QDBusConnection &bus)
{
    QDBusMessage request = QDBusMessage::createMethodCall(
        portalService, portalPath, settingsInterface, QStringLiteral("Read"));
    request << settingGroup << settingKey;
    // Answered before the first window shows, so that none is drawn in the other scheme first.
    const QDBusMessage answer = bus.call(request, QDBus::Block, answerMilliseconds);
    if (answer.type() == QDBusMessage::ReplyMessage) {
        takeAnswer(answer);
    } else {
        // A portal that is only starting answers later.
        bus.callWithCallback(request, this, SLOT(takeAnswer(QDBusMessage)));
    }
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
