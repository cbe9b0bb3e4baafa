#include "DesktopServices.h"
#include "GuiTestSupport.h"
#include "QuenaraApp.h"

#include <QAction>

#include <memory>

using namespace quenara;
using namespace quenara::test;

namespace tst_awake_screens {

class TestAwakeScreens : public GuiTest
{
    Q_OBJECT

private slots:
    void theDesktopStaysAwakeWhileTheDisplayIsOpen()
    {
        ScreenSaver screenSaver;
        SessionBus bus;
        offer(bus, screenSaver);
        // The bus that the program meets: it asks for it here for the first time.
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
        auto app = std::make_unique<QuenaraApp>(QPalette(Qt::white));
        QCOMPARE(screenSaver.held(), 0);
        toggleDisplay();
        QTRY_COMPARE(screenSaver.held(), 1);
        toggleDisplay();
        QTRY_COMPARE(screenSaver.held(), 0);
        toggleDisplay();
        QTRY_COMPARE(screenSaver.held(), 1);
        takeAnswers(QDBusConnection::sessionBus());
        app.reset();
        QTRY_COMPARE(screenSaver.held(), 0);
    }

private:
    static void toggleDisplay(const Caller &caller = Caller::current())
    {
        QAction *toggle = nullptr;
        for (const QWidget *widget : QApplication::allWidgets()) {
            for (QAction *action : widget->actions()) {
                if (action->text().endsWith(QStringLiteral("Display Window")))
                    toggle = action;
            }
        }
        if (!toggle)
            fail(QStringLiteral("nothing opens or closes the display"), caller);
        toggle->trigger();
    }
};

QUENARA_GUI_TEST(TestAwakeScreens)

} // namespace tst_awake_screens

#include "tst_awake_screens.moc"
