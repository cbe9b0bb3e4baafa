#include "SleepInhibitor.h"

#include "XServer.h"

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QVariantMap>

#include <utility>

namespace quenara {

namespace {

/// Those of freedesktop, which most desktops have, GNOME's own, and the portal, which stands for
/// whatever the session has.
QList<InhibitLock::Service> services()
{
    constexpr unsigned suspendingAndGoingIdle = 4U | 8U; // as GNOME and the portal have it
    const auto application = QStringLiteral("Quenara");
    const auto reason = QStringLiteral("The audience display is open");
    return {
        {.name = QStringLiteral("org.freedesktop.ScreenSaver"),
         .path = QStringLiteral("/org/freedesktop/ScreenSaver"),
         .interface = QStringLiteral("org.freedesktop.ScreenSaver"),
         .arguments = {application, reason},
         .release = QStringLiteral("UnInhibit")},
        {.name = QStringLiteral("org.freedesktop.PowerManagement"),
         .path = QStringLiteral("/org/freedesktop/PowerManagement/Inhibit"),
         .interface = QStringLiteral("org.freedesktop.PowerManagement.Inhibit"),
         .arguments = {application, reason},
         .release = QStringLiteral("UnInhibit")},
        {.name = QStringLiteral("org.gnome.SessionManager"),
         .path = QStringLiteral("/org/gnome/SessionManager"),
         .interface = QStringLiteral("org.gnome.SessionManager"),
         .arguments = {application, 0U /* no window */, reason, suspendingAndGoingIdle},
         .release = QStringLiteral("Uninhibit")},
        {.name = QStringLiteral("org.freedesktop.portal.Desktop"),
         .path = QStringLiteral("/org/freedesktop/portal/desktop"),
         .interface = QStringLiteral("org.freedesktop.portal.Inhibit"),
         .arguments = {QString() /* no window */, suspendingAndGoingIdle,
                       QVariantMap{{QStringLiteral("reason"), reason}}},
         .release = {}},
    };
}

} // namespace

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
    if (m_isWanted && !m_name.isValid()) {
        m_isAsking = true;
        auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(inhibition()), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
            watcher->deleteLater();
            takeAnswer(watcher->reply());
        });
    } else if (!m_isWanted && m_name.isValid()) {
        m_bus.send(releaseOf(std::exchange(m_name, {})));
    }
}

void InhibitLock::takeAnswer(const QDBusMessage &answer)
{
    m_isAsking = false;
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty())
        return; // followService() asks again once there is such a service
    m_name = answer.arguments().constFirst();
    update(); // the inhibition may not be wanted any more
}

void InhibitLock::followService(const QString & /*service*/, const QString & /*oldOwner*/,
                                const QString &newOwner)
{
    m_name.clear(); // the service that gave it is gone
    if (!newOwner.isEmpty())
        update();
}

QDBusMessage InhibitLock::inhibition() const
{
    QDBusMessage request = QDBusMessage::createMethodCall(
        m_service.name, m_service.path, m_service.interface, QStringLiteral("Inhibit"));
    request.setArguments(m_service.arguments);
    return request;
}

QDBusMessage InhibitLock::releaseOf(const QVariant &name) const
{
    if (m_service.release.isEmpty()) {
        return QDBusMessage::createMethodCall(m_service.name, name.value<QDBusObjectPath>().path(),
                                              QStringLiteral("org.freedesktop.portal.Request"),
                                              QStringLiteral("Close"));
    }
    QDBusMessage request = QDBusMessage::createMethodCall(m_service.name, m_service.path,
                                                          m_service.interface, m_service.release);
    request << name;
    return request;
}

SleepInhibitor::SleepInhibitor(const QDBusConnection &bus)
{
    for (const InhibitLock::Service &service : services())
        m_locks.push_back(std::make_unique<InhibitLock>(bus, service));
}

SleepInhibitor::~SleepInhibitor()
{
    setActive(false);
}

void SleepInhibitor::setActive(bool active)
{
    for (const auto &lock : m_locks)
        lock->setHeld(active);
    if (std::exchange(m_isActive, active) != active)
        keepXScreensOn(active);
}

} // namespace quenara
