#include "ProjectNormalizer.h"
#include "ProjectTemplates.h"
#include "Records.h"
#include "Show.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QSet>
#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_starting_projects {

namespace {

using Rows = QList<QStringList>;
using Factory = ZelvoProject (*)(const QDateTime &);

/// One row a slide: its item's title, type and subtitle, then its own title, body, footer and
/// template; "-" stands for none.
Rows rowsOf(const ZelvoProject &project)
{
    Rows rows;
    for (const ServiceItem &item : project.serviceItems) {
        for (const Slide &slide : item.slides) {
            rows.append({item.title, rawValue(item.type), item.subtitle.value_or(u"-"_s),
                         slide.title, slide.body, slide.footer.value_or(u"-"_s),
                         slide.design.themeId.value_or(u"-"_s)});
        }
    }
    return rows;
}

QStringList row(const char *item, const char *type, const char *subtitle, const char *title,
                const char *body, const char *footer, const char *templateID)
{
    QStringList texts;
    for (const char *text : {item, type, subtitle, title, body, footer, templateID})
        texts.append(QString::fromUtf8(text));
    return texts;
}

/// The identifiers of the project, its items, slides and layers.
QStringList identifiersOf(const ZelvoProject &project)
{
    QStringList ids{project.id};
    for (const ServiceItem &item : project.serviceItems) {
        ids.append(item.id);
        for (const Slide &slide : item.slides) {
            ids.append(slide.id);
            for (const SlideElement &element : slide.design.elements)
                ids.append(element.id);
        }
    }
    return ids;
}

} // namespace

class TestStartingProjects : public QObject
{
    Q_OBJECT

private slots:
    void eachStartsWithItsOwnRundown_data()
    {
        QTest::addColumn<Factory>("factory");
        QTest::addColumn<QString>("name");
        QTest::addColumn<ProjectKind>("kind");
        QTest::addColumn<int>("itemCount");
        QTest::addColumn<Rows>("rows");

        QTest::newRow("the blank project")
            << Factory(ProjectTemplates::blankProject) << u"Untitled Quenara"_s
            << ProjectKind::blank << 0 << Rows();
        QTest::newRow("the Sunday service")
            << Factory(ProjectTemplates::newSundayServiceProject) << u"Sunday Service"_s
            << ProjectKind::service << 5
            << Rows{
                   row("Welcome", "welcome", "Doors and gathering", "Welcome",
                       "We are glad you are here", "-", "welcome"),
                   row("Welcome", "welcome", "Doors and gathering", "Connect",
                       "Scan the QR code\nor visit the welcome table", "-", "announcement"),
                   row("Worship", "song", "Opening song", "Verse 1",
                       "Your light breaks through the morning\nYour mercy wakes the room", "-",
                       "centerLyric"),
                   row("Worship", "song", "Opening song", "Chorus",
                       "We lift our eyes\nWe lift our song", "-", "lowerLyric"),
                   row("Scripture", "scripture", "Reading", "Psalm 96:1-2",
                       "Sing to the Lord a new song;\nsing to the Lord, all the earth.\n"
                       "Sing to the Lord, praise his name.",
                       "Psalm 96", "scriptureReading"),
                   row("Message", "message", "Teaching", "A People of Hope", "Week 3", "-",
                       "sermonTitle"),
                   row("Closing", "closing", "-", "Go In Peace",
                       "You are loved\nand sent with purpose", "-", "closing"),
               };
        QTest::newRow("the demo")
            << Factory(ProjectTemplates::demoProject) << u"Quenara Demo Service"_s
            << ProjectKind::demo << 6
            << Rows{
                   row("Pre-Service", "welcome", "House open", "Welcome",
                       "Welcome to Mirrowen Church", "-", "welcome"),
                   row("Pre-Service", "welcome", "House open", "Today",
                       "Worship\nScripture\nMessage\nPrayer", "Service begins at 10:30",
                       "announcement"),
                   row("Song - Great Is The Morning", "song", "Band", "Verse 1",
                       "Great is the morning\nBright with your mercy", "-", "centerLyric"),
                   row("Song - Great Is The Morning", "song", "Band", "Chorus",
                       "We rise and sing\nYou are faithful", "-", "lowerLyric"),
                   row("Song - Great Is The Morning", "song", "Band", "Tag",
                       "Faithful forever\nFaithful today", "-", "warmAmber"),
                   row("Scripture Reading", "scripture", "Romans 15", "Romans 15:13",
                       "May the God of hope fill you with all joy and peace as you trust in him, "
                       "so that you may overflow with hope.",
                       "Romans 15:13", "scriptureReading"),
                   row("Message", "message", "Series bumper", "Rooted in Hope",
                       "Part 2: Patience in the Waiting", "-", "sermonTitle"),
                   row("Message", "message", "Series bumper", "Reflection",
                       "Where do you need courage this week?", "-", "minimalDark"),
                   row("Announcements", "announcement", "-", "Community Lunch",
                       "Today after service\nFellowship Hall", "All are welcome", "announcement"),
                   row("Announcements", "announcement", "-", "Serve Team Night",
                       "Wednesday 6:30 PM\nDinner provided", "-", "announcement"),
                   row("Dismissal", "closing", "-", "Blessing", "Grace and peace be with you", "-",
                       "closing"),
               };
    }

