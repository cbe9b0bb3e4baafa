#include "Files.h"
#include "GuiTestSupport.h"
#include "Images.h"
#include "RenderCaches.h"

#include <QFile>
#include <QImageReader>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>

using namespace quenara;
using namespace quenara::test;

namespace tst_image_cache {

namespace {

constexpr QSize size(320, 240);
constexpr qsizetype imageBytes = qsizetype(320) * 240 * 4;

SlideMedia solid(const QColor &color)
{
    return solidImage(size, color);
}

/// A slide with this image behind everything and in a layer.
Slide slideShowing(const SlideMedia &media, double blurAmount)
{
    SlideBackground background = solidBackground({0, 0, 0, 1});
    background.kind = SlideBackgroundKind::image;
    background.image = media;
    background.blurAmount = blurAmount;
    SlideDesign design = designOver(background);
    SlideElement layer = rectangleLayer(QStringLiteral("image"), {300, 200, 500, 400}, {}, 1);
    layer.kind = SlideElementKind::image;
    layer.image = media;
    layer.rotation = 10;
    design.elements.append(layer);
    return slideWith(design);
}

/// An image full of detail, in which a misplaced pixel shows.
SlideMedia detailed(int seed)
{
    QImage image(1500, 900, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(x, y,
                           qRgb((x * 7 + seed) % 256, (y * 5 + seed) % 256, (x * y / 64) % 256));
        }
    }
    return mediaOf(encoded(image, "PNG"));
}

QImage taken(ImageCache &images, const SlideMedia &media, const QSize &area)
{
    return images.filling(media, {.area = area}).image;
}

bool isKept(ImageCache &images, const SlideMedia &media)
{
    // An image that is decoded again has another key.
    const qint64 first = taken(images, media, size).cacheKey();
    return taken(images, media, size).cacheKey() == first;
}

} // namespace

class TestImageCache : public GuiTest
{
    Q_OBJECT

private slots:
    void slidesLookTheSameWithAndWithoutIt_data()
    {
        QTest::addColumn<qsizetype>("byteLimit");
        QTest::newRow("with room for everything") << ImageCache::usualByteLimit;
        QTest::newRow("with room for one image") << qsizetype(8 * 1024 * 1024);
        QTest::newRow("with no room at all") << qsizetype(0);
    }

    void slidesLookTheSameWithAndWithoutIt()
    {
        QFETCH(qsizetype, byteLimit);
        RenderCaches caches{.images = ImageCache(byteLimit)};
        const SlideMedia one = detailed(1);
        const QList<Slide> slides = {slideShowing(one, 0), slideShowing(detailed(2), 0),
                                     slideShowing(one, 12)};
        const QList<std::pair<QSize, double>> screens = {
            {{64, 36}, 1}, {{1920, 1080}, 1}, {{480, 270}, 1}, {{480, 270}, 2}, {{64, 36}, 1}};
        for (const auto &[screen, ratio] : screens) {
            for (const Slide &slide : slides) {
                const QImage without = rendered({.slide = slide}, screen, ratio);
                const QImage with = rendered({.slide = slide}, screen, ratio, caches);
                const QImage again = rendered({.slide = slide}, screen, ratio, caches);
                QCOMPARE(with, without);
                QCOMPARE(again, without);
            }
        }
    }

    void anImageIsDecodedOnce()
    {
        ImageCache images;
        const SlideMedia media = solid(Qt::red);
        const QImage first = taken(images, media, size);
        QCOMPARE(taken(images, media, size).cacheKey(), first.cacheKey());
        QCOMPARE(images.byteCount(), imageBytes + media.dataUrl.size());
    }

    void equalDataIsFoundWhereverItLies()
    {
        ImageCache images;
        const SlideMedia media = solid(Qt::red);
        SlideMedia copy = media;
        copy.dataUrl = QByteArray(media.dataUrl.constData(), media.dataUrl.size());
        copy.name = QStringLiteral("another name");
        QVERIFY(copy.dataUrl.constData() != media.dataUrl.constData());
        const QImage first = taken(images, media, size);
        QCOMPARE(taken(images, copy, size).cacheKey(), first.cacheKey());
    }

