#include "GuiTestSupport.h"
#include "PictureCache.h"
#include "Pictures.h"

#include <QFile>
#include <QTemporaryDir>

using namespace quenara;
using namespace quenara::test;

namespace {

constexpr QSize size(320, 240);
constexpr qsizetype pictureBytes = qsizetype(320) * 240 * 4;

SlideMedia solid(const QColor &color)
{
    return solidPicture(size, color);
}

/// A slide with this picture behind everything and in a layer.
Slide slideShowing(const SlideMedia &media, double blurAmount)
{
    SlideBackground background = solidBackground({0, 0, 0, 1});
    background.kind = SlideBackgroundKind::image;
    background.image = media;
    background.blurAmount = blurAmount;
    SlideDesign design = designOver(background);
    SlideElement layer = rectangleLayer(QStringLiteral("picture"), {300, 200, 500, 400}, {}, 1);
    layer.kind = SlideElementKind::image;
    layer.image = media;
    layer.rotation = 10;
    design.elements.append(layer);
    return slideWith(design);
}

/// Detail everywhere, so that a pixel from elsewhere shows.
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

bool isKept(PictureCache &pictures, const SlideMedia &media)
{
    // What is decoded anew has a key of its own, and so had what was kept.
    const qint64 first = pictures.image(media, size).cacheKey();
    return pictures.image(media, size).cacheKey() == first;
}

} // namespace

class TestPictureCache : public GuiTest
{
    Q_OBJECT

private slots:
    void slidesLookTheSameWithAndWithoutIt_data()
    {
        QTest::addColumn<qsizetype>("byteLimit");
        QTest::newRow("with room for everything") << PictureCache::usualByteLimit;
        QTest::newRow("with room for one picture") << qsizetype(8 * 1024 * 1024);
        QTest::newRow("with no room at all") << qsizetype(0);
    }

    void slidesLookTheSameWithAndWithoutIt()
    {
        QFETCH(qsizetype, byteLimit);
        PictureCache pictures(byteLimit);
        const SlideMedia one = detailed(1);
        const QList<Slide> slides = {slideShowing(one, 0), slideShowing(detailed(2), 0),
                                     slideShowing(one, 12)};
        const QList<std::pair<QSize, double>> screens = {
            {{64, 36}, 1}, {{1920, 1080}, 1}, {{480, 270}, 1}, {{480, 270}, 2}, {{64, 36}, 1}};
        for (const auto &[screen, ratio] : screens) {
            for (const Slide &slide : slides) {
                const QImage without = rendered({.slide = slide}, screen, ratio);
                const QImage with =
                    rendered({.slide = slide, .pictures = &pictures}, screen, ratio);
                const QImage again =
                    rendered({.slide = slide, .pictures = &pictures}, screen, ratio);
                QCOMPARE(with, without);
                QCOMPARE(again, without);
            }
        }
    }

    void aPictureIsDecodedOnce()
    {
        PictureCache pictures;
        const SlideMedia media = solid(Qt::red);
        const QImage first = pictures.image(media, size);
        QCOMPARE(pictures.image(media, size).cacheKey(), first.cacheKey());
        QCOMPARE(pictures.byteCount(), pictureBytes + media.dataUrl.size());
    }

    void equalDataIsFoundWhereverItLies()
    {
        PictureCache pictures;
        const SlideMedia media = solid(Qt::red);
        SlideMedia copy = media;
        copy.dataUrl = QByteArray(media.dataUrl.constData(), media.dataUrl.size());
        copy.name = QStringLiteral("another name");
        QVERIFY(copy.dataUrl.constData() != media.dataUrl.constData());
        const QImage first = pictures.image(media, size);
        QCOMPARE(pictures.image(copy, size).cacheKey(), first.cacheKey());
    }

    void dataThatDiffersInItsLastPixelIsToldApart()
    {
        PictureCache pictures;
        QImage image = quarters(size);
        const SlideMedia one = mediaOf(encoded(image, "BMP"));
        image.setPixel(size.width() - 1, 0, qRgb(1, 2, 3)); // bitmaps are stored upside down
        const SlideMedia other = mediaOf(encoded(image, "BMP"));
        QCOMPARE(one.dataUrl.size(), other.dataUrl.size());
        pictures.image(one, size);
        QCOMPARE(pictures.image(other, size).pixel(size.width() - 1, 0), qRgb(1, 2, 3));
    }

