#include "GuiTestSupport.h"

#include <QBuffer>
#include <QImageWriter>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <sys/resource.h>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_hostile_images {

namespace {

/// The most memory that the process has held so far.
qint64 peakBytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return qint64(usage.ru_maxrss) * 1024;
}

QByteArray bigEndian(quint32 value)
{
    std::array<char, sizeof(value)> bytes{};
    qToBigEndian(value, bytes.data());
    return {bytes.data(), qsizetype(bytes.size())};
}

/// The check sum of PNG: CRC-32 as in ISO 3309.
quint32 checkSum(const QByteArray &bytes)
{
    constexpr quint32 polynomial = 0xedb88320;
    quint32 sum = ~0U;
    for (const char byte : bytes) {
        sum ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1U) ^ ((sum & 1U) != 0 ? polynomial : 0U);
    }
    return ~sum;
}

QByteArray chunk(const QByteArray &type, const QByteArray &data)
{
    return bigEndian(quint32(data.size())) + type + data + bigEndian(checkSum(type + data));
}

/// How the pixels of a PNG are stored, as its header says it.
struct Depth
{
    char bits;
    char colorType;
};
constexpr Depth trueColour{8, 6};
constexpr Depth blackAndWhite{1, 0};

/// A PNG of \a size by its header and of \a rows black rows by its data.
QByteArray png(const QSize &size, const Depth &depth, int rows)
{
    const QByteArray header = bigEndian(quint32(size.width())) + bigEndian(quint32(size.height()))
        + depth.bits + depth.colorType + QByteArray(3, '\0');
    const qsizetype samples = depth.colorType == trueColour.colorType ? 4 : 1;
    const qsizetype rowBytes = 1 + (size.width() * samples * depth.bits + 7) / 8;
    // qCompress puts the size before the zlib stream.
    const QByteArray data = qCompress(QByteArray(rowBytes * rows, '\0')).mid(sizeof(quint32));
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", header) + chunk("IDAT", data) + chunk("IEND", {});
}

template<class... Numbers>
QByteArray littleEndian(Numbers... values)
{
    QByteArray bytes;
    const auto append = [&bytes](auto value) {
        std::array<char, sizeof(value)> part{};
        qToLittleEndian(value, part.data());
        bytes.append(part.data(), qsizetype(part.size()));
    };
    (append(values), ...);
    return bytes;
}

/// A bitmap of 256 colours that is compressed by the lengths of runs; \a rows of it are there.
QByteArray bitmap(quint32 side, int rows)
{
    QByteArray row;
    for (quint32 left = side; left > 0; left -= std::min(left, 255U))
        row += QByteArray(1, char(std::min(left, 255U))) + '\1';
    const QByteArray pixels = (row + QByteArray(2, '\0')).repeated(rows) + QByteArray("\0\1", 2);
    const QByteArray palette(1024, '\0');
    constexpr quint32 headers = 14 + 40;
    const auto start = headers + quint32(palette.size());
    return "BM" + littleEndian(start + quint32(pixels.size()), quint32(0), start)
        + littleEndian(quint32(40), side, side, quint16(1), quint16(8), quint32(1),
                       quint32(pixels.size()), quint32(0), quint32(0), quint32(256), quint32(0))
        + palette + pixels;
}

/// An icon that is \a image.
QByteArray icon(const QByteArray &image)
{
    constexpr quint32 start = 6 + 16;
    return littleEndian(quint16(0), quint16(1), quint16(1), quint32(0), quint16(1), quint16(32),
                        quint32(image.size()), start)
        + image;
}

/// A GIF that is shown on \a side by \a side pixels and holds one of them.
QByteArray gif(quint16 side)
{
    return "GIF89a" + littleEndian(side, side) + QByteArray("\xa1\0\0", 3) + QByteArray(12, '\xff')
        + QByteArray(",\0\0\0\0\1\0\1\0\0\2\2\x4c\1\0;", 16);
}

/// A TIFF of one strip with one grey byte a pixel, compressed or not.
QByteArray tiff(quint32 side, const QByteArray &strip, quint32 compression)
{
    const QList<std::array<quint32, 2>> tags = {
        {256, side}, {257, side}, {258, 8},    {259, compression},          {262, 1},
        {273, 8},    {277, 1},    {278, side}, {279, quint32(strip.size())}};
    QByteArray directory = littleEndian(quint16(tags.size()));
    for (const auto &[tag, value] : tags)
        directory += littleEndian(quint16(tag), quint16(4), quint32(1), value);
    const QByteArray even = strip + QByteArray(strip.size() % 2, '\0');
    return "II*" + QByteArray(1, '\0') + littleEndian(quint32(8 + even.size())) + even + directory
        + QByteArray(4, '\0');
}

