#include "EncodedImage.h"
#include "Images.h"
#include "TestMain.h"

#include <QBuffer>
#include <QImageWriter>
#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_encoded_image {

namespace {

constexpr QSize size(48, 32);

QByteArray bitmap(QImage::Format format)
{
    return encoded(quarters(size).convertToFormat(format), "BMP");
}

QByteArray progressiveJpeg()
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "JPG");
    writer.setProgressiveScanWrite(true);
    writer.write(quarters(size));
    return buffer.data();
}

/// A JPEG whose header holds another one, as cameras store a small image beside the large one.
QByteArray jpegWithThumbnail()
{
    const QByteArray thumbnail = encoded(quarters({8, 8}), "JPG");
    QByteArray sizeField(2, '\0');
    sizeField[0] = char((thumbnail.size() + 2) >> 8);
    sizeField[1] = char((thumbnail.size() + 2) & 0xff);
    return encoded(quarters(size), "JPG").insert(2, "\xff\xe1" + sizeField + thumbnail);
}

/// A GIF of a pixel with its colours and an extension, up to the mark of the end.
QByteArray frame()
{
    const QByteArray control("\x21\xf9\x04\0\x0a\0\0\0", 8);
    const QByteArray pixel("\x02\x02\x44\x01\0", 5);
    const QByteArray colors("\0\0\0\xff\xff\xff", 6);
    return QByteArray("GIF89a\x01\0\x01\0\x80\0\0", 13) + colors + control
        + QByteArray(",\0\0\0\0\x01\0\x01\0\x80", 10) + colors + pixel;
}

/// The head of a BMP of that size without any pixels.
QByteArray bitmapHead(const QByteArray &width, const QByteArray &height)
{
    return bitmap(QImage::Format_RGB32).first(54).replace(18, 4, width).replace(22, 4, height);
}

} // namespace

class TestEncodedImage : public QObject
{
    Q_OBJECT

private slots:
    void anImageCutAnywhereEndsEarly_data()
    {
        QTest::addColumn<QByteArray>("whole");
        QTest::addColumn<int>("signature"); ///< bytes by which the format is known
        QTest::addColumn<int>("idle"); ///< bytes at the end that the image does not need
        const auto row = [](const char *name, const QByteArray &whole, int signature,
                            int idle = 0) { QTest::newRow(name) << whole << signature << idle; };
        row("JPEG", encoded(quarters(size), "JPG"), 3);
        row("JPEG of several scans", progressiveJpeg(), 3);
        row("JPEG with a small one inside", jpegWithThumbnail(), 3);
        row("PNG", encoded(quarters(size), "PNG"), 8);
        row("GIF", frame() + ';', 6, 1);
        row("WebP", encoded(quarters(size), "WEBP"), 4);
        row("BMP of 24 bits a pixel", bitmap(QImage::Format_RGB32), 2);
        row("BMP of 32 bits a pixel", bitmap(QImage::Format_ARGB32), 2);
        row("BMP of 8 bits a pixel", bitmap(QImage::Format_Indexed8), 2);
        row("BMP of a bit a pixel", bitmap(QImage::Format_Mono), 2);
    }

    void anImageCutAnywhereEndsEarly()
    {
        QFETCH(QByteArray, whole);
        QFETCH(int, signature);
        QFETCH(int, idle);
        QVERIFY(!endsEarly(whole));
        QVERIFY(!endsEarly(whole + "what a program has added"));
        for (qsizetype length = signature; length < whole.size() - idle; ++length)
            QVERIFY2(endsEarly(whole.first(length)), QByteArray::number(length).constData());
        for (qsizetype length = whole.size() - idle; length < whole.size(); ++length)
            QVERIFY(!endsEarly(whole.first(length)));
    }

    void anAnimationEndsEarlyWithinAFrameAndNotBetweenTwo()
    {
        const QByteArray extensionAndSecond = frame().sliced(19);
        constexpr qsizetype extensionSize = 8;
        QVERIFY(!endsEarly(frame() + extensionAndSecond));
        for (qsizetype length = 1; length < extensionAndSecond.size(); ++length) {
            QCOMPARE(endsEarly(frame() + extensionAndSecond.first(length)),
                     length != extensionSize);
        }
    }

    void aBitmapOfAnySizeThatItHasNoPixelsForEndsEarly_data()
    {
        QTest::addColumn<QByteArray>("width");
        QTest::addColumn<QByteArray>("height");
        const QByteArray one("\1\0\0\0", 4);
        const QByteArray largest("\xff\xff\xff\x7f");
        QTest::newRow("a pixel") << one << one;
        QTest::newRow("a pixel, from the top down") << one << QByteArray("\xff\xff\xff\xff");
        QTest::newRow("more than can be counted") << largest << largest;
        QTest::newRow("as much upside down") << largest << QByteArray("\0\0\0\x80", 4);
    }

    void aBitmapOfAnySizeThatItHasNoPixelsForEndsEarly()
    {
        QFETCH(QByteArray, width);
        QFETCH(QByteArray, height);
        QVERIFY(endsEarly(bitmapHead(width, height)));
    }

    void nothingIsSaidOfOtherFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("a text") << QByteArray("Only words.\n");
        QTest::newRow("half of a TIFF") << encoded(quarters(size), "TIFF").first(200);
    }

    void nothingIsSaidOfOtherFiles()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!endsEarly(bytes));
    }
};

QUENARA_TEST(TestEncodedImage)

} // namespace tst_encoded_image

#include "tst_encoded_image.moc"
