#include "Files.h"
#include "ProjectFileService.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/stat.h>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_changed_files {

namespace {

using Answer = WorkspaceStore::ChangedFileAnswer;

/// A world with an edited document whose file another program has changed since.
struct ChangedWorld : World
{
    QUrl file = fileUrl(u"Sunday.quenara"_s);

    ChangedWorld() : World(showOf({2}))
    {
        panels.answer = file;
        store.saveProject();
        store.updateProjectName(u"Mine"_s);
    }

    QString nameInFile() const { return ProjectFileService::load(file, someTime()).name; }

    /// Writes another project there.
    void changeFile() const
    {
        ZelvoProject other = showOf({1});
        other.name = u"Theirs"_s;
        ProjectFileService::save(other, file, someTime());
    }

    void setTime(const QDateTime &time, const Caller &caller = Caller::current()) const
    {
        QFile changed(file.toLocalFile());
        if (!changed.open(QIODevice::ReadWrite)
            || !changed.setFileTime(time, QFileDevice::FileModificationTime))
            fail(u"the file cannot be changed"_s, caller);
    }
};

struct stat attributesOf(const QUrl &file)
{
    struct stat attributes
    {};
    ::stat(QFile::encodeName(file.toLocalFile()).constData(), &attributes);
    return attributes;
}

/// Changes a letter of the project's name in the file, where it is, and puts its time back.
void changeInSecret(const QUrl &file, const Caller &caller = Caller::current())
{
    const struct stat before = attributesOf(file);
    QFile opened(file.toLocalFile());
    if (!opened.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        fail(u"the file cannot be changed"_s, caller);
    const qsizetype name = opened.readAll().indexOf("Mine");
    const timespec times[] = {before.st_atim, before.st_mtim};
    if (name < 0 || !opened.seek(name) || opened.write("W") != 1
        || ::futimens(opened.handle(), times) != 0)
        fail(u"the file cannot be changed"_s, caller);
}

/// Changes the document and saves it again.
bool asksAtTheNextSave(ChangedWorld &world)
{
    const qsizetype before = world.changedFiles.size();
    world.store.updateProjectName(u"Mine again"_s);
    world.store.saveProject();
    return world.changedFiles.size() > before;
}

} // namespace

class TestChangedFiles : public QObject
{
    Q_OBJECT

private slots:
    void aFileThatNobodyElseChangedIsSavedUnasked()
    {
        ChangedWorld world;
        world.store.saveProject();
        world.store.updateProjectName(u"Mine again"_s);
        world.store.saveProject();
        world.store.openProject(world.file);
        world.store.updateProjectName(u"Reopened"_s);
        world.store.saveProject();
        QCOMPARE(world.changedFiles, QStringList());
        QCOMPARE(world.nameInFile(), u"Reopened"_s);
    }

    void aChangedFileStaysWhenTheSaveIsCancelled()
    {
        ChangedWorld world;
        world.changeFile();
        const Snapshot before = snapshotOf(world.store);
        world.store.saveProject();
        QCOMPARE(world.changedFiles, QStringList{u"Sunday.quenara"_s});
        QCOMPARE(world.nameInFile(), u"Theirs"_s);
        QVERIFY(snapshotOf(world.store) == before);
    }

    void aChangedFileIsReplacedWhenToldSoAndThenBelongsToTheDocument()
    {
        ChangedWorld world;
        world.changeFile();
        world.changedFileAnswer = Answer::saveAnyway;
        world.store.saveProject();
        QCOMPARE(world.nameInFile(), u"Mine"_s);
        QVERIFY(!world.store.hasUnsavedChanges());
        QCOMPARE(world.changedFiles.size(), 1);
        QVERIFY(!asksAtTheNextSave(world));
    }

    void aChangeThatNeitherTheTimeNorTheSizeTellsOfCounts_data()
    {
        QTest::addColumn<bool>("isOpened");
        QTest::newRow("since it was saved") << false;
        QTest::newRow("since it was opened") << true;
    }

