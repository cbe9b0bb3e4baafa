#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>

#include <optional>

namespace quenara {

/// Asks one of the desktop's services not to let the screens go dark; one that comes up later or
/// again is asked then.
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
    /// Gives up what it holds. What is not answered yet goes with the bus.
    ~InhibitLock() override;

    void setHeld(bool held);

private slots:
    void takeCookie(const QDBusMessage &answer);
    void giveUp();
    void meetService(const QString &service, const QString &oldOwner, const QString &newOwner);

private:
    void settle();
    QDBusMessage call(const QString &method) const;

    QDBusConnection m_bus;
    Service m_service;
    QDBusServiceWatcher m_watcher;
    bool m_isWanted = false;
    bool m_isAsking = false;
    std::optional<unsigned> m_cookie;
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
