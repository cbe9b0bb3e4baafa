#include "DisplayOutputView.h"
#include "GuiTestSupport.h"
#include "QuenaraApp.h"
#include "StartPanelView.h"
#include "TestSupport.h"

#include <QFileDialog>
#include <QMenuBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace {

QColor windowColor()
{
    return QApplication::palette().color(QPalette::Window);
}

/// A shown window of the program; null when there is none.
QWidget *shownWindow(const QString &name)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name && window->isVisible())
            return window;
    }
    return nullptr;
}

void choose(const QString &title, const Caller &caller = Caller::current())
{
    const auto *operatorWindow = qobject_cast<QMainWindow *>(shownWindow(u"operatorWindow"_s));
    for (const QAction *menu : operatorWindow->menuBar()->actions()) {
        for (QAction *action : menu->menu()->actions()) {
            if (action->text() == title)
                return action->trigger();
        }
    }
    fail(QStringLiteral("there is no menu item \"%1\"").arg(title), caller);
}

void chooseAppearance(const QString &title, const Caller &caller = Caller::current())
{
    press(*shownWindow(u"settingsWindow"_s), title, 0, caller);
}

QColor cornerOf(QWidget &window)
{
    return window.grab().toImage().pixelColor(1, window.height() - 2);
}

} // namespace

class TestQuenaraApp : public GuiTest
{
    Q_OBJECT

private slots:
    static void initTestCase()
    {
        QApplication::setOrganizationName(u"Quenara"_s);
        QApplication::setApplicationName(u"Quenara"_s);
    }

    void theApplicationFollowsThePreferenceFromTheStartAndAsItChanges()
    {
        QSettings().setValue(u"appAppearance"_s, u"dark"_s);
        QuenaraApp app{QPalette(Qt::white)};
        QCOMPARE(windowColor(), ZelvoTheme::dark().appBackground);
        app.appearance().setRawValue(u"light"_s);
        QCOMPARE(windowColor(), ZelvoTheme::light().appBackground);
        app.appearance().setRawValue(u"dark"_s);
        QCOMPARE(windowColor(), ZelvoTheme::dark().appBackground);
        app.appearance().setRawValue(u"none of the three"_s);
        QCOMPARE(windowColor(), ZelvoTheme::light().appBackground);
        QCOMPARE(QSettings().value(u"appAppearance"_s).toString(), u"none of the three"_s);
    }

    void anAppearanceChosenDuringTheServiceShowsAtOnceEverywhereButOnTheSlides()
    {
        QSettings().setValue(u"appAppearance"_s, u"light"_s);
        QuenaraApp app{QPalette(Qt::white)};
        app.openDocument(dataPath(u"current.quenara"_s));
        choose(u"Open Display Window"_s);
        choose(u"Open Monitor Window"_s);
        choose(u"Settings..."_s);
        QWidget &stage = *shownWindow(u"stageWindow"_s);
        QWidget &display = *shownWindow(u"displayWindow"_s);
        QWidget &settings = *shownWindow(u"settingsWindow"_s);
        const QImage slide = display.grab().toImage();
        QCOMPARE(cornerOf(settings), ZelvoTheme::light().appBackground);
        QCOMPARE(cornerOf(stage), ZelvoTheme::light().appBackground);

        chooseAppearance(u"Dark"_s);
        QCOMPARE(QSettings().value(u"appAppearance"_s).toString(), u"dark"_s);
        QCOMPARE(windowColor(), ZelvoTheme::dark().appBackground);
        QCOMPARE(cornerOf(settings), ZelvoTheme::dark().appBackground);
        QCOMPARE(cornerOf(stage), ZelvoTheme::dark().appBackground);
        QCOMPARE(static_cast<OutputWindow &>(display).appearance(), AppAppearance::dark);
        QCOMPARE(largestDifference(display.grab().toImage(), slide), 0);
    }

    void settingsOpenOnceHoweverOftenTheyAreAskedFor()
    {
        const QuenaraApp app{QPalette(Qt::white)};
        QVERIFY(!shownWindow(u"settingsWindow"_s));
        QWidget &operatorWindow = *shownWindow(u"operatorWindow"_s);
        operatorWindow.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&operatorWindow));
        QTest::keyClick(operatorWindow.windowHandle(), Qt::Key_Comma, Qt::ControlModifier);
        QWidget *settings = shownWindow(u"settingsWindow"_s);
        QVERIFY(settings);
        QVERIFY(QTest::qWaitForWindowActive(settings));
        QTest::keyClick(settings->windowHandle(), Qt::Key_Comma, Qt::ControlModifier);
        choose(u"Settings..."_s);
        const QWidgetList windows = QApplication::topLevelWidgets();
        QCOMPARE(std::count_if(windows.begin(), windows.end(),
                               [](const QWidget *window) {
                                   return window->objectName() == u"settingsWindow"_s;
                               }),
                 1);
    }

    void theStartPanelStandsOnTheOperatorWindow()
    {
        QuenaraApp app{QPalette(Qt::white)};
        QVERIFY(!shownWindow(u"startPanel"_s));
        app.showStartPanel();
        QTRY_VERIFY(shownWindow(u"startPanel"_s));
        QCOMPARE(shownWindow(u"startPanel"_s)->parentWidget(), shownWindow(u"operatorWindow"_s));
    }

    void filePanelsStartBesideTheOpenDocument()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"Sunday.quenara"_s);
        QVERIFY(QFile::copy(dataPath(u"current.quenara"_s), path));
        QuenaraApp app{QPalette(Qt::white)};
        app.openDocument(path);
        QString shown;
        QTimer looking;
        connect(&looking, &QTimer::timeout, this, [&shown] {
            if (auto *panel = qobject_cast<QFileDialog *>(QApplication::activeModalWidget())) {
                shown = panel->directory().path();
                panel->reject();
            }
        });
        looking.start(50);
        choose(u"Open..."_s);
        QCOMPARE(shown, folder.path());
    }
};

QUENARA_GUI_TEST_MAIN(TestQuenaraApp)
#include "tst_quenara_app.moc"
