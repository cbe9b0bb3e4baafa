#include "Files.h"
#include "ProjectFileService.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QFile>
#include <QTest>

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

    /// Writes another project there, at a time that differs whatever the clock's steps are.
    void changeFile(const Caller &caller = Caller::current()) const
    {
        ZelvoProject other = showOf({1});
        other.name = u"Theirs"_s;
        ProjectFileService::save(other, file, someTime());
        setTime(QDateTime::currentDateTime().addSecs(-100), caller);
    }

    void setTime(const QDateTime &time, const Caller &caller = Caller::current()) const
    {
        QFile changed(file.toLocalFile());
        if (!changed.open(QIODevice::ReadWrite)
            || !changed.setFileTime(time, QFileDevice::FileModificationTime))
            fail(u"the file cannot be changed"_s, caller);
    }
};

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
        session.fileTime = before.store.fileTime();
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