    void eachSizeThatIsNeededIsDecodedToIt()
    {
        PictureCache pictures;
        const SlideMedia media = solid(Qt::red);
        QCOMPARE(pictures.image(media, size / 8).size(), size / 8);
        QCOMPARE(pictures.image(media, size).size(), size);
        const QImage reduced = pictures.image(media, size / 8);
        QCOMPARE(reduced.size(), size / 8);
        QCOMPARE(pictures.image(media, size / 8 - QSize(1, 1)).cacheKey(), reduced.cacheKey());
    }

    void theLeastRecentlyUsedPictureGoesFirst()
    {
        const SlideMedia red = solid(Qt::red);
        const SlideMedia green = solid(Qt::green);
        const SlideMedia blue = solid(Qt::blue);
        PictureCache pictures(2 * pictureBytes + pictureBytes / 2);
        const qint64 redKey = pictures.image(red, size).cacheKey();
        const qint64 greenKey = pictures.image(green, size).cacheKey();
        QCOMPARE(pictures.image(red, size).cacheKey(), redKey);
        const qint64 blueKey = pictures.image(blue, size).cacheKey();
        QCOMPARE(pictures.image(red, size).cacheKey(), redKey);
        QCOMPARE(pictures.image(blue, size).cacheKey(), blueKey);
        QVERIFY(pictures.image(green, size).cacheKey() != greenKey);
    }

    void itsBoundIsKept()
    {
        constexpr qsizetype limit = 5 * pictureBytes;
        PictureCache pictures(limit);
        for (int i = 0; i < 40; ++i) {
            const SlideMedia media = solid(QColor::fromHsv(i * 9, 255, 255));
            QVERIFY(showsOneColour(pictures.image(media, size / (1 + i % 3)),
                                   QColor::fromHsv(i * 9, 255, 255)));
            QVERIFY(pictures.byteCount() <= limit);
        }
        QVERIFY(pictures.byteCount() > limit / 2);
    }

    void aPictureLargerThanItsBoundIsShownAndKeptAlone()
    {
        PictureCache pictures(pictureBytes / 2);
        const SlideMedia red = solid(Qt::red);
        const SlideMedia green = solid(Qt::green);
        QVERIFY(isKept(pictures, red));
        QVERIFY(isKept(pictures, green));
        QCOMPARE(pictures.byteCount(), pictureBytes + green.dataUrl.size());
    }

    void whatCannotBeDecodedIsRemembered()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("picture.png"));
        write(path, "no picture");
        const QDateTime modified = QFileInfo(path).lastModified();
        PictureCache pictures;
        const SlideMedia media{.dataUrl = path.toUtf8(), .name = {}, .mimeType = {}};
        QVERIFY(pictures.image(media, size).isNull());

        // It would be read if it were looked into again.
        write(path, encoded(quarters(size), "PNG"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(modified, QFileDevice::FileModificationTime));
        file.close();
        QVERIFY(pictures.image(media, size).isNull());
        QVERIFY(pictures.image(media, size / 4).isNull());
        QCOMPARE(pictures.byteCount(), media.dataUrl.size());
    }

    void aFileThatHasChangedIsReadAgain()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("picture.png"));
        const SlideMedia byPath{.dataUrl = path.toUtf8(), .name = {}, .mimeType = {}};
        const SlideMedia byUrl{
            .dataUrl = QUrl::fromLocalFile(path).toEncoded(), .name = {}, .mimeType = {}};
        PictureCache pictures;
        for (const SlideMedia &media : {byPath, byUrl}) {
            QFile::remove(path);
            QVERIFY(pictures.image(media, size).isNull());
            QDateTime time = QDateTime::currentDateTime().addDays(-1);
            for (const QColor &color : {QColor(Qt::red), QColor(Qt::green)}) {
                QImage image(size, QImage::Format_RGB32);
                image.fill(color);
                write(path, encoded(image, "PNG"));
                time = time.addSecs(1);
                QFile file(path);
                QVERIFY(file.open(QIODevice::ReadWrite));
                QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
                file.close();
                QVERIFY(showsOneColour(pictures.image(media, size), color));
            }
            QFile::remove(path);
            QVERIFY(pictures.image(media, size).isNull());
        }
    }

private:
    static bool showsOneColour(const QImage &image, const QColor &color)
    {
        return image.pixel(0, 0) == color.rgb()
            && image.pixel(image.width() - 1, image.height() - 1) == color.rgb();
    }

    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }
};

QUENARA_GUI_TEST_MAIN(TestPictureCache)
#include "tst_picture_cache.moc"
