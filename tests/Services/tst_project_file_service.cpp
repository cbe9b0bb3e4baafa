#include "ProjectFileService.h"
#include "ProjectNormalizer.h"
#include "ProjectTemplates.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <limits>
#include <tuple>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_project_file_service {

namespace {

const QUrl notLocal(u"http://localhost/show.quenara"_s);

template<class Operation>
std::optional<ProjectFileError> errorOf(const Operation &operation)
{
    try {
        operation();
    } catch (const ProjectFileError &error) {
        return error;
    }
    return std::nullopt;
}

ZelvoProject loadData(const QString &name)
{
    return ProjectFileService::load(QUrl::fromLocalFile(dataPath(name)), someTime());
}

QByteArray bytesOf(const QUrl &url)
{
    QFile file(url.toLocalFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestProjectFileService : public QObject
{
    Q_OBJECT

private slots:
    void everyFailureHasItsTextForTheOperator()
    {
        QCOMPARE(ProjectFileError(ProjectFileError::unableToRead).description(),
                 u"Quenara could not read that file."_s);
        QCOMPARE(ProjectFileError(ProjectFileError::unableToWrite).description(),
                 u"Quenara could not save the project."_s);
        QCOMPARE(ProjectFileError(ProjectFileError::unsupportedFormat).description(),
                 u"That file does not look like a Quenara project."_s);
    }

    void whatCannotBeLoadedFailsByItsReason_data()
    {
        QTest::addColumn<QUrl>("url");
        QTest::addColumn<int>("expected");
        const auto row = [](const char *name, const QUrl &url, ProjectFileError::Case expected) {
            QTest::newRow(name) << url << int(expected);
        };
        const auto data = [](const QString &name) { return QUrl::fromLocalFile(dataPath(name)); };
        row("a missing file", fileUrl(u"missing.quenara"_s), ProjectFileError::unableToRead);
        row("a folder", fileUrl(QString()), ProjectFileError::unableToRead);
        row("an address on the network", notLocal, ProjectFileError::unableToRead);
        row("no address", QUrl(), ProjectFileError::unableToRead);
        row("broken JSON", data(u"broken.json"_s), ProjectFileError::unsupportedFormat);
        row("a list", data(u"array.json"_s), ProjectFileError::unsupportedFormat);
    }

    void whatCannotBeLoadedFailsByItsReason()
    {
        QFETCH(QUrl, url);
        QFETCH(int, expected);
        const auto error =
            errorOf([&] { std::ignore = ProjectFileService::load(url, someTime()); });
        QCOMPARE(error, ProjectFileError(ProjectFileError::Case(expected)));
    }

    void aCurrentDocumentIsLoadedNormalized()
    {
        const ZelvoProject project = loadData(u"current.quenara"_s);
        QCOMPARE(project, ProjectNormalizer::normalized(project));
        QCOMPARE(project.serviceItems.first().slides.first().body, u"Come in"_s);
        QCOMPARE(project.updatedAt, someTime());
    }

    void emptySlideObjectsAreLoadedInOrder()
    {
        const ZelvoProject project = loadData(u"empty-slides.quenara"_s);
        const QList<Slide> &slides = project.serviceItems.first().slides;
        QCOMPARE(slides.size(), 2);
        QCOMPARE(slides.at(1).orderIndex, 1);
        QCOMPARE(slides.at(1).title, u"Slide"_s);
    }

    void anEmptyObjectIsLoadedAsOneImportedSlide()
    {
        const ZelvoProject project = loadData(u"empty-object.json"_s);
        QCOMPARE(project.name, u"Imported Quenara"_s);
        QCOMPARE(project.updatedAt, someTime());
        QCOMPARE(project.serviceItems.size(), 1);
        QCOMPARE(project.serviceItems.first().type, ServiceItemType::custom);
        QCOMPARE(project.serviceItems.first().slides.size(), 1);
        QCOMPARE(project.serviceItems.first().slides.first().title, u"Imported Slide"_s);
    }

    void flatSlidesAreLoadedIntoOneItem()
    {
        const ZelvoProject project = loadData(u"legacy-flat.json"_s);
        QCOMPARE(project.id, u"OLD-1"_s);
        QCOMPARE(project.name, u"Harvest Festival"_s);
        QCOMPARE(project.serviceItems.size(), 1);
        const ServiceItem &item = project.serviceItems.first();
        QCOMPARE(item.title, u"Harvest Festival"_s);
        QStringList rows;
        for (const Slide &slide : item.slides) {
            rows.append(u"%1 %2 %3 %4"_s.arg(slide.orderIndex)
                            .arg(slide.title, slide.body, slide.design.themeId.value_or(u"-"_s)));
        }
        QCOMPARE(rows,
                 (QStringList{u"0 Opening We plough the fields centerLyric"_s,
                              u"1 Slide 2 All good gifts imageBackgroundLyric"_s,
                              u"2 Slide 3  centerLyric"_s}));
    }

    void emojiBecomePrefixesOfMissingTitles()
    {
        QStringList titles;
        const ZelvoProject project = loadData(u"legacy-emoji.json"_s);
        for (const Slide &slide : project.serviceItems.first().slides)
            titles.append(slide.title);
        QCOMPARE(titles, (QStringList{u"\u271d Slide 1"_s, u"Named"_s, u"Slide 3"_s}));
    }

    void aSavedProjectLoadsEqualButForItsTime()
    {
        const QUrl url = fileUrl(u"round.quenara"_s);
        const ZelvoProject project =
            ProjectNormalizer::normalized(ProjectTemplates::demoProject(someTime()));
        const QDateTime later = someTime().addSecs(90);
        ProjectFileService::save(project, url, later);
        ZelvoProject expected = project;
        expected.updatedAt = later;
        QCOMPARE(ProjectFileService::load(url, someTime()), expected);
    }

    void aProjectSavedWithoutItemsLoadsWithAnImportedSlide()
    {
        const QUrl url = fileUrl(u"blank.quenara"_s);
        const ZelvoProject blank = ProjectTemplates::blankProject(someTime());
        ProjectFileService::save(blank, url, someTime());
        const ZelvoProject loaded = ProjectFileService::load(url, someTime());
        QCOMPARE(loaded.id, blank.id);
        QCOMPARE(loaded.name, blank.name);
        QCOMPARE(loaded.kind, ProjectKind::blank);
        QCOMPARE(loaded.serviceItems.size(), 1);
        QCOMPARE(loaded.serviceItems.first().title, blank.name);
        QCOMPARE(slideIDs(loaded).size(), 1);
    }

    void savingNormalizesWhatItWrites()
    {
        const QUrl url = fileUrl(u"normalized.quenara"_s);
        ZelvoProject project = showOf({2});
        project.schemaVersion = 1;
        project.serviceItems[0].slides[0].orderIndex = 5;
        project.serviceItems[0].slides[0].body = u"stale"_s;
        ProjectFileService::save(project, url, someTime());
        QCOMPARE(ProjectFileService::load(url, someTime()), showOf({2}));
    }

    void theSameProjectIsWrittenAsTheSameBytes()
    {
        const ZelvoProject project = ProjectTemplates::demoProject(someTime());
        ProjectFileService::save(project, fileUrl(u"one.quenara"_s), someTime());
        ProjectFileService::save(project, fileUrl(u"two.quenara"_s), someTime());
        const QByteArray bytes = bytesOf(fileUrl(u"one.quenara"_s));
        QVERIFY(!bytes.isEmpty());
        QCOMPARE(bytesOf(fileUrl(u"two.quenara"_s)), bytes);
    }

    void savingReplacesTheWholeFile()
    {
        const QUrl url = fileUrl(u"replaced.quenara"_s);
        ProjectFileService::save(ProjectTemplates::demoProject(someTime()), url, someTime());
        const qsizetype before = bytesOf(url).size();
        ProjectFileService::save(showOf({1}), url, someTime());
        QVERIFY(bytesOf(url).size() < before);
        QCOMPARE(ProjectFileService::load(url, someTime()), showOf({1}));
    }

    void whatCannotBeWrittenFails_data()
    {
        QTest::addColumn<QUrl>("url");
        QTest::newRow("a missing folder") << fileUrl(u"no/such/folder.quenara"_s);
        QTest::newRow("a folder in its place") << fileUrl(QString());
        QTest::newRow("an address on the network") << notLocal;
        QTest::newRow("no address") << QUrl();
    }

    void whatCannotBeWrittenFails()
    {
        QFETCH(QUrl, url);
        const auto error = errorOf([&] { ProjectFileService::save(showOf({1}), url, someTime()); });
        QCOMPARE(error, ProjectFileError(ProjectFileError::unableToWrite));
    }

    void aProjectThatCannotBeEncodedLeavesTheFileAsItWas()
    {
        const QUrl url = fileUrl(u"kept.quenara"_s);
        ProjectFileService::save(showOf({1}), url, someTime());
        const QByteArray before = bytesOf(url);
        ZelvoProject project = showOf({1});
        project.serviceItems[0].slides[0].design.elements[0].frame.x =
            std::numeric_limits<double>::quiet_NaN();
        QVERIFY_THROWS_EXCEPTION(ProjectEncodingError,
                                 ProjectFileService::save(project, url, someTime()));
        QVERIFY(!before.isEmpty());
        QCOMPARE(bytesOf(url), before);
    }

    void aFailedSaveLeavesTheFolderAsItWas()
    {
        QVERIFY(QDir(m_folder.path()).mkpath(u"kept/taken.quenara"_s));
        const QUrl url = fileUrl(u"kept/taken.quenara"_s);
        QVERIFY(errorOf([&] { ProjectFileService::save(showOf({1}), url, someTime()); }));
        QCOMPARE(
            QDir(m_folder.filePath(u"kept"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
            QStringList{u"taken.quenara"_s});
    }

private:
    QUrl fileUrl(const QString &name) const { return QUrl::fromLocalFile(m_folder.filePath(name)); }

    QTemporaryDir m_folder;
};

QUENARA_TEST(TestProjectFileService)

} // namespace tst_project_file_service

#include "tst_project_file_service.moc"
