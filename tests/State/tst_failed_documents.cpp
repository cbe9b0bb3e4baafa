#include "BusyWorld.h"
#include "Documents.h"
#include "TestMain.h"

#include <QTest>

#include <sys/stat.h>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_failed_documents {

namespace {

using Operation = void (WorkspaceStore::*)();

const QString justTheMessage = u"nothing but the message has changed"_s;

/// Whether \a world is as it was \a before but for the message of \a error, in words that a failed
/// comparison can show.
QString changeSince(Everything before, World &world, ProjectFileError::Case error)
{
    before.state.errorMessage = ProjectFileError(error).description();
    const Everything after = everythingOf(world);
    if (after.state.errorMessage != before.state.errorMessage)
        return u"the message is: "_s + after.state.errorMessage.value_or(u"(none)"_s);
    if (after.state != before.state)
        return u"the state has changed"_s;
    return after == before ? justTheMessage : u"the history or the preferences have changed"_s;
}

/// "pipe.quenara", "socket.quenara", "circle.quenara" and a link to the first.
void makeSpecialFiles(const QDir &folder, const Caller &caller = Caller::current())
{
    const auto make = [&](const char *name, mode_t kind) {
        const QByteArray path = QFile::encodeName(folder.filePath(QLatin1String(name)));
        return ::mknod(path.constData(), kind | S_IRUSR | S_IWUSR, 0) == 0;
    };
    const QString circle = folder.filePath(u"circle.quenara"_s);
    if (!make("pipe.quenara", S_IFIFO) || !make("socket.quenara", S_IFSOCK)
        || !QFile::link(circle, circle)
        || !QFile::link(folder.filePath(u"pipe.quenara"_s), folder.filePath(u"to-pipe.quenara"_s)))
        fail(u"no special files can be made"_s, caller);
}

} // namespace

