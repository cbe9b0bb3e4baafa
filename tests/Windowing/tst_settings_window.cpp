#include "GuiTestSupport.h"
#include "PreferencesView.h"
#include "SettingsWindow.h"
#include "WindowingWorld.h"

#include <QPushButton>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_settings_window {

namespace {

struct Program : WindowingWorld
{
    OperatorWindow operatorWindow{store, windows, guard, commands, menus, caches};
    SettingsWindow settings{appearance, menus, &operatorWindow};

    Program()
    {
        operatorWindow.show();
        settings.present();
        showActive(settings);
    }

    QPushButton *segment(const QString &title, const Caller &caller = Caller::current()) const
    {
        return &named<QPushButton>(settings, title, caller);
    }

    QString selected() const
    {
        QStringList titles;
        for (const auto *button : settings.findChildren<QPushButton *>()) {
            if (button->isChecked())
                titles.append(button->text());
        }
        return titles.join(u' ');
    }
};

} // namespace

class TestSettingsWindow : public GuiTest
{
    Q_OBJECT

private slots:
    void itIsAsLargeAsItsContent()
    {
        Program program;
        QCOMPARE(program.settings.size(), QSize(430, 230));
        program.settings.resize(600, 600);
        QCoreApplication::processEvents();
        QCOMPARE(program.settings.size(), QSize(430, 230));
    }

    void itShowsTheStoredAppearanceFromTheStart()
    {
        WindowingWorld world;
        world.appearance.setRawValue(u"light"_s);
        const SettingsWindow settings(world.appearance, world.menus, nullptr);
        QVERIFY(settings.findChildren<QPushButton *>().at(1)->isChecked());
    }

    void choosingDarkStoresDark()
    {
        Program program;
        QCOMPARE(program.selected(), u"System"_s);
        QTest::mouseClick(program.segment(u"Dark"_s), Qt::LeftButton);
        QCOMPARE(program.preferences.value(u"appAppearance"_s).toString(), u"dark"_s);
        QCOMPARE(program.selected(), u"Dark"_s);
    }

    void anUnknownStoredTextSelectsNothingUntilAChoiceReplacesIt()
    {
        Program program;
        program.appearance.setRawValue(u"sepia"_s);
        QCOMPARE(program.selected(), QString());
        QCOMPARE(program.preferences.value(u"appAppearance"_s).toString(), u"sepia"_s);
        QTest::mouseClick(program.segment(u"System"_s), Qt::LeftButton);
        QCOMPARE(program.preferences.value(u"appAppearance"_s).toString(), u"system"_s);
        QCOMPARE(program.selected(), u"System"_s);
    }

    void itComesBackInFrontWhereItWas()
    {
        Program program;
        program.operatorWindow.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&program.operatorWindow));
        program.settings.present();
        QVERIFY(QTest::qWaitForWindowActive(&program.settings));
        QVERIFY(program.settings.isVisible());
        program.settings.setWindowState(Qt::WindowMinimized);
        program.settings.present();
        QVERIFY(!program.settings.isMinimized());
    }

    void escapeClosesItAndItOpensAgain()
    {
        Program program;
        QTest::keyClick(&program.settings, Qt::Key_Escape);
        QVERIFY(!program.settings.isVisible());
        program.settings.present();
        QVERIFY(program.settings.isVisible());
    }

    void noChoiceHasTheKeyboardWhenItOpens()
    {
        const Program program;
        QVERIFY(qobject_cast<PreferencesView *>(QApplication::focusWidget()));
    }

    void itLeavesTheOperatorWindowUsable()
    {
        const Program program;
        QVERIFY(!program.settings.isModal());
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QUENARA_GUI_TEST(TestSettingsWindow)

} // namespace tst_settings_window

#include "tst_settings_window.moc"
