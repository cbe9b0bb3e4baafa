#include "SleepInhibitor.h"

#include <QDBusPendingCallWatcher>

#include <utility>

namespace quenara {

InhibitLock::InhibitLock(const QDBusConnection &bus, Service service, QObject *parent)
    : QObject(parent), m_bus(bus), m_service(std::move(service)), m_watcher(m_service.name, m_bus)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            &InhibitLock::followService);
}

InhibitLock::~InhibitLock()
{
    setHeld(false);
}

void InhibitLock::setHeld(bool held)
{
    m_isWanted = held;
    update();
}

void InhibitLock::update()
{
    if (!m_bus.isConnected() || m_isAsking)
        return;
    if (m_isWanted && !m_cookie) {
        QDBusMessage request = call(QStringLiteral("Inhibit"));
        request << QStringLiteral("Quenara") << QStringLiteral("The audience display is open");
        m_isAsking = true;
        auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(request), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
            watcher->deleteLater();
            takeAnswer(*watcher);
        });
    } else if (!m_isWanted && m_cookie) {
        QDBusMessage request = call(QStringLiteral("UnInhibit"));
        request << *std::exchange(m_cookie, std::nullopt);
        m_bus.send(request);
    }
}

void InhibitLock::takeAnswer(const QDBusPendingReply<unsigned> &answer)
{
    m_isAsking = false;
    if (answer.isError())
        return; // followService() asks again once there is such a service
    m_cookie = answer.value();
    update(); // the inhibition may not be wanted any more
}

void InhibitLock::followService(const QString & /*service*/, const QString & /*oldOwner*/,
                                const QString &newOwner)
{
    m_cookie.reset(); // the service that gave it is gone
    if (!newOwner.isEmpty())
        update();
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
