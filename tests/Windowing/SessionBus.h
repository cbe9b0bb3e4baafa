#pragma once

#include "TestFailure.h"

#include <QDBusConnection>
#include <QObject>
#include <QProcess>
#include <QStringList>
#include <QThread>

namespace quenara::test {

/// A session bus of its own, whose services answer from another thread than the program's.
class SessionBus
{
public:
    explicit SessionBus(const Caller &caller = Caller::current())
    {
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--session"), QStringLiteral("--nofork"),
                        QStringLiteral("--print-address")});
        if (!m_daemon.waitForReadyRead())
            fail(QStringLiteral("no dbus-daemon"), caller);
        m_address = QString::fromUtf8(m_daemon.readLine().trimmed());
        m_services.moveToThread(&m_thread);
        m_thread.start();
    }

    ~SessionBus()
    {
        // A service that still answers needs its connection.
        m_thread.quit();
        m_thread.wait();
        for (const QString &name : m_connections)
            QDBusConnection::disconnectFromBus(name);
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }

    SessionBus(const SessionBus &) = delete;
    SessionBus &operator=(const SessionBus &) = delete;

    /// The connection of this name, one for each of those who meet on the bus.
    QDBusConnection connection(const QString &name)
    {
        if (!m_connections.contains(name))
            m_connections.append(name);
        return QDBusConnection::connectToBus(m_address, name);
    }

    /// Offers \a object's slots as a service. It must outlive the bus.
    void offer(const QString &service, const QString &path, QObject &object)
    {
        object.moveToThread(&m_thread);
        QDBusConnection bus = connection(service);
        bus.registerService(service);
        bus.registerObject(path, &object, QDBusConnection::ExportAllSlots);
    }

    /// Ends a service as its process's end would.
    void withdraw(const QString &service)
    {
        m_connections.removeAll(service);
        // In the services' thread, so that no service is giving an answer meanwhile.
        QMetaObject::invokeMethod(
            &m_services, [&] { QDBusConnection::disconnectFromBus(service); },
            Qt::BlockingQueuedConnection);
    }

    QString address() const { return m_address; }

private:
    QProcess m_daemon;
    QString m_address;
    QThread m_thread;
    QObject m_services; ///< lives in the services' thread, to run code there
    QStringList m_connections;
};

} // namespace quenara::test
