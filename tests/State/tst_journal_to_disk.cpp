#include "SessionRecorder.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTest>

#include <functional>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_journal_to_disk {

namespace {

int broughtToDiskCount = 0;

/// A world with unsaved work, all of which is on the disk.
struct KeptWorld : World
{
    SessionRecorder recorder{store, folder.filePath(u"recovery"_s)};

    KeptWorld() : World(showOf({3}))
    {
        store.updateProjectName(u"Changed"_s);
        handleEvents();
    }

    /// Does what is asked, and handles all events. Returns how often something was brought to the
    /// disk.
    template<class Do>
    int during(const Do &what)
    {
        broughtToDiskCount = 0;
        what();
        handleEvents();
        return broughtToDiskCount;
    }

    static void handleEvents() { QCoreApplication::sendPostedEvents(); }

    /// One more character in the project's name.
    void type() { store.updateProjectName(store.project().name + u'!'); }
};

/// Calls a function when it is handled.
class Listener : public QObject
{
public:
    explicit Listener(std::function<void()> heard) : m_heard(std::move(heard)) {}

protected:
    void customEvent(QEvent * /*event*/) override { m_heard(); }

private:
    std::function<void()> m_heard;
};

} // namespace

// Stands in the place of the C library's, for Qt as well.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): its names are not ours to use
extern "C" int fdatasync(int file)
{
    ++broughtToDiskCount;
    return int(::syscall(SYS_fdatasync, file));
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)

class TestJournalToDisk : public QObject
{
    Q_OBJECT

private slots:
    void anEditIsBroughtToTheDiskOnce()
    {
        KeptWorld world;
        QCOMPARE(world.during([&] { world.type(); }), 1);
        QCOMPARE(world.during([&] { world.store.undo(); }), 1);
        QCOMPARE(world.during([&] { world.store.addSlide(); }), 1);
        QCOMPARE(world.during([] {}), 0);
    }

    void aGestureIsBroughtToTheDiskAtItsEndAlone()
    {
        KeptWorld world;
        GestureID gesture{};
        const auto typeOn = [&] {
            gesture = world.store.beginGesture();
            for (int i = 0; i < 5; ++i) {
                world.type();
                KeptWorld::handleEvents();
            }
        };
        QCOMPARE(world.during(typeOn), 0);
        QCOMPARE(world.during([&] { world.store.endGesture(gesture); }), 1);
    }

    void whatIsToBeDoneAlreadyComesFirst()
    {
        KeptWorld world;
        int before = -1;
        Listener key([&before] { before = broughtToDiskCount; });
        const auto typeAndPress = [&] {
            world.type();
            QCoreApplication::postEvent(&key, new QEvent(QEvent::User));
        };
        QCOMPARE(world.during(typeAndPress), 1);
        QCOMPARE(before, 0);
    }

    void aStepOfTheShowWaitsForNoDisk()
    {
        KeptWorld world;
        const auto walk = [&] {
            world.store.nextLive();
            world.store.queueNext();
            world.store.toggleBlackout();
            world.store.goLive();
        };
        QCOMPARE(world.during(walk), 0);
    }

    void beforeTheMachineMayEndAllIsOnTheDisk_data()
    {
        using Change = void (*)(KeptWorld &);
        QTest::addColumn<Change>("change");
        QTest::newRow("an edit") << Change([](KeptWorld &world) { world.type(); });
        QTest::newRow("a step") << Change([](KeptWorld &world) { world.store.nextLive(); });
    }

    void beforeTheMachineMayEndAllIsOnTheDisk()
    {
        using Change = void (*)(KeptWorld &);
        QFETCH(Change, change);
        KeptWorld world;
        broughtToDiskCount = 0;
        change(world);
        world.recorder.setLeavesUnsavedWork(true);
        QCOMPARE(broughtToDiskCount, 1);
    }
};

QUENARA_TEST(TestJournalToDisk)

} // namespace tst_journal_to_disk

#include "tst_journal_to_disk.moc"
