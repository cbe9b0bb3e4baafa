#include "ProjectFileService.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QFile>
#include <QImage>
#include <QMimeDatabase>
#include <QPainter>
#include <QSvgRenderer>
#include <QTest>

namespace tst_project_file_type {

namespace {

using namespace quenara;
using namespace quenara::test;

QString iconPath(const QString &name)
{
    return QStringLiteral(QUENARA_PREFIX "/share/icons/hicolor/scalable/%1.svg").arg(name);
}

QMimeType typeOfTheProgram()
{
    return QMimeDatabase().mimeTypeForName(QLatin1String(ProjectFileService::mimeType));
}

/// The share of an image's pixels that are painted at all.
double coverage(const QImage &image)
{
    int painted = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            painted += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
    }
    return static_cast<double>(painted) / (image.width() * image.height());
}

class ProjectFileType : public QObject
{
    Q_OBJECT

private slots:
    void aProjectFileIsOfTheTypeThatTheProgramNames();
    void aNewFileOfTheTypeGetsTheProgramsExtension();
    void theTypeHasANameForPeopleAndAnIcon();
    void anIconRendersAtEverySize_data();
    void anIconRendersAtEverySize();
};

void ProjectFileType::aProjectFileIsOfTheTypeThatTheProgramNames()
{
    const QMimeType type =
        QMimeDatabase().mimeTypeForFile(dataPath(QStringLiteral("current.quenara")));

    QCOMPARE(type.name(), QLatin1String(ProjectFileService::mimeType));
}

void ProjectFileType::aNewFileOfTheTypeGetsTheProgramsExtension()
{
    QCOMPARE(typeOfTheProgram().preferredSuffix(),
             QLatin1String(ProjectFileService::fileExtension));
}

void ProjectFileType::theTypeHasANameForPeopleAndAnIcon()
{
    const QMimeType type = typeOfTheProgram();

    QCOMPARE(type.comment(), QStringLiteral("Quenara project"));
    QVERIFY(QFile::exists(iconPath(QStringLiteral("mimetypes/") + type.iconName())));
}

void ProjectFileType::anIconRendersAtEverySize_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");
    for (const char *name : {"apps/quenara", "mimetypes/application-x-quenara"}) {
        for (const int size : {16, 24, 48, 256})
            QTest::addRow("%s at %d pixels", name, size) << QString::fromLatin1(name) << size;
    }
}

void ProjectFileType::anIconRendersAtEverySize()
{
    QFETCH(const QString, name);
    QFETCH(const int, size);

    QSvgRenderer icon(iconPath(name));
    QVERIFY(icon.isValid());
    QCOMPARE(icon.viewBox().width(), icon.viewBox().height());

    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    icon.render(&painter);
    painter.end();

    // Most of the square, but not its corners: there the desktop shows through.
    QVERIFY(coverage(image) > 0.5);
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    QCOMPARE(qAlpha(image.pixel(size - 1, size - 1)), 0);
}

} // namespace

QUENARA_TEST(ProjectFileType)

} // namespace tst_project_file_type

#include "tst_project_file_type.moc"