    void dataThatDiffersInItsLastPixelIsToldApart()
    {
        ImageCache images;
        QImage image = quarters(size);
        const SlideMedia one = mediaOf(encoded(image, "BMP"));
        image.setPixel(size.width() - 1, 0, qRgb(1, 2, 3)); // bitmaps are stored upside down
        const SlideMedia other = mediaOf(encoded(image, "BMP"));
        QCOMPARE(one.dataUrl.size(), other.dataUrl.size());
        taken(images, one, size);
        QCOMPARE(taken(images, other, size).pixel(size.width() - 1, 0), qRgb(1, 2, 3));
    }

    void eachSizeThatIsNeededIsDecodedToIt()
    {
        ImageCache images;
        const SlideMedia media = solid(Qt::red);
        QCOMPARE(taken(images, media, size / 8).size(), size / 8);
        QCOMPARE(taken(images, media, size).size(), size);
        const QImage reduced = taken(images, media, size / 8);
        QCOMPARE(reduced.size(), size / 8);
        QCOMPARE(taken(images, media, size / 8).cacheKey(), reduced.cacheKey());
    }

    void theLeastRecentlyUsedImageGoesFirst()
    {
        const SlideMedia red = solid(Qt::red);
        const SlideMedia green = solid(Qt::green);
        const SlideMedia blue = solid(Qt::blue);
        ImageCache images(2 * imageBytes + imageBytes / 2);
        const qint64 redKey = taken(images, red, size).cacheKey();
        const qint64 greenKey = taken(images, green, size).cacheKey();
        QCOMPARE(taken(images, red, size).cacheKey(), redKey);
        const qint64 blueKey = taken(images, blue, size).cacheKey();
        QCOMPARE(taken(images, red, size).cacheKey(), redKey);
        QCOMPARE(taken(images, blue, size).cacheKey(), blueKey);
        QVERIFY(taken(images, green, size).cacheKey() != greenKey);
    }

    void ofSizesThatAnImageHasOnlyForAMomentFewAreHeld_data()
    {
        QTest::addColumn<SlideMedia>("media");
        QTest::newRow("an image of pixels") << solid(Qt::red);
        QTest::newRow("a drawing")
            << mediaOf("<svg xmlns='http://www.w3.org/2000/svg' width='40' height='30'>"
                       "<rect width='20' height='20'/></svg>");
    }

    void ofSizesThatAnImageHasOnlyForAMomentFewAreHeld()
    {
        ImageCache images;
        QFETCH(SlideMedia, media);
        const SlideMedia other = solid(Qt::green);
        const qint64 otherKey = taken(images, other, size / 2).cacheKey();
        const qint64 wall = taken(images, media, size - QSize(1, 1)).cacheKey();
        for (int width = 100; width < 300; ++width) {
            taken(images, media, {width, 200});
            QCOMPARE(taken(images, media, size - QSize(1, 1)).cacheKey(), wall);
        }
        QVERIFY(images.byteCount() < (ImageCache::mostSizes + 4) * (imageBytes + 2000));
        QCOMPARE(taken(images, other, size / 2).cacheKey(), otherKey);
        const qint64 last = taken(images, media, {299, 200}).cacheKey();
        QCOMPARE(taken(images, media, {299, 200}).cacheKey(), last);
    }

    void itsBoundIsKept()
    {
        constexpr qsizetype limit = 5 * imageBytes;
        ImageCache images(limit);
        for (int i = 0; i < 40; ++i) {
            const SlideMedia media = solid(QColor::fromHsv(i * 9, 255, 255));
            QVERIFY(showsOneColour(taken(images, media, size / (1 + i % 3)),
                                   QColor::fromHsv(i * 9, 255, 255)));
            QVERIFY(images.byteCount() <= limit);
        }
        QVERIFY(images.byteCount() > limit / 2);
    }

    void anImageLargerThanItsBoundIsShownAndKeptAlone()
    {
        ImageCache images(imageBytes / 2);
        const SlideMedia red = solid(Qt::red);
        const SlideMedia green = solid(Qt::green);
        QVERIFY(isKept(images, red));
        QVERIFY(isKept(images, green));
        QCOMPARE(images.byteCount(), imageBytes + green.dataUrl.size());
    }

