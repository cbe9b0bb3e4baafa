#include "DisplayOutputView.h"
#include "GuiTestSupport.h"
#include "QuenaraApp.h"
#include "RecentProjectsStore.h"
#include "SessionRecorder.h"
#include "StartPanelView.h"
#include "StateFolder.h"
#include "TestSupport.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_quenara_app {

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

/// Whether the operator's window tells that unsaved changes would be lost in a crash.
bool warnsOfACrash()
{
    for (const QLabel *label : shownWindow(u"operatorWindow"_s)->findChildren<QLabel *>()) {
        if (label->text() == u"No crash recovery"_s)
            return label->isVisible();
    }
    return false;
}

/// Chooses the menu item of that title or, if that is a menu itself, its first item.
void choose(const QString &title, const Caller &caller = Caller::current())
{
    const auto *operatorWindow = qobject_cast<QMainWindow *>(shownWindow(u"operatorWindow"_s));
    for (const QAction *menu : operatorWindow->menuBar()->actions()) {
        for (QAction *action : menu->menu()->actions()) {
            if (action->text() == title)
                return (action->menu() ? action->menu()->actions().first() : action)->trigger();
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
        QDir(stateFolder()).removeRecursively(); // what a test run that was ended has left
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

    void thatNothingWouldComeBackAfterACrashIsToldWithoutAQuestion()
    {
        const QByteArray home = qgetenv("XDG_STATE_HOME");
        qputenv("XDG_STATE_HOME", "/proc/home"); // where nobody can make a folder
        {
            QuenaraApp app{QPalette(Qt::white)};
            QWidget &window = *shownWindow(u"operatorWindow"_s);
            showActive(window);
            QVERIFY(!warnsOfACrash());
            const QWidget *focused = QApplication::focusWidget();
            QTest::ignoreMessage(QtInfoMsg, "Quenara could not write its recovery journal.");
            app.openDocument(dataPath(u"current.quenara"_s));
            QVERIFY(warnsOfACrash());
            QCOMPARE(QApplication::focusWidget(), focused);
            QVERIFY(!QApplication::activeModalWidget());
            qputenv("XDG_STATE_HOME", home);
        }
        QuenaraApp app{QPalette(Qt::white)};
        app.openDocument(dataPath(u"current.quenara"_s));
        QVERIFY(!warnsOfACrash());
    }

    void theStartPanelStandsOnTheOperatorWindow()
    {
        QuenaraApp app{QPalette(Qt::white)};
        QVERIFY(!shownWindow(u"startPanel"_s));
        app.showStartPanel();
        QTRY_VERIFY(shownWindow(u"startPanel"_s));
        QCOMPARE(shownWindow(u"startPanel"_s)->parentWidget(), shownWindow(u"operatorWindow"_s));
    }

    void aDocumentThatAnotherProgramHasOpenIsOpenedOnlyWhenToldSo_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<QString>("button"); // none: Escape
        QTest::addColumn<bool>("isOpened");
        for (const QString &way : {u"the command line"_s, u"Open..."_s, u"Open Recent"_s}) {
            const QByteArray by = way.toUtf8();
            QTest::addRow("%s: Open Anyway", by.constData()) << way << u"Open Anyway"_s << true;
            QTest::addRow("%s: Cancel", by.constData()) << way << u"Cancel"_s << false;
            QTest::addRow("%s: Escape", by.constData()) << way << QString() << false;
        }
    }

    void aDocumentThatAnotherProgramHasOpenIsOpenedOnlyWhenToldSo()
    {
        QFETCH(QString, way);
        QFETCH(QString, button);
        QFETCH(bool, isOpened);
        World other;
        const SessionRecorder recorder(other.store, stateFolder() + u"/recovery"_s);
        const QUrl file = other.fileUrl(u"Sunday.quenara"_s);
        other.panels.answer = file;
        other.store.saveProject();
        const QString link = other.folder.filePath(u"Link.quenara"_s);
        QVERIFY(QFile::link(file.toLocalFile(), link));

        QSettings preferences;
        RecentProjectsStore::add(preferences, QUrl::fromLocalFile(link), u"Sunday"_s,
                                 QDateTime::currentDateTimeUtc());
        QuenaraApp app{QPalette(Qt::white)};
        QStringList asked;
        QTimer answering;
        connect(&answering, &QTimer::timeout, this, [&] {
            QWidget *dialog = QApplication::activeModalWidget();
            if (!dialog || !dialog->isActiveWindow())
                return;
            if (auto *panel = qobject_cast<QFileDialog *>(dialog)) {
                panel->findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(link);
                panel->findChild<QDialogButtonBox *>()->buttons().constFirst()->click();
            } else if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
                asked.append(box->text());
                if (button.isEmpty()) {
                    QTest::keyClick(box, Qt::Key_Escape);
                } else {
                    press(*box, button);
                }
            }
        });
        answering.start(20);
        if (way == u"the command line"_s) {
            app.start(link);
            QTRY_COMPARE(asked.size(), 1);
        } else {
            choose(way);
        }
        QCOMPARE(asked, QStringList{u"Link.quenara is open in another running Quenara."_s});
        const QWidget *window = shownWindow(u"operatorWindow"_s);
        QCOMPARE(window->windowTitle().startsWith(other.store.project().name), isOpened);
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

QUENARA_GUI_TEST(TestQuenaraApp)

} // namespace tst_quenara_app

#include "tst_quenara_app.moc"
