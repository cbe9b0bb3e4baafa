#include "DesktopServices.h"
#include "SleepInhibitor.h"
#include "TestMain.h"

#include <QTest>

#include <array>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_sleep_inhibitor {

class TestSleepInhibitor : public QObject
{
    Q_OBJECT

private slots:
    void theDesktopIsAskedWhileActiveAndNotBeforeOrAfter()
    {
        ScreenSaver screenSaver;
        PowerManagement powerManagement;
        SessionManager sessionManager;
        Portal portal;
        SessionBus bus;
        offer(bus, screenSaver);
        bus.offer(QStringLiteral("org.freedesktop.PowerManagement"),
                  QStringLiteral("/org/freedesktop/PowerManagement/Inhibit"), powerManagement);
        bus.offer(QStringLiteral("org.gnome.SessionManager"),
                  QStringLiteral("/org/gnome/SessionManager"), sessionManager);
        bus.offer(portalService, portalPath, portal);
        const std::array<const Requests *, 4> services{&screenSaver, &powerManagement,
                                                       &sessionManager, &portal};
        SleepInhibitor inhibitor(bus.connection(QStringLiteral("program")));
        for (unsigned time = 1; time <= 3; ++time) {
            inhibitor.setActive(true);
            for (const Requests *service : services) {
                QTRY_COMPARE(service->held(), 1);
                QCOMPARE(service->made(), time);
            }
            inhibitor.setActive(false);
            for (const Requests *service : services)
                QTRY_COMPARE(service->held(), 0);
        }
        QCOMPARE(screenSaver.told(), QStringLiteral("Quenara"));
        QCOMPARE(sessionManager.told(), QStringLiteral("Quenara"));
        QCOMPARE(portal.told(), QStringLiteral("The audience display is open"));
    }

    void askedTwiceTheDesktopHoldsOnce()
    {
        ScreenSaver screenSaver;
        SessionBus bus;
        offer(bus, screenSaver);
        SleepInhibitor inhibitor(bus.connection(QStringLiteral("program")));
        inhibitor.setActive(true);
        inhibitor.setActive(true);
        QTRY_COMPARE(screenSaver.held(), 1);
        inhibitor.setActive(true);
        inhibitor.setActive(false);
        QTRY_COMPARE(screenSaver.held(), 0);
        QCOMPARE(screenSaver.made(), 1U);
    }

    void whatIsGivenUpBeforeTheAnswerCameIsReleasedWhenItComes()
    {
        ScreenSaver screenSaver;
        SessionBus bus;
        offer(bus, screenSaver);
        SleepInhibitor inhibitor(bus.connection(QStringLiteral("program")));
        inhibitor.setActive(true);
        inhibitor.setActive(false);
        QTRY_COMPARE(screenSaver.made(), 1U);
        QTRY_COMPARE(screenSaver.held(), 0);
    }

    void theEndOfTheProgramReleasesIt()
    {
        ScreenSaver screenSaver;
        SessionBus bus;
        offer(bus, screenSaver);
        {
            SleepInhibitor inhibitor(bus.connection(QStringLiteral("program")));
            inhibitor.setActive(true);
            QTRY_COMPARE(screenSaver.held(), 1);
            takeAnswers(bus.connection(QStringLiteral("program")));
        }
        QTRY_COMPARE(screenSaver.held(), 0);
    }

    void aServiceThatComesUpLaterIsAskedThen()
    {
        ScreenSaver screenSaver;
        SessionBus bus;
        SleepInhibitor inhibitor(bus.connection(QStringLiteral("program")));
        inhibitor.setActive(true);
        QCoreApplication::processEvents();
        offer(bus, screenSaver);
        QTRY_COMPARE(screenSaver.held(), 1);
    }

    void aServiceThatStartsAgainIsAskedAgain()
    {
        ScreenSaver first;
        ScreenSaver second;
        SessionBus bus;
        offer(bus, first);
        SleepInhibitor inhibitor(bus.connection(QStringLiteral("program")));
        inhibitor.setActive(true);
        QTRY_COMPARE(first.held(), 1);
        bus.withdraw(screenSaverService);
        offer(bus, second);
        QTRY_COMPARE(second.held(), 1);
        inhibitor.setActive(false);
        QTRY_COMPARE(second.held(), 0);
    }

    void aDesktopWithoutTheServicesIsLeftAlone()
    {
        ScreenSaver screenSaver;
        SessionBus bus;
        SleepInhibitor onABus(bus.connection(QStringLiteral("program")));
        SleepInhibitor onNone(QDBusConnection(QStringLiteral("none")));
        for (SleepInhibitor *inhibitor : {&onABus, &onNone}) {
            inhibitor->setActive(true);
            takeAnswers(bus.connection(QStringLiteral("program")));
            inhibitor->setActive(false);
        }
        offer(bus, screenSaver); // too late: nobody wants it any more
        // The program hears of the service, then the service of what the program asks, if it does.
        for (int hop = 0; hop < 2; ++hop)
            takeAnswers(bus.connection(QStringLiteral("program")));
        QCOMPARE(screenSaver.made(), 0U);
    }
};

QUENARA_TEST(TestSleepInhibitor)

} // namespace tst_sleep_inhibitor

#include "tst_sleep_inhibitor.moc"
