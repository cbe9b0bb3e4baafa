#pragma once

#include "TestFailure.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QHash>
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
        const QStringList services = m_paths.keys();
        for (const QString &service : services)
            withdraw(service);
        for (const QString &name : m_connections)
            QDBusConnection::disconnectFromBus(name);
        m_thread.quit();
        m_thread.wait();
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
        m_paths.insert(service, path);
        bus.registerService(service);
        bus.registerObject(path, &object, QDBusConnection::ExportAllSlots);
    }

    /// Ends a service as its process's end would.
    void withdraw(const QString &service)
    {
        m_connections.removeAll(service);
        const auto end = [&] {
            QDBusConnection(service).unregisterObject(m_paths.take(service));
            // What was asked before is answered: Qt crashes over a call that waits for its object
            // longer than the connection exists.
            QCoreApplication::sendPostedEvents();
            QDBusConnection::disconnectFromBus(service);
        };
        // In the services' thread, so that no service is giving an answer meanwhile.
        QMetaObject::invokeMethod(&m_services, end, Qt::BlockingQueuedConnection);
    }

    QString address() const { return m_address; }

private:
    QProcess m_daemon;
    QString m_address;
    QThread m_thread;
    QObject m_services; ///< lives in the services' thread, to run code there
    QStringList m_connections;
    QHash<QString, QString> m_paths; ///< of each service's object
};

} // namespace quenara::test
