#pragma once

#include "SessionBus.h"

#include <QAbstractEventDispatcher>
#include <QDBusMessage>
#include <QMutex>
#include <QMutexLocker>
#include <QObject>
#include <QSet>
#include <QString>

namespace quenara::test {

/// What a service of the desktop was asked, from whichever thread.
class Requests
{
public:
    unsigned inhibit(const QString &application)
    {
        const QMutexLocker lock(&m_mutex);
        m_application = application;
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

    QString application() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_application;
    }

private:
    mutable QMutex m_mutex;
    QString m_application;
    QSet<unsigned> m_held;
    unsigned m_lastCookie = 0;
};

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

// NOLINTEND(readability-identifier-naming)

inline const auto screenSaverService = QStringLiteral("org.freedesktop.ScreenSaver");

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