    void whatCannotBeDecodedIsRemembered()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("image.png"));
        writeFile(path, "no image");
        const QDateTime modified = QFileInfo(path).lastModified();
        ImageCache images;
        const SlideMedia media{.dataUrl = path.toUtf8(), .name = {}, .mimeType = {}};
        QVERIFY(taken(images, media, size).isNull());

        // It would be read if it were looked into again.
        writeFile(path, encoded(quarters(size), "PNG"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(modified, QFileDevice::FileModificationTime));
        file.close();
        QVERIFY(taken(images, media, size).isNull());
        QVERIFY(taken(images, media, size / 4).isNull());
        QCOMPARE(images.byteCount(), media.dataUrl.size());
    }

    void whatThereWasNoMemoryForIsReadAtAFractionOfItsSize()
    {
        const SlideMedia photograph = mediaOf(encoded(quarters({1600, 1200}), "JPG"));
        ImageCache images;
        const int limit = QImageReader::allocationLimit();
        QImageReader::setAllocationLimit(1);
        const auto restored = qScopeGuard([limit] { QImageReader::setAllocationLimit(limit); });
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("exceeds the current allocation")));
        QVERIFY(taken(images, photograph, {1600, 1200}).isNull());
        QCOMPARE(taken(images, photograph, {200, 150}).size(), QSize(200, 150));
        QVERIFY(taken(images, photograph, {1600, 1200}).isNull());
    }

    void whatIsMissingIsRememberedOnce_data()
    {
        QTest::addColumn<QByteArray>("dataUrl");
        QTest::newRow("a file that is not there") << QByteArray("/nonexistent/image.png");
        QTest::newRow("a data URL without an image")
            << QByteArray("data:image/png;base64,aGVsbG8=");
        QTest::newRow("a data URL without data") << QByteArray("data:image/png");
        QTest::newRow("nothing") << QByteArray();
    }

    void whatIsMissingIsRememberedOnce()
    {
        QFETCH(QByteArray, dataUrl);
        ImageCache images;
        taken(images, solid(Qt::red), size);
        const qsizetype before = images.byteCount();
        const SlideMedia missing{.dataUrl = dataUrl, .name = {}, .mimeType = {}};
        for (const QSize &needed : {size, size * 4, QSize(1, 1), QSize(0, 0), QSize(-1, -1)})
            QVERIFY(taken(images, missing, needed).isNull());
        QCOMPARE(images.byteCount(), before + dataUrl.size());
    }

    void aFileThatHasChangedIsReadAgain()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("image.png"));
        const SlideMedia byPath{.dataUrl = path.toUtf8(), .name = {}, .mimeType = {}};
        const SlideMedia byUrl{
            .dataUrl = QUrl::fromLocalFile(path).toEncoded(), .name = {}, .mimeType = {}};
        ImageCache images;
        for (const SlideMedia &media : {byPath, byUrl}) {
            QFile::remove(path);
            QVERIFY(taken(images, media, size).isNull());
            QDateTime time = QDateTime::currentDateTime().addDays(-1);
            for (const QColor &color : {QColor(Qt::red), QColor(Qt::green)}) {
                QImage image(size, QImage::Format_RGB32);
                image.fill(color);
                writeFile(path, encoded(image, "PNG"));
                time = time.addSecs(1);
                QFile file(path);
                QVERIFY(file.open(QIODevice::ReadWrite));
                QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
                file.close();
                QVERIFY(showsOneColour(taken(images, media, size), color));
            }
            QFile::remove(path);
            QVERIFY(taken(images, media, size).isNull());
        }
    }

private:
    static bool showsOneColour(const QImage &image, const QColor &color)
    {
        return image.pixel(0, 0) == color.rgb()
            && image.pixel(image.width() - 1, image.height() - 1) == color.rgb();
    }
};

QUENARA_GUI_TEST(TestImageCache)

} // namespace tst_image_cache

#include "tst_image_cache.moc"
