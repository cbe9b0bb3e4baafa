#include "ExportedShow.h"
#include "FullDisk.h"
#include "PictureFolder.h"

#include <QDir>
#include <QTemporaryDir>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_picture_folder {

namespace {

QStringList entriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                  QDir::Name);
}

FlattenedSlide slideCalled(const QString &section, const QString &title, int place = 0)
{
    FlattenedSlide slide;
    slide.serviceItemTitle = section;
    slide.slide.title = title;
    slide.absoluteIndex = place;
    return slide;
}

} // namespace

class TestPictureFolder : public GuiTest
{
    Q_OBJECT

private slots:
    void eachSlideIsAPictureThatIsTheWall()
    {
        const QTemporaryDir folder;
        const QList<FlattenedSlide> slides = demoSlides();
        PictureFolder pictures(folder.path(), u"Sunday"_s, slides.size());
        exportTo(pictures, slides);
        QCOMPARE(pictures.path(), folder.filePath(u"Sunday"_s));
        QCOMPARE(entriesOf(folder.path()), QStringList{u"Sunday"_s});
        const QStringList names = entriesOf(pictures.path());
        QCOMPARE(names.size(), slides.size());
        QCOMPARE(names.at(2), u"003 Song - Great Is The Morning - Verse 1.png"_s);
        for (qsizetype i = 0; i < names.size(); ++i) {
            const QImage picture(QDir(pictures.path()).filePath(names.at(i)));
            QCOMPARE(largestDifference(picture.convertToFormat(QImage::Format_RGB32),
                                       onWall(slides.at(i).slide)),
                     0);
        }
    }

    void aSlideOfAnotherShapeHasBlackBesideIt()
    {
        const QTemporaryDir folder;
        SlideDesign design = designOver(solidBackground({1, 1, 1, 1}));
        design.canvasSize = {1000, 1000};
        FlattenedSlide slide = slideCalled({}, {});
        slide.slide.design = design;
        PictureFolder pictures(folder.path(), u"Sunday"_s, 1);
        exportTo(pictures, {slide});
        const QImage picture(QDir(pictures.path()).filePath(u"001.png"_s));
        QCOMPARE(picture.size(), exportedPixels);
        QCOMPARE(picture.pixelColor(100, 540), QColor(Qt::black));
        QCOMPARE(picture.pixelColor(960, 540), QColor(Qt::white));
    }

    void aPictureIsNamedAfterItsPlaceAndItsTitles_data()
    {
        QTest::addColumn<FlattenedSlide>("slide");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("name");
        QTest::newRow("with section and title")
            << slideCalled(u"Song"_s, u"Verse 1"_s, 11) << 20 << u"012 Song - Verse 1.png"_s;
        QTest::newRow("with as many digits as the last one has")
            << slideCalled(u"Song"_s, u"Verse 1"_s) << 10'000 << u"00001 Song - Verse 1.png"_s;
        QTest::newRow("once where both are the same")
            << slideCalled(u"Prayer"_s, u"Prayer"_s) << 1 << u"001 Prayer.png"_s;
        QTest::newRow("without titles") << slideCalled({}, {}) << 1 << u"001.png"_s;
        QTest::newRow("without a section")
            << slideCalled({}, u"Verse 1"_s) << 1 << u"001 Verse 1.png"_s;
        QTest::newRow("without what a memory stick does not take")
            << slideCalled(u"../What? A/B: \"C\""_s, u"<x>|*."_s) << 1
            << u"001 -What- A-B- -C- - -x-.png"_s;
        QTest::newRow("from right to left")
            << slideCalled(u"שיר"_s, u"בית \U0001F600"_s) << 1 << u"001 שיר - בית \U0001F600.png"_s;
    }

    void aPictureIsNamedAfterItsPlaceAndItsTitles()
    {
        QFETCH(FlattenedSlide, slide);
        QFETCH(int, count);
        QFETCH(QString, name);
        QCOMPARE(pictureName(slide, count), name);
    }

    void aNameIsNeverTooLongForTheFileSystem()
    {
        const QString longTitle(10'000, QChar(0x4e00));
        const QString name = pictureName(slideCalled(longTitle, longTitle), 1);
        QVERIFY(name.toUtf8().size() <= 255);
        QVERIFY(name.endsWith(u".png"_s));
    }

    void aFolderThatIsThereStaysAsItIs()
    {
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir(u"Sunday"_s));
        PictureFolder pictures(folder.path(), u"Sunday"_s, 1);
        exportTo(pictures, demoSlides().first(1));
        QCOMPARE(pictures.path(), folder.filePath(u"Sunday 2"_s));
        QVERIFY(entriesOf(folder.filePath(u"Sunday"_s)).isEmpty());
    }

    void aProjectWithoutANameGetsAFolder_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("that is empty") << QString();
        QTest::newRow("that is the folder above") << u".."_s;
        QTest::newRow("of spaces") << u"  "_s;
    }

    void aProjectWithoutANameGetsAFolder()
    {
        QFETCH(QString, name);
        const QTemporaryDir folder;
        PictureFolder pictures(folder.path(), name, 1);
        exportTo(pictures, demoSlides().first(1));
        QCOMPARE(entriesOf(folder.path()), QStringList{u"Quenara"_s});
    }

    void whatIsNotFinishedLeavesNothing()
    {
        const QTemporaryDir folder;
        {
            RenderCaches caches;
            PictureFolder pictures(folder.path(), u"Sunday"_s, 11);
            QVERIFY(pictures.open());
            pictures.paint(demoSlides().constFirst(), caches);
            QVERIFY(pictures.write());
        }
        QVERIFY(entriesOf(folder.path()).isEmpty());
    }

    void aFullDiskIsToldAndLeavesNothing()
    {
        const QTemporaryDir folder;
        {
            RenderCaches caches;
            PictureFolder pictures(folder.path(), u"Sunday"_s, 11);
            QVERIFY(pictures.open());
            pictures.paint(demoSlides().constFirst(), caches);
            const FullDisk full(1000);
            QVERIFY(!pictures.write());
            QVERIFY(!pictures.fault().isEmpty());
        }
        QVERIFY(entriesOf(folder.path()).isEmpty());
    }

    void aFolderThatIsGoneIsTold()
    {
        PictureFolder pictures(u"/nowhere/at/all"_s, u"Sunday"_s, 1);
        QVERIFY(!pictures.open());
        QVERIFY(!pictures.fault().isEmpty());
    }
};

QUENARA_GUI_TEST(TestPictureFolder)

} // namespace tst_picture_folder

#include "tst_picture_folder.moc"