class TestFailedDocuments : public QObject
{
    Q_OBJECT

private slots:
    void aBadFileChangesNothingButTheMessage_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray whole = dataBytes(u"current.quenara"_s);
        QTest::newRow("an empty file") << QByteArray();
        QTest::newRow("white space") << QByteArray(" \n\t");
        QTest::newRow("half a document") << whole.first(whole.size() / 2);
        QTest::newRow("all but the last brace") << whole.trimmed().chopped(1);
        QTest::newRow("an array") << dataBytes(u"array.json"_s);
        QTest::newRow("a document that is not UTF-8")
            << replaced(whole, "\"Doors at six\"", "\"Doors at \xff\"");
        QTest::newRow("NUL bytes") << QByteArray(4096, '\0');
        QTest::newRow("an image") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
        QTest::newRow("an item of an unknown type")
            << replaced(whole, R"("type": "song")", R"("type": "Song")");
        QTest::newRow("a name that is a number")
            << replaced(dataBytes(u"empty-slides.quenara"_s), R"("name": "Bare")", R"("name": 7)");
        QTest::newRow("a nesting without end") << QByteArray("{\"x\":") + QByteArray(100000, '[');
    }

    void aBadFileChangesNothingButTheMessage()
    {
        QFETCH(QByteArray, bytes);
        BusyWorld world;
        QFile file(world.folder.filePath(u"bad.quenara"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        const Everything before = everythingOf(world);
        world.store.openProject(world.fileUrl(u"bad.quenara"_s));
        QCOMPARE(changeSince(before, world, ProjectFileError::unsupportedFormat), justTheMessage);
        QCOMPARE(bytesOf(file.fileName()), bytes);
    }

    void whatCannotBeReadChangesNothingButTheMessage_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("a missing file") << u"missing.quenara"_s;
        QTest::newRow("a missing folder") << u"missing/show.quenara"_s;
        QTest::newRow("a folder") << u"saved"_s;
        QTest::newRow("a link to nothing") << u"link.quenara"_s;
        QTest::newRow("a file taken for a folder") << u"saved/show.quenara/show.quenara"_s;
        QTest::newRow("a name beyond all lengths") << QString(5000, u'x');
        QTest::newRow("a pipe that nobody writes to") << u"pipe.quenara"_s;
        QTest::newRow("a link to that pipe") << u"to-pipe.quenara"_s;
        QTest::newRow("a socket") << u"socket.quenara"_s;
        QTest::newRow("a link that leads in a circle") << u"circle.quenara"_s;
        QTest::newRow("the memory of a process") << u"/proc/self/mem"_s;
        QTest::newRow("the kernel's log") << u"/proc/kmsg"_s;
        QTest::newRow("a hundred gigabytes") << u"large.quenara"_s;
        QTest::newRow("a device without an end") << u"/dev/zero"_s;
        QTest::newRow("a device without a byte") << u"/dev/null"_s;
    }

    void whatCannotBeReadChangesNothingButTheMessage()
    {
        QFETCH(QString, path);
        BusyWorld world;
        const QDir folder(world.folder.path());
        QVERIFY(QFile::link(u"nowhere"_s, folder.filePath(u"link.quenara"_s)));
        makeSpecialFiles(folder);
        QFile large(folder.filePath(u"large.quenara"_s));
        QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(100'000'000'000));
        const Everything before = everythingOf(world);
        world.store.openProject(QUrl::fromLocalFile(folder.absoluteFilePath(path)));
        QCOMPARE(changeSince(before, world, ProjectFileError::unableToRead), justTheMessage);
    }

    void aFileWithoutLeaveToReadChangesNothingButTheMessage()
    {
        BusyWorld world;
        const Everything before = everythingOf(world);
        QCOMPARE(::chmod(QFile::encodeName(world.folder.path()).constData(), 0755), 0);
        QVERIFY(QFile::setPermissions(world.saved.toLocalFile(), {}));
        // Root may read every file.
        QCOMPARE(statusOfOpening(world, world.saved, dropPrivileges), 0);
        QVERIFY(everythingOf(world) == before);
    }

    void aFailedSaveChangesNothingButTheMessage_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QString>("path");
        const auto row = [](const char *name, const QString &path) {
            QTest::addRow("save: %s", name) << &WorkspaceStore::saveProject << path;
            QTest::addRow("save as: %s", name) << &WorkspaceStore::saveProjectAs << path;
        };
        row("a folder in the file's place", u"taken.quenara"_s);
        row("a missing folder", u"missing/show.quenara"_s);
        row("a file taken for a folder", u"file/show.quenara"_s);
        row("a pipe", u"pipe.quenara"_s);
        row("a link to that pipe", u"to-pipe.quenara"_s);
        row("a socket", u"socket.quenara"_s);
        row("a link that leads in a circle", u"circle.quenara"_s);
        row("a link to a device", u"device.quenara"_s);
        row("a name beyond all lengths", QString(5000, u'x'));
        row("a place where nobody may write", u"/proc/show.quenara"_s);
    }

    void aFailedSaveChangesNothingButTheMessage()
    {
        QFETCH(Operation, operation);
        QFETCH(QString, path);
        BusyWorld world;
        const QDir folder(world.folder.path());
        const QUrl url = QUrl::fromLocalFile(folder.absoluteFilePath(path));
        QFile file(folder.filePath(u"file"_s));
        makeSpecialFiles(folder);
        QVERIFY(QFile::link(u"/dev/full"_s, folder.filePath(u"device.quenara"_s)));
        QVERIFY(folder.mkpath(u"taken.quenara"_s) && file.open(QIODevice::WriteOnly));
        world.panels.answer = url;
        if (operation == &WorkspaceStore::saveProject)
            world.store.newBlankProject();
        const Everything before = everythingOf(world);
        const QByteArray savedBytes = bytesOf(world.saved.toLocalFile());
        const QStringList entries = entriesOf(world.folder.path());
        (world.store.*operation)();
        QCOMPARE(world.panels.asked.size(), 1);
        QCOMPARE(changeSince(before, world, ProjectFileError::unableToWrite), justTheMessage);
        QCOMPARE(bytesOf(world.saved.toLocalFile()), savedBytes);
        QCOMPARE(entriesOf(world.folder.path()), entries);
        QVERIFY(!QFileInfo(u"/dev/full"_s).isFile());
    }

    void aSaveToAFolderThatIsGoneChangesNothingButTheMessage()
    {
        BusyWorld world;
        QVERIFY(QDir(world.folder.filePath(u"saved"_s)).removeRecursively());
        const Everything before = everythingOf(world);
        world.store.saveProject();
        QVERIFY(world.panels.asked.isEmpty());
        QCOMPARE(changeSince(before, world, ProjectFileError::unableToWrite), justTheMessage);
    }

    void aFileThatCannotBeReplacedIsKept()
    {
        BusyWorld world;
        const QString path = world.saved.toLocalFile();
        QVERIFY(QFile::remove(path) && QDir().mkpath(path + u"/inside"_s));
        const Everything before = everythingOf(world);
        world.store.saveProject();
        QCOMPARE(changeSince(before, world, ProjectFileError::unableToWrite), justTheMessage);
        QCOMPARE(entriesOf(path), QStringList{u"inside"_s});
    }
};

QUENARA_TEST(TestFailedDocuments)

} // namespace tst_failed_documents

#include "tst_failed_documents.moc"
