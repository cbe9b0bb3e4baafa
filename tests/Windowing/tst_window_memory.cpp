#include "Files.h"
#include "GuiTestSupport.h"
#include "SymbolButton.h"
#include "WindowMemory.h"
#include "WindowPlace.h"
#include "WindowingWorld.h"

#include <QFile>
#include <QMenuBar>
#include <QScreen>
#include <QTemporaryDir>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

// The first screen has 1366 by 768 points, the second, on its right, 1920 by 1080.

namespace tst_window_memory {

namespace {

/// One start of the program, as far as the operator's window goes.
struct Start : WindowingWorld
{
    OperatorWindow window{store, windows, guard, commands, menus, caches};
    WindowMemory memory;

    explicit Start(const QString &file) : memory(window, file)
    {
        window.show();
        QTest::qWait(0); // until the platform has told where the window is
    }

    QRect available() const { return window.screen()->availableGeometry(); }
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void moveTo(Start &start, const QRect &place)
{
    start.window.setGeometry(place);
    QTRY_COMPARE(start.window.geometry(), place);
}

} // namespace

class TestWindowMemory : public GuiTest
{
    Q_OBJECT

private slots:
    void theFirstWindowLiesWithinASmallScreenWithAllOfItsControls()
    {
        const QTemporaryDir folder;
        const Start start(folder.filePath(u"place.json"_s));
        QCOMPARE(start.window.screen()->name(), u"laptop"_s);
        QVERIFY(start.available().contains(start.window.frameGeometry()));
        const QList<SymbolButton *> buttons =
            start.window.findChild<QWidget *>(u"transportBar"_s)->findChildren<SymbolButton *>();
        QCOMPARE(buttons.size(), 9);
        for (const SymbolButton *button : buttons) {
            const QRect place(button->mapToGlobal(QPoint()), button->size());
            QVERIFY2(start.available().contains(place), qPrintable(button->text()));
        }
    }

    void theContentKeepsItsMinimumWhereTheScreenHasRoomForIt()
    {
        const QTemporaryDir folder;
        Start start(folder.filePath(u"place.json"_s));
        const auto smallest = [&] {
            start.window.resize(10, 10);
            return start.window.centralWidget()->size();
        };
        QCOMPARE(smallest().width(), 1180);
        QVERIFY(smallest().height() < 696);
        moveTo(start, {1500, 100, 1400, 900});
        QTRY_COMPARE(start.window.screen()->name(), u"projector"_s);
        QTRY_COMPARE(smallest(), QSize(1180, 760));
    }

    void theWindowComesBackWhereItWas_data()
    {
        QTest::addColumn<QRect>("place");
        QTest::newRow("on the first screen") << QRect(60, 50, 1240, 680);
        QTest::newRow("on the second screen") << QRect(1500, 90, 1300, 820);
    }

    void theWindowComesBackWhereItWas()
    {
        QFETCH(QRect, place);
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"state/place.json"_s);
        {
            Start start(file);
            moveTo(start, place);
            start.window.close();
        }
        const Start again(file);
        QTRY_COMPARE(again.window.geometry(), place);
        QVERIFY(!again.window.isMaximized());
    }

    void aMaximizedWindowComesBackMaximizedWithItsOwnSizeBehindThat()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"place.json"_s);
        const QRect place(1500, 90, 1300, 820);
        {
            Start start(file);
            moveTo(start, place);
            start.window.showMaximized();
            QTRY_VERIFY(start.window.width() > place.width());
            start.window.close();
        }
        Start again(file);
        QVERIFY(again.window.isMaximized());
        QCOMPARE(again.window.screen()->name(), u"projector"_s);
        again.window.showNormal();
        QTRY_COMPARE(again.window.size(), place.size());
    }

    void aWindowThatIsNotTouchedKeepsWhatIsStored_data()
    {
        QTest::addColumn<WindowPlace>("place");
        const WindowPlace place{.screen = u"projector"_s, .corner = {200, 90}, .size = {1300, 820}};
        WindowPlace other = place;
        QTest::newRow("as it is") << other;
        other.isMaximized = true;
        QTest::newRow("maximized") << other;
        other = place;
        other.screen = u"unplugged"_s;
        QTest::newRow("of a screen that is gone") << other;
        other = place;
        other.screen = u"laptop"_s;
        QTest::newRow("of a screen that has become too small for it") << other;
    }

    void aWindowThatIsNotTouchedKeepsWhatIsStored()
    {
        QFETCH(WindowPlace, place);
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"place.json"_s);
        writeFile(file, encode(place));
        for (int start = 0; start < 3; ++start)
            Start(file).window.close();
        QCOMPARE(decodeWindowPlace(contentOf(file)), std::optional(place));
    }

    void aWindowWhoseScreenIsGoneComesBackWithinThePrimaryOne()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"place.json"_s);
        writeFile(file,
                  encode({.screen = u"unplugged"_s, .corner = {900, 700}, .size = {1600, 1000}}));
        const Start start(file);
        QCOMPARE(start.window.screen()->name(), u"laptop"_s);
        QVERIFY(start.available().contains(start.window.frameGeometry()));
    }

    void aDamagedFileCountsAsNone()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"place.json"_s);
        const QSize first = Start(folder.filePath(u"none.json"_s)).window.size();
        writeFile(file, R"({"screen": "projector", "x": "far"})");
        QCOMPARE(Start(file).window.size(), first);
        QVERIFY(QFile::remove(file) && QDir().mkdir(file));
        QCOMPARE(Start(file).window.size(), first);
    }

    void theFileIsStateAndLiesInTheUsersFolderForIt_data()
    {
        QTest::addColumn<QByteArray>("folder");
        QTest::addColumn<QString>("expected");
        const QString standard = QDir::homePath() + u"/.local/state/Quenara/operator-window.json"_s;
        QTest::newRow("the chosen one")
            << QByteArray("/somewhere/state") << u"/somewhere/state/Quenara/operator-window.json"_s;
        QTest::newRow("the standard one where none is chosen") << QByteArray() << standard;
        QTest::newRow("nor does a relative one count") << QByteArray("state") << standard;
    }

    void theFileIsStateAndLiesInTheUsersFolderForIt()
    {
        QFETCH(QByteArray, folder);
        QFETCH(QString, expected);
        const QByteArray before = qgetenv("XDG_STATE_HOME");
        qputenv("XDG_STATE_HOME", folder);
        const QString file = WindowMemory::standardFile();
        qputenv("XDG_STATE_HOME", before);
        QCOMPARE(file, expected);
    }
};

QUENARA_GUI_TEST(TestWindowMemory)

} // namespace tst_window_memory

#include "tst_window_memory.moc"
