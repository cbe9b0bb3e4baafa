#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QVariant>

#include <memory>
#include <vector>

namespace quenara {

/// Asks one of the session's services not to let the screens go dark. A service that comes up later
/// or restarts is asked then.
class InhibitLock : public QObject
{
    Q_OBJECT

public:
    /// A service with a method Inhibit. What that answers names the inhibition.
    struct Service
    {
        QString name;
        QString path;
        QString interface;
        QVariantList arguments; ///< of Inhibit
        /// The method that ends the named inhibition; none where the name is that of an object,
        /// which has a method of its own for that.
        QString release;
    };

    InhibitLock(const QDBusConnection &bus, Service service, QObject *parent = nullptr);
    /// Releases the inhibition. A request without an answer yet ends with the bus connection.
    ~InhibitLock() override;

    void setHeld(bool held);

private:
    void update();
    void takeAnswer(const QDBusMessage &answer);
    void followService(const QString &service, const QString &oldOwner, const QString &newOwner);
    [[nodiscard]] QDBusMessage inhibition() const;
    [[nodiscard]] QDBusMessage releaseOf(const QVariant &name) const;

    QDBusConnection m_bus;
    Service m_service;
    QDBusServiceWatcher m_watcher;
    bool m_isWanted = false;
    bool m_isAsking = false;
    QVariant m_name; ///< of the inhibition that the service holds for us
};

/// Keeps the screens from going dark while the audience watches one: through the services of the
/// session, whichever there are, and through the X server, which needs none.
class SleepInhibitor
{
public:
    explicit SleepInhibitor(const QDBusConnection &bus);
    ~SleepInhibitor();

    SleepInhibitor(const SleepInhibitor &) = delete;
    SleepInhibitor &operator=(const SleepInhibitor &) = delete;

    void setActive(bool active);

private:
    std::vector<std::unique_ptr<InhibitLock>> m_locks;
    bool m_isActive = false;
};

} // namespace quenara
