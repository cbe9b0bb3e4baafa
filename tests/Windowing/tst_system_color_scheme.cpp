#include "GuiTestSupport.h"
#include "SystemColorScheme.h"
#include "WindowingWorld.h"

#include <QDBusMessage>
#include <QProcess>
#include <QSignalSpy>
#include <QThread>

using namespace quenara;
using namespace quenara::test;

namespace {

constexpr unsigned noPreference = 0;
constexpr unsigned prefersDark = 1;
constexpr unsigned prefersLight = 2;
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");

/// The settings of a desktop portal.
class Portal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit Portal(unsigned scheme) : m_scheme(scheme) {}

public slots:
    QDBusVariant Read(const QString &, const QString &) // NOLINT(readability-*): D-Bus calls it so
    {
        // The call has always wrapped its answer twice.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(m_scheme)));
    }

private:
    unsigned m_scheme;
};

/// A session bus with a portal that answers from a thread of its own.
class Desktop
{
public:
    explicit Desktop(unsigned scheme) : m_portal(scheme)
    {
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--session"), QStringLiteral("--nofork"),
                        QStringLiteral("--print-address")});
        if (!m_daemon.waitForReadyRead())
            qFatal("no dbus-daemon");
        m_address = QString::fromUtf8(m_daemon.readLine().trimmed());
        m_portal.moveToThread(&m_thread);
        m_thread.start();
        QDBusConnection bus = connection(QStringLiteral("portal"));
        bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
        bus.registerObject(portalPath, &m_portal, QDBusConnection::ExportAllSlots);
    }

    ~Desktop()
    {
        QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
        QDBusConnection::disconnectFromBus(QStringLiteral("program"));
        m_thread.quit();
        m_thread.wait();
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }

    Desktop(const Desktop &) = delete;
    Desktop &operator=(const Desktop &) = delete;

    QDBusConnection connection(const QString &name) const
    {
        return QDBusConnection::connectToBus(m_address, name);
    }

    void change(const QString &group, unsigned scheme) const
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            portalPath, QStringLiteral("org.freedesktop.portal.Settings"),
            QStringLiteral("SettingChanged"));
        signal << group << QStringLiteral("color-scheme")
               << QVariant::fromValue(QDBusVariant(scheme));
        connection(QStringLiteral("portal")).send(signal);
    }

private:
    QProcess m_daemon;
    QString m_address;
    QThread m_thread;
    Portal m_portal;
};

const auto appearanceGroup = QStringLiteral("org.freedesktop.appearance");

} // namespace

class TestSystemColorScheme : public GuiTest
{
    Q_OBJECT

private slots:
    void withoutAPortalThePlatformsPaletteDecides()
    {
        const QDBusConnection none(QStringLiteral("none"));
        QCOMPARE(SystemColorScheme(none, QPalette(Qt::white)).scheme(), ColorScheme::light);
        QCOMPARE(SystemColorScheme(none, QPalette(Qt::black)).scheme(), ColorScheme::dark);
    }

    void thePortalDecidesBeforeThePalette_data()
    {
        QTest::addColumn<unsigned>("setting");
        QTest::addColumn<ColorScheme>("expected");
        QTest::newRow("dark") << prefersDark << ColorScheme::dark;
        QTest::newRow("light") << prefersLight << ColorScheme::light;
        QTest::newRow("no preference leaves it to the palette")
            << noPreference << ColorScheme::light;
    }

    void thePortalDecidesBeforeThePalette()
    {
        QFETCH(unsigned, setting);
        QFETCH(ColorScheme, expected);
        const Desktop desktop(setting);
        const SystemColorScheme system(desktop.connection(QStringLiteral("program")),
                                       QPalette(Qt::white));
        QCOMPARE(system.scheme(), expected);
    }

    void aChangeOnTheDesktopSwitchesTheApplicationWhileItFollowsTheSystem()
    {
        const Desktop desktop(prefersLight);
        SystemColorScheme system(desktop.connection(QStringLiteral("program")),
                                 QPalette(Qt::white));
        PictureCache pictures;
        WindowCoordinator windows(system, pictures);
        windows.updateAppearance(AppAppearance::system);
        const auto background = [] { return QApplication::palette().color(QPalette::Window); };
        QCOMPARE(background(), ZelvoTheme::light().appBackground);
        desktop.change(appearanceGroup, prefersDark);
        QTRY_COMPARE(background(), ZelvoTheme::dark().appBackground);

        windows.updateAppearance(AppAppearance::light);
        const QSignalSpy changed(&system, &SystemColorScheme::schemeChanged);
        desktop.change(appearanceGroup, prefersLight);
        desktop.change(appearanceGroup, prefersDark);
        QTRY_COMPARE(changed.size(), 2);
        QCOMPARE(background(), ZelvoTheme::light().appBackground);
    }

    void otherSettingsOfThePortalChangeNothing()
    {
        const Desktop desktop(prefersLight);
        const SystemColorScheme system(desktop.connection(QStringLiteral("program")),
                                       QPalette(Qt::white));
        const QSignalSpy changed(&system, &SystemColorScheme::schemeChanged);
        desktop.change(QStringLiteral("org.example.other"), prefersDark);
        desktop.change(appearanceGroup, prefersDark);
        QTRY_COMPARE(changed.size(), 1);
        QCOMPARE(system.scheme(), ColorScheme::dark);
    }
};

QUENARA_GUI_TEST_MAIN(TestSystemColorScheme)
#include "tst_system_color_scheme.moc"
