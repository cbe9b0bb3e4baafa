#include "FilePanels.h"
#include "TestMain.h"

#include <QImageReader>
#include <QTest>

using namespace quenara;
using namespace Qt::StringLiterals;

namespace tst_file_panels {

namespace {

QStringList patternsOf(const FilePanel &panel)
{
    QStringList patterns;
    for (const FilePanel::Filter &filter : panel.filters)
        patterns.append(filter.patterns);
    patterns.removeDuplicates();
    return patterns;
}

} // namespace

class TestFilePanels : public QObject
{
    Q_OBJECT

private slots:
    void projectsAreOpenedFromProjectAndJsonFiles()
    {
        const FilePanel panel = zelvoProjectOpenPanel();
        QCOMPARE(panel.kind, FilePanel::Kind::open);
        QCOMPARE(panel.title, u"Open Quenara Project"_s);
        QCOMPARE(patternsOf(panel), (QStringList{u"*.quenara"_s, u"*.json"_s}));
        QCOMPARE(panel.filters.first().patterns, (QStringList{u"*.quenara"_s, u"*.json"_s}));
    }

    void imagesAreChosenByTheirFileNames()
    {
        const FilePanel panel = zelvoImageOpenPanel();
        QCOMPARE(panel.kind, FilePanel::Kind::open);
        QCOMPARE(panel.title, u"Choose Image"_s);
        QCOMPARE(panel.filters.size(), 2);
        QCOMPARE(panel.filters.at(0).title, u"All pictures"_s);
        const QStringList patterns = panel.filters.at(0).patterns;
        for (const char *suffix : {"png", "jpg", "jpeg", "jpe", "jfif", "gif", "webp", "bmp", "tif",
                                   "tiff", "svg", "ico", "ppm"})
            QVERIFY2(patterns.contains(u"*."_s + QLatin1String(suffix)), suffix);
        QVERIFY(!patterns.contains(u"*"_s));
        QVERIFY(!patterns.contains(u"*.quenara"_s));
        QCOMPARE(panel.filters.at(1).title, u"All files"_s);
        QCOMPARE(panel.filters.at(1).patterns, QStringList{u"*"_s});
    }

    void picturesAreOfferedAsFarAsTheirReadersAreThere()
    {
        const QStringList patterns = zelvoImageOpenPanel().filters.constFirst().patterns;
        const bool readsHeic = QImageReader::supportedMimeTypes().contains("image/heif");
        QCOMPARE(patterns.contains(u"*.heic"_s), readsHeic);
    }

    void projectsAreSavedAsProjectFilesOnly()
    {
        const FilePanel panel = zelvoProjectSavePanel(u"Sunday"_s);
        QCOMPARE(panel.kind, FilePanel::Kind::save);
        QCOMPARE(panel.title, u"Save Quenara Project"_s);
        QCOMPARE(patternsOf(panel), QStringList{u"*.quenara"_s});
        QCOMPARE(panel.defaultSuffix, u"quenara"_s);
    }

    void theSavePanelsNameEndsInTheProjectSuffix_data()
    {
        QTest::addColumn<QString>("defaultName");
        QTest::addColumn<QString>("expected");
        QTest::newRow("a bare name") << u"Sunday"_s << u"Sunday.quenara"_s;
        QTest::newRow("a name that has it") << u"Sunday.quenara"_s << u"Sunday.quenara"_s;
        QTest::newRow("another suffix stays") << u"Sunday.json"_s << u"Sunday.json.quenara"_s;
        QTest::newRow("a suffix in capitals is another one")
            << u"Sunday.QUENARA"_s << u"Sunday.QUENARA.quenara"_s;
        QTest::newRow("the suffix without its dot is part of the name")
            << u"Sundayquenara"_s << u"Sundayquenara.quenara"_s;
    }

    void theSavePanelsNameEndsInTheProjectSuffix()
    {
        QFETCH(QString, defaultName);
        QTEST(zelvoProjectSavePanel(defaultName).fileName, "expected");
    }

    void aDocumentOfPagesIsSavedAsOne()
    {
        const FilePanel panel = exportedPagesPanel(u"Sunday"_s);
        QCOMPARE(panel.kind, FilePanel::Kind::save);
        QCOMPARE(panel.fileName, u"Sunday.pdf"_s);
        QCOMPARE(panel.defaultSuffix, u"pdf"_s);
        QCOMPARE(panel.filters.constFirst().patterns, QStringList{u"*.pdf"_s});
    }

    void picturesAreGivenAFolder()
    {
        QCOMPARE(exportedPicturesPanel().kind, FilePanel::Kind::folder);
        QVERIFY(exportedPicturesPanel().fileName.isEmpty());
    }

    void aFileIsCalledAsItsProject()
    {
        QCOMPARE(proposedName(u"Sunday"_s), u"Sunday"_s);
        QCOMPARE(proposedName({}), u"Quenara"_s);
        QCOMPARE(proposedName(QString(1000, u'a')).size(), 200);
    }
};

QUENARA_TEST(TestFilePanels)

} // namespace tst_file_panels

#include "tst_file_panels.moc"
