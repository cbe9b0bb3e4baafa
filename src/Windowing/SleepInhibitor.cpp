#include "SleepInhibitor.h"

#include <utility>

namespace quenara {

InhibitLock::InhibitLock(const QDBusConnection &bus, Service service, QObject *parent)
    : QObject(parent), m_bus(bus), m_service(std::move(service)), m_watcher(m_service.name, m_bus)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &InhibitLock::meetService);
}

InhibitLock::~InhibitLock()
{
    setHeld(false);
}

void InhibitLock::setHeld(bool held)
{
    m_isWanted = held;
    settle();
}

void InhibitLock::settle()
{
    if (!m_bus.isConnected() || m_isAsking)
        return;
    if (m_isWanted && !m_cookie) {
        QDBusMessage request = call(QStringLiteral("Inhibit"));
        request << QStringLiteral("Quenara") << QStringLiteral("The audience display is open");
        m_isAsking =
            m_bus.callWithCallback(request, this, SLOT(takeCookie(QDBusMessage)), SLOT(giveUp()));
    } else if (!m_isWanted && m_cookie) {
        QDBusMessage request = call(QStringLiteral("UnInhibit"));
        request << *std::exchange(m_cookie, std::nullopt);
        m_bus.send(request);
    }
}

void InhibitLock::takeCookie(const QDBusMessage &answer)
{
    m_isAsking = false;
    if (!answer.arguments().isEmpty())
        m_cookie = answer.arguments().constFirst().toUInt();
    if (m_cookie)
        settle();
}

/// Until the service comes up.
void InhibitLock::giveUp()
{
    m_isAsking = false;
}

void InhibitLock::meetService(const QString & /*service*/, const QString & /*oldOwner*/,
                              const QString &newOwner)
{
    m_cookie.reset(); // the one that gave it is gone
    if (!newOwner.isEmpty())
        settle();
}

QDBusMessage InhibitLock::call(const QString &method) const
{
    return QDBusMessage::createMethodCall(m_service.name, m_service.path, m_service.interface,
                                          method);
}

SleepInhibitor::SleepInhibitor(const QDBusConnection &bus)
    : m_screenSaver(bus,
                    {.name = QStringLiteral("org.freedesktop.ScreenSaver"),
                     .path = QStringLiteral("/org/freedesktop/ScreenSaver"),
                     .interface = QStringLiteral("org.freedesktop.ScreenSaver")}),
      m_powerManagement(bus,
                        {.name = QStringLiteral("org.freedesktop.PowerManagement"),
                         .path = QStringLiteral("/org/freedesktop/PowerManagement/Inhibit"),
                         .interface = QStringLiteral("org.freedesktop.PowerManagement.Inhibit")})
{}

void SleepInhibitor::setActive(bool active)
{
    m_screenSaver.setHeld(active);
    m_powerManagement.setHeld(active);
}

} // namespace quenara
