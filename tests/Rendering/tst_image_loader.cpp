#include "Files.h"
#include "Images.h"
#include "TestMain.h"
#include "ZelvoImageLoader.h"

#include <QColorSpace>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <sys/stat.h>

using namespace quenara;
using namespace quenara::test;

namespace tst_image_loader {

namespace {

constexpr QSize size(640, 480);

/// How colours are told apart from those of sRGB by another profile with the same white.
struct Profile
{
    const char *name;
    QColorSpace::NamedColorSpace colors;
    double exponent; ///< of light to the number for it; 0 for the curve of sRGB
    /// From its red, green and blue light to that of sRGB.
    std::array<std::array<double, 3>, 3> light;
};

// From the published primaries of each, and white at D65.
const std::array profiles{
    Profile{"Display P3",
            QColorSpace::DisplayP3,
            0,
            {{{1.22494, -0.22494, 0}, {-0.04206, 1.04206, 0}, {-0.01964, -0.07864, 1.09827}}}},
    Profile{"Adobe RGB",
            QColorSpace::AdobeRgb,
            563.0 / 256,
            {{{1.39836, -0.39836, 0}, {0, 1, 0}, {0, -0.04293, 1.04293}}}},
};

double sRgbLight(double number)
{
    return number <= 0.04045 ? number / 12.92 : std::pow((number + 0.055) / 1.055, 2.4);
}

double sRgbNumber(double light)
{
    const double clamped = std::clamp(light, 0.0, 1.0);
    return clamped <= 0.0031308 ? 12.92 * clamped : 1.055 * std::pow(clamped, 1 / 2.4) - 0.055;
}

QRgb inSRgb(const QColor &color, const Profile &profile)
{
    const auto light = [&](double number) {
        return profile.exponent > 0 ? std::pow(number, profile.exponent) : sRgbLight(number);
    };
    const std::array own{light(color.redF()), light(color.greenF()), light(color.blueF())};
    const auto channel = [&](std::size_t row) {
        const auto &parts = profile.light.at(row);
        return qRound(
            255 * sRgbNumber(parts.at(0) * own[0] + parts.at(1) * own[1] + parts.at(2) * own[2]));
    };
    return qRgb(channel(0), channel(1), channel(2));
}

SlideMedia mediaAt(const QByteArray &place)
{
    return {.dataUrl = place, .name = {}, .mimeType = {}};
}

/// A GIF of these quarters, which Qt reads but does not write: uncompressed as far as GIF can be,
/// with a clear code before every pixel pair so that codes stay three bits wide.
QByteArray gif()
{
    constexpr int side = 8;
    QByteArray codes;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            constexpr char clear = 4;
            if (x % 2 == 0)
                codes.append(clear);
            codes.append(char((y >= side / 2 ? 2 : 0) + (x >= side / 2 ? 1 : 0)));
        }
    }
    constexpr char end = 5;
    codes.append(end);
    constexpr unsigned codeBits = 3;
    QByteArray packed((codes.size() * codeBits + 7) / 8, '\0');
    for (unsigned i = 0; i < unsigned(codes.size()) * codeBits; ++i) {
        const unsigned bit = (unsigned(codes.at(i / codeBits)) >> (i % codeBits)) & 1U;
        packed[i / 8] = char(quint8(packed.at(i / 8)) | (bit << (i % 8)));
    }
    const QByteArray screen("\x08\0\x08\0\xa1\0\0", 7);
    const QByteArray palette("\xff\0\0\0\xff\0\0\0\xff\xff\xff\xff", 12);
    const QByteArray frame(",\0\0\0\0\x08\0\x08\0\0\x02", 11);
    return "GIF89a" + screen + palette + frame + char(packed.size()) + packed
        + QByteArray("\0;", 2);
}

/// How a camera stores an upright image by its EXIF orientation, from the definition: on which
/// side of the upright image its first row and its first column lie.
QImage asStored(const QImage &upright, int orientation)
{
    const int right = upright.width() - 1;
    const int bottom = upright.height() - 1;
    const bool isTurned = orientation >= 5;
    QImage stored(isTurned ? upright.size().transposed() : upright.size(), upright.format());
    for (int y = 0; y <= bottom; ++y) {
        for (int x = 0; x <= right; ++x) {
            const std::array<QPoint, 8> columnAndRow = {{
                {x, y}, // top, left
                {right - x, y}, // top, right
                {right - x, bottom - y}, // bottom, right
                {x, bottom - y}, // bottom, left
                {y, x}, // left, top
                {y, right - x}, // right, top
                {bottom - y, right - x}, // right, bottom
                {bottom - y, x}, // left, bottom
            }};
            stored.setPixel(columnAndRow.at(std::size_t(orientation - 1)), upright.pixel(x, y));
        }
    }
    return stored;
}

