#include "BusyWorld.h"
#include "ImageFile.h"
#include "Images.h"
#include "TestMain.h"

#include <QGuiApplication>
#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_limited_memory {

class TestLimitedMemory : public QObject
{
    Q_OBJECT

private slots:
    void whatTheMemoryDoesNotHoldChangesNothingButTheMessage_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("more slides than there is room for")
            << "{\"slides\":[{}" + QByteArray(",{}").repeated(5'000'000) + "]}";
        QTest::newRow("more text than can be parsed") << '{' + QByteArray(60'000'000, ' ') + '}';
    }

    void whatTheMemoryDoesNotHoldChangesNothingButTheMessage()
    {
        QFETCH(QByteArray, bytes);
        BusyWorld world;
        const QUrl url = world.written(u"large.quenara"_s, bytes);
        const Everything before = everythingOf(world);
        const auto limited = [] { return limitMemory(600'000'000); };
        QCOMPARE(statusOfOpening(world, url, limited), 0);
        QVERIFY(everythingOf(world) == before); // the preferences, which the child could reach
    }

    void aSaveThatTheMemoryDoesNotHoldChangesNothingButTheMessage()
    {
        BusyWorld world;
        const SlideMedia media{QByteArray(250'000'000, 'A'), u"large"_s, u"image/png"_s};
        world.store.updateSelectedSlide([&media](Slide &slide) { slide.image = media; });
        const QByteArray savedBytes = bytesOf(world.saved.toLocalFile());
        Snapshot expected = snapshotOf(world.store);
        expected.state.errorMessage =
            ProjectFileError(ProjectFileError::unableToWrite).description();
        const int status = statusOfProcess([&] {
            if (!limitMemory(600'000'000))
                return 1;
            world.store.saveProject();
            return snapshotOf(world.store) == expected ? 0 : 2;
        });
        QCOMPARE(status, 0);
        QCOMPARE(bytesOf(world.saved.toLocalFile()), savedBytes);
        QCOMPARE(entriesOf(world.folder.filePath(u"saved"_s)), QStringList{u"show.quenara"_s});
    }

    void anImageBeyondTheMemoryIsNotTaken()
    {
        const World world;
        const QUrl url = world.written(u"large.png"_s, encoded(quarters({48, 32}), "PNG"));
        QVERIFY(QFile::resize(url.toLocalFile(), 2'000'000'000));
        QCOMPARE(statusOfProcess(
                     [&] { return limitMemory(1'500'000'000) && !imageFromFile(url) ? 0 : 1; }),
                 0);
    }
};

QUENARA_TEST_WITH(QGuiApplication, TestLimitedMemory)

} // namespace tst_limited_memory

#include "tst_limited_memory.moc"
