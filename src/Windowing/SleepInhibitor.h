#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>

#include <optional>

namespace quenara {

/// Asks one of the desktop's services not to let the screens go dark. A service that comes up later
/// or restarts is asked then.
class InhibitLock : public QObject
{
    Q_OBJECT

public:
    /// A freedesktop service with Inhibit(application, reason) and UnInhibit(cookie).
    struct Service
    {
        QString name;
        QString path;
        QString interface;
    };

    InhibitLock(const QDBusConnection &bus, Service service, QObject *parent = nullptr);
    /// Releases the inhibition. A request without an answer yet ends with the bus connection.
    ~InhibitLock() override;

    void setHeld(bool held);

private:
    void update();
    void takeAnswer(const QDBusPendingReply<unsigned> &answer);
    void followService(const QString &service, const QString &oldOwner, const QString &newOwner);
    QDBusMessage call(const QString &method) const;

    QDBusConnection m_bus;
    Service m_service;
    QDBusServiceWatcher m_watcher;
    bool m_isWanted = false;
    bool m_isAsking = false;
    std::optional<unsigned> m_cookie; ///< names the inhibition that the service holds for us
};

/// Keeps the screens from going dark while the audience watches one, through the desktop's screen
/// saver and its power management, whichever there are.
class SleepInhibitor
{
public:
    explicit SleepInhibitor(const QDBusConnection &bus);

    void setActive(bool active);

private:
    InhibitLock m_screenSaver;
    InhibitLock m_powerManagement;
};

} // namespace quenara