/// \a bytes with \a width and height of \a side where their header has these.
QByteArray claiming(QByteArray bytes, const QByteArray &before, const QByteArray &sides)
{
    const qsizetype at = bytes.indexOf(before);
    return at < 0 ? QByteArray() : bytes.replace(at + before.size(), sides.size(), sides);
}

QByteArray encodedAs(const char *format)
{
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, format);
    writer.setQuality(100); // of WebP: without loss
    writer.write(image);
    return bytes;
}

SlideMedia mediaOf(const QByteArray &bytes)
{
    return {"data:image/png;base64," + bytes.toBase64(), u"image.png"_s, u"image/png"_s};
}

Slide slideOf(const SlideMedia &media)
{
    SlideBackground background = solidBackground({0, 0, 1, 1});
    background.kind = SlideBackgroundKind::image;
    background.image = media;
    SlideDesign design = designOver(background);
    SlideElement layer = rectangleLayer(u"image"_s, {100, 100, 400, 300}, {}, 1);
    layer.kind = SlideElementKind::image;
    layer.shape.reset();
    layer.image = media;
    design.elements.append(layer);
    return slideWith(design);
}

} // namespace

/// No GuiTest: the image readers may warn of what they refuse.
class TestHostileImages : public QObject
{
    Q_OBJECT

private slots:
    void anImageTakesNoMoreMemoryThanItMay_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("a header of 60,000 by 60,000 alone")
            << png({60000, 60000}, trueColour, 0).first(33);
        QTest::newRow("60,000 by 60,000 with one row") << png({60000, 60000}, trueColour, 1);
        QTest::newRow("one bit a pixel, with one row") << png({60000, 60000}, blackAndWhite, 1);
        QTest::newRow("a small image whose header lies") << png({5000, 5000}, trueColour, 4);
        QTest::newRow("the largest sides that PNG has")
            << png({2147483647, 2147483647}, blackAndWhite, 0);
        QTest::newRow("black and white, and all of it there")
            << png({5500, 5500}, blackAndWhite, 5500);
        QTest::newRow("black and white, of 20,000 by 20,000, and all of it there")
            << png({20000, 20000}, blackAndWhite, 20000);
        QTest::newRow("a bitmap of 60,000 by 60,000") << bitmap(60000, 1);
        QTest::newRow("a bitmap of 16,000 by 16,000, and all of it there") << bitmap(16000, 16000);
        QTest::newRow("a GIF of 65,535 by 65,535") << gif(65535);
        QTest::newRow("a GIF of 6,000 by 6,000") << gif(6000);
        QTest::newRow("an icon of 20,000 by 20,000")
            << icon(png({20000, 20000}, blackAndWhite, 20000));
        QTest::newRow("a TIFF of 60,000 by 60,000") << tiff(60000, QByteArray(100, '\0'), 1);
        QTest::newRow("a TIFF of 9,000 by 9,000, and all of it there")
            << tiff(9000, qCompress(QByteArray(81'000'000, '\0')).mid(4), 8);
        QTest::newRow("a JPEG of 65,500 by 65,500")
            << claiming(encodedAs("JPG"), QByteArray("\xff\xc0\0\x11\x08", 5),
                        QByteArray("\xff\xdc\xff\xdc", 4));
        QTest::newRow("a WebP of 16,384 by 16,384")
            << claiming(encodedAs("WEBP"), QByteArray(1, '/'), QByteArray("\xff\xff\xff\x0f", 4));
        QTest::newRow("a TGA of 20,000 by 20,000") << QByteArray("\0\0\2\0\0\0\0\0\0\0\0\0", 12)
                + littleEndian(quint16(20000), quint16(20000)) + QByteArray(" (")
                + QByteArray(1000, '\0');
    }

    void anImageTakesNoMoreMemoryThanItMay()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!bytes.isEmpty());
        const qint64 before = peakBytes();
        const Slide slide = slideOf(mediaOf(bytes));
        const QImage image = rendered({.slide = slide}, {480, 270});
        QCOMPARE(image.size(), QSize(480, 270));
        constexpr qint64 most = qint64(512) * 1024 * 1024;
        QVERIFY2(peakBytes() - before < most, QByteArray::number(peakBytes() - before).constData());
    }
};

QUENARA_GUI_TEST(TestHostileImages)

} // namespace tst_hostile_images

#include "tst_hostile_images.moc"
