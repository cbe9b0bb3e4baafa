#include "GuiTestSupport.h"

#include <QtEndian>

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
    }

    void anImageTakesNoMoreMemoryThanItMay()
    {
        QFETCH(QByteArray, bytes);
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