    void eachStartsWithItsOwnRundown()
    {
        QFETCH(Factory, factory);
        QFETCH(Rows, rows);
        const ZelvoProject project = factory(someTime());
        QTEST(project.name, "name");
        QTEST(project.kind, "kind");
        QTEST(int(project.serviceItems.size()), "itemCount");
        QCOMPARE(project.schemaVersion, 2);
        QCOMPARE(project.updatedAt, someTime());
        const Rows actual = rowsOf(project);
        QCOMPARE(actual.size(), rows.size());
        for (qsizetype i = 0; i < rows.size(); ++i)
            QCOMPARE(actual.at(i), rows.at(i));
    }

    void eachIsWholeInItself_data() { addFactories(); }
    void eachIsWholeInItself()
    {
        QFETCH(Factory, factory);
        const ZelvoProject project = factory(someTime());
        QCOMPARE(project, ProjectNormalizer::withMirroredOrder(project));
        for (const FlattenedSlide &flattened : flattenedSlides(project)) {
            const Slide &slide = flattened.slide;
            QVERIFY(!slide.image);
            QVERIFY(!slide.audio);
            QCOMPARE(withoutIdentifiers(slide.design),
                     withoutIdentifiers(ProjectTemplates::design(*slide.design.themeId, slide.title,
                                                                 slide.body, slide.footer)));
        }
    }

    void twoOfAKindDifferOnlyInIdentifiersAndTimes_data() { addFactories(); }
    void twoOfAKindDifferOnlyInIdentifiersAndTimes()
    {
        QFETCH(Factory, factory);
        const ZelvoProject one = factory(someTime());
        ZelvoProject other = factory(someTime().addDays(1));
        const QStringList ids = identifiersOf(one) + identifiersOf(other);
        QCOMPARE(QSet<QString>(ids.cbegin(), ids.cend()).size(), ids.size());
        QCOMPARE(other.updatedAt, someTime().addDays(1));
        other.updatedAt = one.updatedAt;
        QCOMPARE(withoutIdentifiers(one), withoutIdentifiers(other));
    }

    void normalizingReplacesNoDesign_data() { addFactories(); }
    void normalizingReplacesNoDesign()
    {
        QFETCH(Factory, factory);
        const ZelvoProject fresh = factory(someTime());
        const QList<FlattenedSlide> before = flattenedSlides(fresh);
        const QList<FlattenedSlide> after = flattenedSlides(ProjectNormalizer::normalized(fresh));
        QCOMPARE(after.size(), before.size());
        for (qsizetype i = 0; i < before.size(); ++i) {
            QVERIFY(!before.at(i).slide.design.elements.isEmpty());
            QCOMPARE(after.at(i).slide.design, before.at(i).slide.design);
        }
    }

    void normalizingTakesTheLowestTextAsTheBody()
    {
        const auto bodies = [](const ZelvoProject &project) {
            QStringList texts;
            for (const FlattenedSlide &flattened : flattenedSlides(project))
                texts.append(flattened.slide.body);
            return texts;
        };
        const ZelvoProject fresh = ProjectTemplates::newSundayServiceProject(someTime());
        const QStringList before = bodies(fresh);
        QCOMPARE(bodies(ProjectNormalizer::normalized(fresh)),
                 (QStringList{u"Welcome"_s, u"Connect"_s, before.at(2), before.at(3),
                              u"Psalm 96:1-2"_s, u"A People of Hope"_s, u"Go In Peace"_s}));
    }

private:
    static void addFactories()
    {
        QTest::addColumn<Factory>("factory");
        QTest::newRow("the blank project") << Factory(ProjectTemplates::blankProject);
        QTest::newRow("the Sunday service") << Factory(ProjectTemplates::newSundayServiceProject);
        QTest::newRow("the demo") << Factory(ProjectTemplates::demoProject);
    }
};

QUENARA_TEST(TestStartingProjects)

} // namespace tst_starting_projects

#include "tst_starting_projects.moc"
