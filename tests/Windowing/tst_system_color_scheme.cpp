#include "DesktopServices.h"
#include "GuiTestSupport.h"
#include "SessionBus.h"
#include "SystemColorScheme.h"
#include "WindowingWorld.h"

#include <QDBusMessage>
#include <QSignalSpy>

using namespace quenara;
using namespace quenara::test;

namespace tst_system_color_scheme {

namespace {

constexpr unsigned noPreference = 0;
constexpr unsigned prefersDark = 1;
constexpr unsigned prefersLight = 2;

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

/// A session bus with a portal.
class Desktop
{
public:
    explicit Desktop(unsigned scheme) : m_portal(scheme)
    {
        m_bus.offer(portalService, portalPath, m_portal);
    }

    QDBusConnection connection(const QString &name) { return m_bus.connection(name); }

    void change(const QString &group, unsigned scheme)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            portalPath, QStringLiteral("org.freedesktop.portal.Settings"),
            QStringLiteral("SettingChanged"));
        signal << group << QStringLiteral("color-scheme")
               << QVariant::fromValue(QDBusVariant(scheme));
        connection(portalService).send(signal);
    }

private:
    Portal m_portal;
    SessionBus m_bus;
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
        Desktop desktop(setting);
        const SystemColorScheme system(desktop.connection(QStringLiteral("program")),
                                       QPalette(Qt::white));
        QCOMPARE(system.scheme(), expected);
    }

    void aChangeOnTheDesktopSwitchesTheApplicationWhileItFollowsTheSystem()
    {
        Desktop desktop(prefersLight);
        SystemColorScheme system(desktop.connection(QStringLiteral("program")),
                                 QPalette(Qt::white));
        RenderCaches caches;
        WindowCoordinator windows(system, caches);
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
        Desktop desktop(prefersLight);
        const SystemColorScheme system(desktop.connection(QStringLiteral("program")),
                                       QPalette(Qt::white));
        const QSignalSpy changed(&system, &SystemColorScheme::schemeChanged);
        desktop.change(QStringLiteral("org.example.other"), prefersDark);
        desktop.change(appearanceGroup, prefersDark);
        QTRY_COMPARE(changed.size(), 1);
        QCOMPARE(system.scheme(), ColorScheme::dark);
    }
};

QUENARA_GUI_TEST(TestSystemColorScheme)

} // namespace tst_system_color_scheme

#include "tst_system_color_scheme.moc"
