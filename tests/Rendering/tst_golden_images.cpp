#include "Fonts.h"
#include "GoldenSlides.h"
#include "GuiTestSupport.h"

#include <QDir>
#include <QFontDatabase>

using namespace quenara;
using namespace quenara::test;

namespace tst_golden_images {

namespace {

const QDir &goldenFolder()
{
    static const QDir folder(QStringLiteral(QUENARA_GOLDEN_IMAGES));
    return folder;
}

} // namespace

class TestGoldenImages : public GuiTest
{
    Q_OBJECT

private slots:
    /// Where a test says which faces are installed, that they are, or that they are not.
    void facesAreInstalledAsTheTestSays()
    {
        if (!qEnvironmentVariableIsSet("QUENARA_INSTALLED_FACES"))
            return;
        const QString faces = qEnvironmentVariable("QUENARA_INSTALLED_FACES");
        for (const QString &family : {QStringLiteral("Lato"), QStringLiteral("Inter")}) {
            QCOMPARE(isFamilyInstalled(family), faces == u"another");
            if (isFamilyInstalled(family))
                QCOMPARE(QFontDatabase::styles(family), QStringList(QStringLiteral("Regular")));
        }
    }

    void slidesLookAsTheyDid_data()
    {
        QTest::addColumn<GoldenSlide>("slide");
        QTest::addColumn<QSize>("size");
        for (const GoldenSlide &slide : goldenSlides()) {
            for (const QSize &size : goldenSizes)
                QTest::newRow(qPrintable(goldenFileName(slide, size))) << slide << size;
        }
    }

    void slidesLookAsTheyDid()
    {
        QFETCH(GoldenSlide, slide);
        QFETCH(QSize, size);
        const QString fileName = goldenFileName(slide, size);
        const QImage golden(goldenFolder().filePath(fileName));
        QVERIFY2(!golden.isNull(), "there is no such golden image");
        const QImage painted = rendered(slide.view, size);
        const int difference = largestDifference(painted, golden);
        if (difference > goldenTolerance) {
            QVERIFY(QDir().mkpath(QStringLiteral("painted")));
            QVERIFY(painted.save(QStringLiteral("painted/") + fileName));
            QFAIL(qPrintable(QStringLiteral("differs by %1; see painted/%2 in the build folder")
                                 .arg(difference)
                                 .arg(fileName)));
        }
    }

    void everyGoldenImageIsOfASlide()
    {
        QStringList expected;
        for (const GoldenSlide &slide : goldenSlides()) {
            for (const QSize &size : goldenSizes)
                expected.append(goldenFileName(slide, size));
        }
        expected.sort();
        QCOMPARE(goldenFolder().entryList(QDir::Files, QDir::Name), expected);
    }
};

QUENARA_GUI_TEST(TestGoldenImages)

} // namespace tst_golden_images

#include "tst_golden_images.moc"
