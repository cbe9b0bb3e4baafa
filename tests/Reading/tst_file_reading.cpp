#include "ChildProcess.h"
#include "FileReading.h"
#include "Files.h"
#include "TestMain.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_file_reading {

class TestFileReading : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        QCOMPARE(::mkfifo(encodedPath(u"pipe"_s).constData(), 0600), 0);
        QVERIFY(QFile::link(path(u"pipe"_s), path(u"link to a pipe"_s)));
        QVERIFY(QFile::link(u"/dev/zero"_s, path(u"link to a device"_s)));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const QByteArray place = encodedPath(u"socket"_s);
        QVERIFY(std::size_t(place.size()) < sizeof(address.sun_path));
        std::copy(place.begin(), place.end(), address.sun_path);
        m_socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        QCOMPARE(::bind(m_socket, reinterpret_cast<sockaddr *>(&address), sizeof(address)), 0);
    }
    void cleanupTestCase() const { ::close(m_socket); }

    void aFileIsReadToItsEnd_data()
    {
        QTest::addColumn<qsizetype>("size");
        for (const qsizetype size : {0, 1, 65535, 65536, 65537, 1'000'000})
            QTest::addRow("%lld bytes", qlonglong(size)) << size;
    }
    void aFileIsReadToItsEnd()
    {
        QFETCH(qsizetype, size);
        const QByteArray bytes(size, 'x');
        writeFile(path(u"plain"_s), bytes);
        QCOMPARE(wholeFile(QUrl::fromLocalFile(path(u"plain"_s))), bytes);
    }

    void aNameThatNoFileCanHaveNamesNone()
    {
        const QUrl url = QUrl::fromLocalFile(path(u"pl"_s) + QChar::Null + u"ain"_s);
        QVERIFY(!wholeFile(url)); // and Qt does not warn, which would end the test
        QCOMPARE(fileVersion(url), QString());
    }

    void aLargeFileThatIsChangedIsOfAnotherVersionThoughItsTimeIsPutBack()
    {
        const QUrl url = QUrl::fromLocalFile(path(u"large"_s));
        QFile file(url.toLocalFile());
        QVERIFY(file.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
        QVERIFY(file.resize(mostComparedBytes + 1)); // of which the disk keeps nothing
        struct stat before
        {};
        QCOMPARE(::fstat(file.handle(), &before), 0);
        const QString version = fileVersion(url);
        QVERIFY(!version.isEmpty());
        QCOMPARE(fileVersion(url), version);
        QTest::qWait(20); // longer than the steps of the clock that files have their times from
        QCOMPARE(file.write("x"), 1);
        const timespec times[] = {before.st_atim, before.st_mtim};
        QCOMPARE(::futimens(file.handle(), times), 0);
        QVERIFY(fileVersion(url) != version);
        QVERIFY(file.remove());
    }

    void theVersionOfAFileIsThatOfItsBytes()
    {
        const QByteArray bytes = "the bytes";
        writeFile(path(u"plain"_s), bytes);
        const QUrl url = QUrl::fromLocalFile(path(u"plain"_s));
        QCOMPARE(fileVersion(url), versionOf(bytes));
        writeFile(path(u"plain"_s), "the bites");
        QVERIFY(fileVersion(url) != versionOf(bytes));
        QCOMPARE(versionOf(QByteArray(mostComparedBytes + 1, 'x')), QString());
        QCOMPARE(fileVersion(QUrl::fromLocalFile(path(u"pipe"_s))), QString());
    }

    void aFileAboveTheLimitIsNotRead()
    {
        writeFile(path(u"plain"_s), QByteArray(1001, 'x'));
        QVERIFY(!wholeFile(QUrl::fromLocalFile(path(u"plain"_s)), 1000));
        QVERIFY(wholeFile(QUrl::fromLocalFile(path(u"plain"_s)), 1001));
    }

    void whatMightNeverEndIsNotRead_data()
    {
        QTest::addColumn<QString>("place");
        for (const char *name : {"pipe", "link to a pipe", "link to a device", "socket"})
            QTest::newRow(name) << path(QLatin1String(name));
        for (const char *place :
             {"/dev/zero", "/dev/full", "/dev/tty", "/dev/stdin", "/dev/fd/0", "/proc/self/mem",
              "/proc/self/pagemap", "/proc/kmsg", "/proc/self/maps", "/proc/kcore",
              "/proc/1/pagemap", "/sys/kernel/tracing/trace_pipe"})
            QTest::newRow(place) << QString::fromLatin1(place);
    }
    void whatMightNeverEndIsNotRead()
    {
        QFETCH(QString, place);
        const auto isRefused = [&] {
            ::alarm(20); // ends a process that waits
            qint64 taken = 0;
            const bool isRead = readFile(QUrl::fromLocalFile(place),
                                         [&](QByteArrayView bytes) { taken += bytes.size(); });
            constexpr qint64 onePiece = 65536;
            return !isRead && taken <= onePiece ? 0 : 1;
        };
        QCOMPARE(statusOfProcess(isRefused), 0);
    }

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QByteArray encodedPath(const QString &name) const { return QFile::encodeName(path(name)); }

    QTemporaryDir m_folder;
    int m_socket = -1;
};

QUENARA_TEST(TestFileReading)

} // namespace tst_file_reading

#include "tst_file_reading.moc"
