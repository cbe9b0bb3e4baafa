#include "ProjectCodec.h"
#include "ProjectNormalizer.h"
#include "RandomHand.h"
#include "SessionRecorder.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QCryptographicHash>
#include <QDir>
#include <QTest>

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_recovery_kills {

namespace {

constexpr int defaultKillCount = 20;
constexpr int longestLife = 150'000; ///< microseconds from the first edit on
/// In the log of a process, a line of its own: what was published so far is finished.
constexpr QByteArrayView finished = "finished";

/// All that a session is to bring back, as one line.
QByteArray digestOf(const WorkspaceState &state)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(ProjectCodec::encode(state.project));
    for (const auto &id : {state.selectedServiceItemID, state.selectedSlideID, state.queuedSlideID,
                           state.liveSlideID, state.selectedElementID})
        hash.addData(id.value_or(u"-"_s).toUtf8() + ' ');
    hash.addData(QByteArray::number(int(state.outputMode)));
    hash.addData(QByteArray::number(int(state.hasUnsavedChanges)));
    return hash.result().toHex();
}

/// Where a process that is to be killed works, and what it says of it.
struct Workplace
{
    QTemporaryDir folder;
    QString journals = folder.filePath(u"recovery"_s);
    QString document = folder.filePath(u"show.quenara"_s);
    QString log = folder.filePath(u"log"_s);

    QList<QByteArray> lines() const
    {
        QFile file(log);
        QList<QByteArray> lines =
            file.open(QIODevice::ReadOnly) ? file.readAll().split('\n') : QList<QByteArray>();
        if (!lines.isEmpty())
            lines.removeLast(); // what stands behind the last line end
        return lines;
    }
};

/// Edits until it is killed. Whatever is published is first said in the log.
[[noreturn]] void editForEver(const Workplace &place, bool hasFile, unsigned seed)
{
    const int log = ::open(QFile::encodeName(place.log).constData(),
                           O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const auto say = [log](QByteArray line) {
        line += '\n';
        if (::write(log, line.constData(), std::size_t(line.size())) != line.size())
            ::_exit(1);
    };
    World world;
    const auto sayState = [&] { say(digestOf(world.store.state())); };
    QObject::connect(&world.store, &WorkspaceStore::projectChanged, &world.store, sayState);
    QObject::connect(&world.store, &WorkspaceStore::changed, &world.store, sayState);
    SessionRecorder recorder(world.store, place.journals);
    if (hasFile) {
        world.panels.answer = QUrl::fromLocalFile(place.document);
        world.store.saveProject();
    } else {
        world.store.loadDemoProject();
    }
    RandomHand hand(world, seed);
    for (;;) {
        say(finished.toByteArray());
        hand.act([] { QCoreApplication::sendPostedEvents(); });
        QCoreApplication::sendPostedEvents();
    }
}

/// The work of a process that was killed at a random moment.
struct KilledWork
{
    Workplace place;
    QList<QByteArray> lines;

    KilledWork(bool hasFile, QRandomGenerator &random, const Caller &caller = Caller::current())
    {
        const unsigned seed = random.generate();
        const pid_t process = ::fork();
        if (process == 0)
            editForEver(place, hasFile, seed);
        const bool hasBegun =
            QTest::qWaitFor([this] { return place.lines().contains(finished); }, 20'000);
        ::usleep(useconds_t(random.bounded(longestLife)));
        ::kill(process, SIGKILL);
        int status = 0;
        ::waitpid(process, &status, 0);
        if (!hasBegun || !WIFSIGNALED(status))
            fail(u"the process did not work until it was killed"_s, caller);
        lines = place.lines();
    }
};

} // namespace

class TestRecoveryKills : public QObject
{
    Q_OBJECT

private slots:
    /// QUENARA_KILLS is the number of kills; their count and that of the states is printed.
    void whatComesBackAfterAKillIsAPublishedStateSinceTheLastFinishedEdit()
    {
        const int killCount = qEnvironmentVariableIntValue("QUENARA_KILLS") > 0
            ? qEnvironmentVariableIntValue("QUENARA_KILLS")
            : defaultKillCount;
        QRandomGenerator random(QRandomGenerator::global()->generate());
        qsizetype stateCount = 0;
        int unsavedCount = 0;
        for (int i = 0; i < killCount; ++i) {
            const KilledWork work(i % 2 == 0, random);
            const QList<LeftOverJournal> journals = leftOverJournals(work.place.journals);
            QCOMPARE(journals.size(), 1);
            World world;
            QVERIFY(world.store.continueSession(journals.first().session));
            unsavedCount += world.store.hasUnsavedChanges() ? 1 : 0;

            // What was published before the last edit was finished is too old, save the last of it.
            const qsizetype lastFinished = work.lines.lastIndexOf(finished);
            qsizetype oldest = lastFinished;
            while (oldest > 0 && work.lines.at(oldest) == finished)
                --oldest;
            const auto candidates = work.lines.sliced(oldest);
            QVERIFY2(candidates.contains(digestOf(world.store.state())),
                     QByteArray::number(i) + ": " + QByteArray::number(work.lines.size()));
            stateCount += work.lines.size() - work.lines.count(finished);
        }
        QVERIFY(stateCount > killCount);
        std::printf("%d kills, %lld published states, %d with unsaved work: each came back\n",
                    killCount, static_cast<long long>(stateCount), unsavedCount);
    }
};

QUENARA_TEST(TestRecoveryKills)

} // namespace tst_recovery_kills

#include "tst_recovery_kills.moc"
