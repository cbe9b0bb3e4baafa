#include "ChildProcess.h"
#include "ImageFile.h"
#include "Images.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QTest>

#include <sys/stat.h>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_image_file {

namespace {

QByteArray encodedImage(const char *format)
{
    return encoded(quarters({48, 32}), format);
}

QByteArray halfOf(const char *format)
{
    const QByteArray whole = encoded(quarters({640, 480}), format);
    return whole.first(whole.size() / 2);
}

const QByteArray drawing = "<svg xmlns='http://www.w3.org/2000/svg' width='48' height='32'>"
                           "<rect width='24' height='16' fill='#ff0000'/></svg>";

QByteArray declared(const QByteArray &markup)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + markup;
}

} // namespace

class TestImageFile : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // What Qt says of broken images.
        QLoggingCategory::setFilterRules(u"qt.gui.imageio*=false\nqt.svg*=false"_s);
    }

    void anImageIsEmbeddedWithTheTypeOfItsContent_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("type");
        const auto row = [](const QString &name, const QByteArray &bytes, const QString &type) {
            QTest::newRow(qPrintable(name)) << name << bytes << type;
        };
        const QByteArray longComment = "<!-- " + QByteArray(2000, 'x') + " -->\n";
        row(u"image.png"_s, encodedImage("PNG"), u"image/png"_s);
        row(u"image.jpg"_s, encodedImage("JPG"), u"image/jpeg"_s);
        row(u"image.webp"_s, encodedImage("WEBP"), u"image/webp"_s);
        row(u"image.bmp"_s, encodedImage("BMP"), u"image/bmp"_s);
        row(u"image.tiff"_s, encodedImage("TIFF"), u"image/tiff"_s);
        row(u"image.gif"_s,
            QByteArray::fromBase64("R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIBRAA7"),
            u"image/gif"_s);
        row(u"drawing.svg"_s, drawing, u"image/svg+xml"_s);
        row(u"declared.svg"_s, declared(drawing), u"image/svg+xml"_s);
        row(u"commented.svg"_s, declared(longComment + drawing), u"image/svg+xml"_s);
        row(u"icon.ico"_s, encodedImage("ICO"), u"image/vnd.microsoft.icon"_s);
        row(u"image.ppm"_s, encodedImage("PPM"), u"image/x-portable-pixmap"_s);
        row(u"image.jfif"_s, encodedImage("JPG"), u"image/jpeg"_s);
        row(u"a PNG called.jpg"_s, encodedImage("PNG"), u"image/png"_s);
        row(u"a JPEG called.png"_s, encodedImage("JPG"), u"image/jpeg"_s);
        row(u"a PNG called.txt"_s, encodedImage("PNG"), u"image/png"_s);
        row(u"a drawing called.jpg"_s, declared(drawing), u"image/svg+xml"_s);
        row(u"without a suffix"_s, encodedImage("JPG"), u"image/jpeg"_s);
        row(u"Grüße, 100% \u6b4c #1?.png"_s, encodedImage("PNG"), u"image/png"_s);
    }

    void anImageIsEmbeddedWithTheTypeOfItsContent()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, type);
        const World world;
        const SlideMedia expected{.dataUrl =
                                      "data:" + type.toLatin1() + ";base64," + bytes.toBase64(),
                                  .name = name,
                                  .mimeType = type};
        QCOMPARE(imageFromFile(world.written(name, bytes)), expected);
    }

    void whatIsNoImageIsNotTaken_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        const auto row = [](const QString &name, const QByteArray &bytes) {
            QTest::newRow(qPrintable(name)) << name << bytes;
        };
        row(u"empty.png"_s, {});
        row(u"a text called.png"_s, "Only words.\n");
        row(u"a page called.svg"_s, "<!DOCTYPE html><html><body>Words</body></html>");
        row(u"other markup called.svg"_s, declared("<score><note/></score>"));
        row(u"a drawing's beginning.svg"_s, declared(drawing).first(100));
        row(u"a project called.png"_s, dataBytes(u"current.quenara"_s));
        row(u"a PNG's beginning.png"_s, encodedImage("PNG").first(40));
        row(u"a PNG's signature.png"_s, encodedImage("PNG").first(8));
        for (const char *format : {"PNG", "JPG", "WEBP", "BMP", "ICO", "PPM"})
            row(u"cut short."_s + QString::fromLatin1(format).toLower(), halfOf(format));
        row(u"without its last byte.jpg"_s, encodedImage("JPG").chopped(1));
        row(u"a JPEG's beginning.jpg"_s, encodedImage("JPG").first(20));
        row(u"zeros.jpg"_s, QByteArray(4096, '\0'));
        row(u"a document of another kind.png"_s, "%PDF-1.4\n1 0 obj\n<<>>\nendobj\n");
    }

    void whatIsNoImageIsNotTaken()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        const World world;
        QVERIFY(!imageFromFile(world.written(name, bytes)));
    }

    void aPlaceWithoutAFileIsNotTaken()
    {
        const World world;
        const QString pipe = world.folder.filePath(u"pipe.png"_s);
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QVERIFY(QDir(world.folder.path()).mkdir(u"folder.png"_s));
        for (const QUrl &url :
             {world.fileUrl(u"missing.png"_s), world.fileUrl(u"folder.png"_s),
              world.fileUrl(u"pipe.png"_s), QUrl::fromLocalFile(u"/dev/zero"_s), QUrl(),
              QUrl(u"https://example.org/image.png"_s), QUrl(u"image.png"_s)})
            QVERIFY2(!imageFromFile(url), qPrintable(url.toString()));
    }

    void aFileWithoutLeaveToReadIsNotTaken()
    {
        const World world;
        const QUrl url = world.written(u"image.png"_s, encodedImage("PNG"));
        QCOMPARE(::chmod(QFile::encodeName(world.folder.path()).constData(), 0755), 0);
        QVERIFY(QFile::setPermissions(url.toLocalFile(), {}));
        // Root may read every file.
        QCOMPARE(statusOfProcess([&] { return dropPrivileges() && !imageFromFile(url) ? 0 : 1; }),
                 0);
    }

    void aFileThatNoDocumentCouldHoldIsNotTaken()
    {
        const World world;
        const QUrl url = world.written(u"large.png"_s, encodedImage("PNG"));
        QVERIFY(QFile::resize(url.toLocalFile(), 3'000'000'001));
        QVERIFY(!imageFromFile(url));
    }
};

QUENARA_TEST_WITH(QGuiApplication, TestImageFile)

} // namespace tst_image_file

#include "tst_image_file.moc"
