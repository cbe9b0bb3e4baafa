#include "FilePanels.h"
#include "TestMain.h"

#include <QTest>

using namespace quenara;
using namespace Qt::StringLiterals;

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
        const QStringList patterns = patternsOf(panel);
        for (const QString &pattern : {u"*.png"_s, u"*.jpg"_s, u"*.jpeg"_s, u"*.gif"_s})
            QVERIFY2(patterns.contains(pattern), qPrintable(pattern));
        QVERIFY(!patterns.contains(u"*"_s));
        QVERIFY(!patterns.contains(u"*.quenara"_s));
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
};

QUENARA_TEST_MAIN(TestFilePanels)
#include "tst_file_panels.moc"