/// A JPEG of quarters that says in an APP1 segment how it is to be turned.
QByteArray photograph(int orientation)
{
    QByteArray jpeg = encoded(asStored(quarters(size), orientation), "JPG");
    const QByteArray tiff = QByteArray("MM\0*\0\0\0\x08"
                                       "\0\x01"
                                       "\x01\x12\0\x03\0\0\0\x01\0",
                                       19)
        + char(orientation) + QByteArray(6, '\0');
    const QByteArray exif = QByteArray("Exif\0\0", 6) + tiff;
    return jpeg.insert(2, QByteArray("\xff\xe1\0", 3) + char(exif.size() + 2) + exif);
}

} // namespace

/// No GuiTest: the image readers may warn of what they refuse.
class TestImageLoader : public QObject
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(m_folder.isValid()); }

    void everyUsualFormatIsRead_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        for (const char *format : {"PNG", "JPG", "BMP", "WEBP"})
            QTest::newRow(format) << encoded(quarters(size), format);
        QTest::newRow("GIF") << gif();
    }

    void everyUsualFormatIsRead()
    {
        QFETCH(QByteArray, bytes);
        const QImage image = ZelvoImageLoader::image(mediaOf(bytes));
        QVERIFY(showsQuarters(image));
        const DecodedImage reduced = ZelvoImageLoader::image(mediaOf(bytes), image.size() / 4);
        QCOMPARE(reduced.reduction, 4);
        QCOMPARE(reduced.fullSize, image.size());
        QCOMPARE(reduced.image.size(), image.size() / 4);
        if (image.width() > 8)
            QVERIFY(showsQuarters(reduced.image));
    }

    void anImageKeepsItsTransparency()
    {
        QImage image(4, 4, QImage::Format_ARGB32);
        image.fill(QColor(255, 0, 0, 128));
        const QImage read = ZelvoImageLoader::image(mediaOf(encoded(image, "PNG")));
        QVERIFY(std::abs(qAlpha(read.pixel(1, 1)) - 128) <= 1);
    }

    void aPhotographIsTurnedUpright_data()
    {
        QTest::addColumn<int>("orientation");
        for (int orientation = 1; orientation <= 8; ++orientation)
            QTest::addRow("orientation %d", orientation) << orientation;
    }

    void aPhotographIsTurnedUpright()
    {
        QFETCH(int, orientation);
        const SlideMedia media = mediaOf(photograph(orientation));
        const QImage whole = ZelvoImageLoader::image(media);
        QCOMPARE(whole.size(), size);
        QVERIFY(showsQuarters(whole));

        const DecodedImage reduced = ZelvoImageLoader::image(media, {150, 100});
        QCOMPARE(reduced.reduction, 4);
        QCOMPARE(reduced.fullSize, size);
        QCOMPARE(reduced.image.size(), size / 4);
        QVERIFY(showsQuarters(reduced.image));
    }

    void coloursAreThoseOfTheProfileThatComesWithThem_data()
    {
        QTest::addColumn<Profile>("profile");
        QTest::addColumn<QImage::Format>("stored");
        QTest::addColumn<QByteArray>("format");
        for (const Profile &profile : profiles) {
            const auto add = [&](const char *kind, QImage::Format stored, const char *format) {
                QTest::addRow("%s, %s", profile.name, kind)
                    << profile << stored << QByteArray(format);
            };
            add("a PNG", QImage::Format_RGB32, "PNG");
            add("a translucent PNG", QImage::Format_ARGB32, "PNG");
            add("a PNG of 16 bits a channel", QImage::Format_RGBX64, "PNG");
            add("a PNG with a palette", QImage::Format_Indexed8, "PNG");
            add("a JPEG", QImage::Format_RGB32, "JPEG");
        }
    }

    void coloursAreThoseOfTheProfileThatComesWithThem()
    {
        QFETCH(Profile, profile);
        QFETCH(QImage::Format, stored);
        QFETCH(QByteArray, format);
        for (const QColor &color : {QColor(200, 120, 60), QColor(70, 140, 110)}) {
            QImage image(size / 10, QImage::Format_RGB32);
            image.fill(color);
            image = image.convertToFormat(stored);
            image.setColorSpace(QColorSpace(profile.colors));
            const QImage read = ZelvoImageLoader::image(mediaOf(encoded(image, format)));
            QCOMPARE(read.size(), image.size());
            const QRgb expected = inSRgb(color, profile);
            const QRgb found = read.pixel(5, 5);
            const int rounding = format == "JPEG" ? 2 : 1;
            const auto differs = [&](int a, int b) { return std::abs(a - b) > rounding; };
            QVERIFY2(!differs(qRed(found), qRed(expected))
                         && !differs(qGreen(found), qGreen(expected))
                         && !differs(qBlue(found), qBlue(expected)),
                     qPrintable(QColor(found).name() + QLatin1String(" instead of ")
                                + QColor(expected).name()));
        }
    }

    void coloursWithoutAProfileOrWithThatOfSlidesStayAsTheyAre_data()
    {
        QTest::addColumn<QColorSpace>("colors");
        QTest::addColumn<QByteArray>("chunk");
        QTest::newRow("no profile") << QColorSpace() << QByteArray();
        QTest::newRow("that of slides") << QColorSpace(QColorSpace::SRgb) << QByteArray();
        QTest::newRow("an exponent alone")
            << QColorSpace() << QByteArray("\0\0\0\4gAMA\0\0\xb1\x8f\x0b\xfc\x61\x05", 16);
    }

    void coloursWithoutAProfileOrWithThatOfSlidesStayAsTheyAre()
    {
        QFETCH(QColorSpace, colors);
        QFETCH(QByteArray, chunk);
        constexpr int header = 33; // bytes before the first chunk that may follow
        QImage image(256, 1, QImage::Format_RGB32);
        for (int shade = 0; shade < image.width(); ++shade)
            image.setPixel(shade, 0, qRgb(shade, 255 - shade, shade / 2));
        const QImage expected = image;
        image.setColorSpace(colors);
        const QByteArray bytes = encoded(image, "PNG").insert(header, chunk);
        const QImage read = ZelvoImageLoader::image(mediaOf(bytes));
        QCOMPARE(read.size(), expected.size());
        for (int shade = 0; shade < image.width(); ++shade)
            QCOMPARE(read.pixel(shade, 0), expected.pixel(shade, 0));
    }

    void anImageIsReducedAsFarAsItKeepsWhatIsNeeded_data()
    {
        QTest::addColumn<QSize>("needed");
        QTest::addColumn<int>("reduction");
        QTest::newRow("more than there is") << QSize(1000, 1000) << 1;
        QTest::newRow("all there is") << QSize(640, 480) << 1;
        QTest::newRow("half") << QSize(320, 240) << 2;
        QTest::newRow("a little more than half of one side") << QSize(321, 10) << 1;
        QTest::newRow("an eighth") << QSize(80, 60) << 8;
        QTest::newRow("a pixel") << QSize(1, 1) << 256;
        QTest::newRow("nothing") << QSize(0, 0) << 256;
        QTest::newRow("less than nothing") << QSize(-5, -5) << 256;
    }

    void anImageIsReducedAsFarAsItKeepsWhatIsNeeded()
    {
        QFETCH(QSize, needed);
        QFETCH(int, reduction);
        const DecodedImage decoded =
            ZelvoImageLoader::image(mediaOf(encoded(quarters(size), "PNG")), needed);
        QCOMPARE(decoded.reduction, reduction);
        QVERIFY(decoded.image.width() >= std::min(needed.width(), size.width()));
        QVERIFY(decoded.image.height() >= std::min(needed.height(), size.height()));
    }

    void aPhotographLargerThanMemoryAllowsIsSofterRatherThanMissing()
    {
        const QSize huge(9000, 8000);
        QImage photograph(huge, QImage::Format_Grayscale8);
        photograph.fill(200);
        const auto decoded = ZelvoImageLoader::image(mediaOf(encoded(photograph, "JPG")), huge);
        QCOMPARE(decoded.reduction, 2);
        QCOMPARE(decoded.image.size(), huge / 2);
    }

    void anImageOfMorePixelsThanAnybodyTakesIsNone()
    {
        QByteArray jpeg = encoded(QImage(512, 512, QImage::Format_Grayscale8), "JPG");
        const QByteArray startOfFrame("\xff\xc0\0\x0b\x08", 5);
        const qsizetype frame = jpeg.indexOf(startOfFrame) + startOfFrame.size();
        QVERIFY(frame >= startOfFrame.size());
        QVERIFY(!ZelvoImageLoader::image(mediaOf(jpeg), {64, 64}).image.isNull());
        jpeg.replace(frame, 4, QByteArray("\xff\xdc\xff\xdc", 4)); // 65,500 by 65,500
        QVERIFY(ZelvoImageLoader::image(mediaOf(jpeg), {64, 64}).image.isNull());
    }

    void anImageThatIsLargerThanItSaysIsReducedAllTheSame()
    {
        QByteArray image = gif();
        image.replace(6, 4, QByteArray("\xd0\x07\xe8\x03", 4)); // shown on 2000 by 1000 pixels
        const DecodedImage decoded = ZelvoImageLoader::image(mediaOf(image), {480, 240});
        QCOMPARE(decoded.fullSize, QSize(2000, 1000));
        QCOMPARE(decoded.reduction, 4);
        QCOMPARE(decoded.image.size(), QSize(500, 250));
    }

    void onlyStrictBase64AfterTheFirstCommaIsDecoded_data()
    {
        QTest::addColumn<QByteArray>("dataUrl");
        QTest::addColumn<bool>("isImage");
        // Padded, so that there is a padding to do without.
        QByteArray bytes = encoded(quarters({8, 8}), "PNG");
        bytes.append(QByteArray(4 - bytes.size() % 3, '\0'));
        const QByteArray payload = bytes.toBase64();
        QVERIFY(payload.endsWith("==") && bytes.size() % 3 == 1);
        const QByteArray head = "data:image/png;base64,";
        const auto row = [&](const char *name, const QByteArray &dataUrl, bool isImage) {
            QTest::newRow(name) << dataUrl << isImage;
        };
        row("as it should be", head + payload, true);
        row("with a media type that lies", "data:text/plain;base64," + payload, true);
        row("with nothing before the comma", "data:," + payload, true);
        row("without a comma", "data:image/png;base64" + payload, false);
        row("with nothing after the comma", head, false);
        row("with a second comma", head + ',' + payload, false);
        row("with a line break", head + QByteArray(payload).insert(20, '\n'), false);
        row("with a line break at the end", head + payload + '\n', false);
        row("with line breaks as mail has them", head + QByteArray(payload).insert(20, "\r\n"),
            false);
        row("with a space", head + QByteArray(payload).insert(20, ' '), false);
        row("with a space before it", head + ' ' + payload, false);
        row("without its padding", head + payload.chopped(2), false);
        row("with half of its padding", head + payload.chopped(1), false);
        row("with too much padding", head + payload + '=', false);
        row("with padding inside", head + QByteArray(payload).insert(20, "===="), false);
        row("with a character that is not base64", head + QByteArray(payload).replace(20, 1, "*"),
            false);
        row("with the letters of URLs", head + QByteArray(payload).replace(20, 2, "-_"), false);
        row("with bytes that are no image", head + QByteArray("no image").toBase64(), false);
        for (const char *format : {"PNG", "JPG", "WEBP", "BMP"}) {
            const QByteArray whole = encoded(quarters(size), format);
            row(qPrintable(QStringLiteral("with half of a ") + QLatin1String(format)),
                head + whole.first(whole.size() / 6 * 3).toBase64(), false);
        }
        row("with half of a GIF", head + gif().first(gif().size() / 2).toBase64(), false);
        row("with half of an image's header",
            head + encoded(quarters({8, 8}), "PNG").first(20).toBase64(), false);
    }

    void onlyStrictBase64AfterTheFirstCommaIsDecoded()
    {
        QFETCH(QByteArray, dataUrl);
        QFETCH(bool, isImage);
        QCOMPARE(!ZelvoImageLoader::image(mediaAt(dataUrl)).isNull(), isImage);
    }

    void aFileIsFoundByItsUrlAndByItsPath_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("a plain name") << QStringLiteral("image.png");
        QTest::newRow("spaces") << QStringLiteral("an image of us.png");
        QTest::newRow("umlauts") << QStringLiteral("Übermäßig schön.png");
        QTest::newRow("a percent sign") << QStringLiteral("100% sure.png");
        QTest::newRow("what looks percent-encoded") << QStringLiteral("a%20b%C3%BC.png");
        QTest::newRow("signs that divide URLs") << QStringLiteral("why? #1 & more.png");
        QTest::newRow("an emoji") << QStringLiteral("\U0001F600.png");
        QTest::newRow("an extension that lies") << QStringLiteral("image.txt");
        QTest::newRow("no extension") << QStringLiteral("image");
    }

    void aFileIsFoundByItsUrlAndByItsPath()
    {
        QFETCH(QString, name);
        const QString path = m_folder.filePath(name);
        writeFile(path, encoded(quarters(size), "PNG"));
        QVERIFY(showsQuarters(ZelvoImageLoader::image(mediaAt(path.toUtf8()))));
        const QByteArray url = QUrl::fromLocalFile(path).toEncoded();
        QVERIFY(showsQuarters(ZelvoImageLoader::image(mediaAt(url))));
        const QByteArray relative = QDir().relativeFilePath(path).toUtf8();
        QVERIFY(showsQuarters(ZelvoImageLoader::image(mediaAt(relative))));
    }

    void whatIsNoRegularFileIsNotRead_data()
    {
        QTest::addColumn<QByteArray>("place");
        const QByteArray pipe = m_folder.filePath(QStringLiteral("pipe")).toUtf8();
        QCOMPARE(mkfifo(pipe.constData(), S_IRUSR | S_IWUSR), 0);
        QTest::newRow("a pipe that nobody writes to") << pipe;
        QTest::newRow("its URL") << "file://" + pipe;
        QTest::newRow("a device without end") << QByteArray("/dev/zero");
        QTest::newRow("its URL, too") << QByteArray("file:///dev/zero");
        QTest::newRow("a folder") << m_folder.path().toUtf8();
        QTest::newRow("nothing") << QByteArray("/nonexistent/image.png");
        QTest::newRow("an empty text") << QByteArray();
        QTest::newRow("a file URL without a path") << QByteArray("file://");
        QTest::newRow("a NUL") << QByteArray("/tmp/a\0b", 8);
    }

    void whatIsNoRegularFileIsNotRead()
    {
        QFETCH(QByteArray, place);
        QVERIFY(ZelvoImageLoader::image(mediaAt(place)).isNull());
    }

    void aNameThatNoFileCanHaveIsLookedForNowhere_data()
    {
        QTest::addColumn<QByteArray>("place");
        QTest::newRow("a path") << QByteArray("/tmp/im\0age.png", 15);
        QTest::newRow("an address") << QByteArray("file:///tmp/im%00age.png");
    }

    void aNameThatNoFileCanHaveIsLookedForNowhere()
    {
        QFETCH(QByteArray, place);
        QCOMPARE(ZelvoImageLoader::fileName(mediaAt(place)), QString());
        QVERIFY(ZelvoImageLoader::image(mediaAt(place)).isNull());
    }

    void anAddressOnTheNetIsNoFile_data()
    {
        QTest::addColumn<QByteArray>("place");
        for (const char *place : {"http://127.0.0.1/image.png", "https://localhost/image.png",
                                  "ftp://127.0.0.1/image.png"})
            QTest::newRow(place) << QByteArray(place);
    }

    void anAddressOnTheNetIsNoFile()
    {
        QFETCH(QByteArray, place);
        QVERIFY(ZelvoImageLoader::image(mediaAt(place)).isNull());
    }

    void anImageThatEndsEarlyIsNone()
    {
        const QString path = m_folder.filePath(QStringLiteral("short.jpg"));
        const QByteArray whole = encoded(quarters(size), "JPG");
        writeFile(path, whole.chopped(whole.size() / 3));
        QVERIFY(ZelvoImageLoader::image(mediaAt(path.toUtf8())).isNull());
        writeFile(path, whole);
        QVERIFY(showsQuarters(ZelvoImageLoader::image(mediaAt(path.toUtf8()))));
    }

    void whatIsNotAnImageIsNone()
    {
        const QString path = m_folder.filePath(QStringLiteral("text.png"));
        writeFile(path, "no image");
        QVERIFY(ZelvoImageLoader::image(mediaAt(path.toUtf8())).isNull());
        writeFile(path, {});
        QVERIFY(ZelvoImageLoader::image(mediaAt(path.toUtf8())).isNull());
    }

private:
    QTemporaryDir m_folder;
};

QUENARA_TEST(TestImageLoader)

} // namespace tst_image_loader

#include "tst_image_loader.moc"
