#pragma once

#include "SessionBus.h"

#include <QAbstractEventDispatcher>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QMutex>
#include <QMutexLocker>
#include <QObject>
#include <QSet>
#include <QString>
#include <QVariantMap>

#include <memory>
#include <vector>

namespace quenara::test {

/// What a service of the desktop was asked, from whichever thread.
class Requests
{
public:
    unsigned inhibit(const QString &told)
    {
        const QMutexLocker lock(&m_mutex);
        m_told = told;
        m_held.insert(++m_lastCookie);
        return m_lastCookie;
    }

    void release(unsigned cookie)
    {
        const QMutexLocker lock(&m_mutex);
        m_held.remove(cookie);
    }

    qsizetype held() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_held.size();
    }

    unsigned made() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_lastCookie;
    }

    /// Who asked or, where that is not said, why.
    QString told() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_told;
    }

private:
    mutable QMutex m_mutex;
    QString m_told;
    QSet<unsigned> m_held;
    unsigned m_lastCookie = 0;
};

inline const auto screenSaverService = QStringLiteral("org.freedesktop.ScreenSaver");
inline const auto portalService = QStringLiteral("org.freedesktop.portal.Desktop");
inline const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");

/// What GNOME's service and the portal are asked to hold off.
constexpr unsigned suspendingAndGoingIdle = 12;

// NOLINTBEGIN(readability-identifier-naming): D-Bus calls them so

class ScreenSaver : public QObject, public Requests
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")

public slots:
    unsigned Inhibit(const QString &application, const QString & /*reason*/)
    {
        return inhibit(application);
    }
    void UnInhibit(unsigned cookie) { release(cookie); }
};

class PowerManagement : public QObject, public Requests
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.PowerManagement.Inhibit")

public slots:
    unsigned Inhibit(const QString &application, const QString & /*reason*/)
    {
        return inhibit(application);
    }
    void UnInhibit(unsigned cookie) { release(cookie); }
};

class SessionManager : public QObject, public Requests
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.gnome.SessionManager")

public slots:
    unsigned Inhibit(const QString &application, unsigned /*window*/, const QString & /*reason*/,
                     unsigned what)
    {
        return what == suspendingAndGoingIdle ? inhibit(application) : 0;
    }
    void Uninhibit(unsigned cookie) { release(cookie); }
};

/// What the portal's answer names.
class PortalRequest : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    PortalRequest(Requests &requests, unsigned cookie) : m_requests(requests), m_cookie(cookie) {}

public slots:
    void Close() { m_requests.release(m_cookie); }

private:
    Requests &m_requests;
    unsigned m_cookie;
};

class Portal : public QObject, public Requests
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")

public slots:
    QDBusObjectPath Inhibit(const QString & /*window*/, unsigned what, const QVariantMap &options)
    {
        if (what != suspendingAndGoingIdle)
            return {};
        const unsigned cookie = inhibit(options.value(QStringLiteral("reason")).toString());
        const QString path = QStringLiteral("/org/freedesktop/portal/request/%1").arg(cookie);
        m_made.push_back(std::make_unique<PortalRequest>(*this, cookie));
        // The connection has the service's name.
        QDBusConnection(portalService)
            .registerObject(path, m_made.back().get(), QDBusConnection::ExportAllSlots);
        return QDBusObjectPath(path);
    }

private:
    std::vector<std::unique_ptr<PortalRequest>> m_made;
};

// NOLINTEND(readability-identifier-naming)

inline void offer(SessionBus &bus, ScreenSaver &service)
{
    bus.offer(screenSaverService, QStringLiteral("/org/freedesktop/ScreenSaver"), service);
}

/// Returns when the screen saver has answered all that was asked over \a program before, and the
/// program has taken its answers.
inline void takeAnswers(const QDBusConnection &program)
{
    // Both the service and the bus keep the order.
    QDBusMessage last = QDBusMessage::createMethodCall(
        screenSaverService, QStringLiteral("/org/freedesktop/ScreenSaver"), screenSaverService,
        QStringLiteral("UnInhibit"));
    program.call(last << 0U);
    // One call leaves what has a lower priority than the events of windows.
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {}
}

} // namespace quenara::test