    void aChangeThatNeitherTheTimeNorTheSizeTellsOfCounts()
    {
        QFETCH(bool, isOpened);
        ChangedWorld world;
        world.store.saveProject();
        if (isOpened)
            world.store.openProject(world.file);
        const struct stat before = attributesOf(world.file);
        changeInSecret(world.file);
        const struct stat after = attributesOf(world.file);
        QCOMPARE(after.st_size, before.st_size);
        QCOMPARE(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
        QCOMPARE(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
        world.store.saveProject();
        QCOMPARE(world.changedFiles, QStringList{u"Sunday.quenara"_s});
        QCOMPARE(world.nameInFile(), u"Wine"_s);
    }

    void whatLeavesTheBytesIsNoChange_data()
    {
        using Happens = void (*)(const ChangedWorld &);
        QTest::addColumn<Happens>("happens");
        const auto row = [](const char *name, Happens happens) { QTest::newRow(name) << happens; };
        row("other permissions", [](const ChangedWorld &world) {
            QVERIFY(QFile::setPermissions(world.file.toLocalFile(),
                                          QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
        });
        row("another time", [](const ChangedWorld &world) {
            world.setTime(QDateTime::currentDateTime().addSecs(-100));
        });
        row("an equal copy in its place", [](const ChangedWorld &world) {
            const QString file = world.file.toLocalFile();
            QVERIFY(QFile::copy(file, file + u"~"_s) && QFile::remove(file));
            QVERIFY(QFile::rename(file + u"~"_s, file));
        });
        row("a folder that is renamed and back", [](const ChangedWorld &world) {
            const QString folder = world.folder.path();
            QVERIFY(QDir().rename(folder, folder + u"~"_s));
            QVERIFY(QDir().rename(folder + u"~"_s, folder));
        });
    }

    void whatLeavesTheBytesIsNoChange()
    {
        using Happens = void (*)(const ChangedWorld &);
        QFETCH(Happens, happens);
        ChangedWorld world;
        happens(world);
        world.store.saveProject();
        QCOMPARE(world.changedFiles, QStringList());
        QCOMPARE(world.nameInFile(), u"Mine"_s);
    }

    void savingElsewhereLeavesTheChangedFile()
    {
        ChangedWorld world;
        world.changeFile();
        world.changedFileAnswer = Answer::saveAs;
        world.panels.answer = world.fileUrl(u"Other.quenara"_s);
        world.store.saveProject();
        QCOMPARE(world.nameInFile(), u"Theirs"_s);
        QCOMPARE(world.store.currentFileURL(), world.panels.answer);
        QVERIFY(!world.store.hasUnsavedChanges());
        QCOMPARE(world.changedFiles.size(), 1);
        QVERIFY(!asksAtTheNextSave(world));
    }

    void aFileThatIsGoneIsWrittenAgainUnasked()
    {
        ChangedWorld world;
        QVERIFY(QFile::remove(world.file.toLocalFile()));
        world.store.saveProject();
        QCOMPARE(world.changedFiles, QStringList());
        QCOMPARE(world.nameInFile(), u"Mine"_s);
    }

    void unsavedWorkThatGoesOnKnowsWhichFileItCameFrom()
    {
        ChangedWorld before;
        Session session;
        session.file = before.file.toLocalFile();
        session.fileVersion = before.store.fileVersion();
        session.hasUnsavedChanges = true;
        session.project = before.store.project();

        World after;
        QVERIFY(after.store.continueSession(session));
        after.store.saveProject();
        QCOMPARE(after.changedFiles, QStringList());

        before.changeFile();
        World later;
        QVERIFY(later.store.continueSession(session));
        later.store.saveProject();
        QCOMPARE(later.changedFiles, QStringList{u"Sunday.quenara"_s});
        QCOMPARE(before.nameInFile(), u"Theirs"_s);
    }
};

QUENARA_TEST(TestChangedFiles)

} // namespace tst_changed_files

#include "tst_changed_files.moc"
