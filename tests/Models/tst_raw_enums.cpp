#include "TestMain.h"
#include "WorkspaceState.h"

#include <QStringList>
#include <QTest>

using namespace quenara;

namespace tst_raw_enums {

namespace {

/// What the program makes of an enumeration, as texts that a table can state.
struct Cases
{
    QStringList rawValues;
    QStringList identities;
    QStringList titles;
    bool areFoundByRawValue = true;
};

template<RawEnum E>
Cases casesOf()
{
    Cases cases;
    for (const E value : allCases<E>()) {
        cases.rawValues.append(rawValue(value));
        cases.identities.append(id(value));
        cases.titles.append(title(value));
        cases.areFoundByRawValue =
            cases.areFoundByRawValue && fromRawValue<E>(cases.rawValues.last()) == value;
    }
    return cases;
}

enum class Season { spring, summer, autumn };

struct Row
{
    Season season;
};

static_assert(entriesStandAtTheirCases(
    std::to_array<Row>({{Season::spring}, {Season::summer}, {Season::autumn}}), &Row::season));
static_assert(!entriesStandAtTheirCases(std::to_array<Row>({{Season::spring}, {Season::summer}}),
                                        &Row::season),
              "a case without an entry is noticed, if only the last");
static_assert(!entriesStandAtTheirCases(
    std::to_array<Row>({{Season::spring}, {Season::autumn}, {Season::summer}}), &Row::season));

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char('|'));
}

} // namespace

class TestRawEnums : public QObject
{
    Q_OBJECT

private slots:
    void everyEnumerationListsItsCasesInOrder_data()
    {
        QTest::addColumn<Cases>("cases");
        QTest::addColumn<QStringList>("rawValues");
        QTest::addColumn<QStringList>("titles");

        const auto row = [](const char *name, const Cases &cases, const char *rawValues,
                            const char *titles = nullptr) {
            const QStringList untitled(words(rawValues).size(), QString());
            QTest::newRow(name) << cases << words(rawValues) << (titles ? words(titles) : untitled);
        };
        row("kinds of projects", casesOf<ProjectKind>(), "blank|service|event|songSet|demo|custom");
        row("types of service items", casesOf<ServiceItemType>(),
            "welcome|song|scripture|message|announcement|closing|custom",
            "Welcome|Song|Scripture|Message|Announcement|Closing|Custom");
        row("output modes", casesOf<OutputMode>(), "live|blackout|logo", "Live|Blackout|Logo");
        row("kinds of backgrounds", casesOf<SlideBackgroundKind>(), "solid|gradient|image|video");
        row("directions of gradients", casesOf<GradientDirection>(),
            "vertical|horizontal|diagonal|radialHint", "Vertical|Horizontal|Diagonal|Soft Center");
        row("kinds of layers", casesOf<SlideElementKind>(),
            "text|scriptureText|songLyricText|image|shape|lowerThird");
        row("font weights", casesOf<TextFontWeight>(), "regular|medium|semibold|bold|heavy",
            "Regular|Medium|Semibold|Bold|Heavy");
        row("text alignments", casesOf<TextAlignmentValue>(), "left|center|right");
        row("kinds of shapes", casesOf<ShapeKind>(), "rectangle|capsule|line");
    }

    void everyEnumerationListsItsCasesInOrder()
    {
        QFETCH(Cases, cases);
        QFETCH(QStringList, rawValues);
        QFETCH(QStringList, titles);
        QCOMPARE(cases.rawValues, rawValues);
        QCOMPARE(cases.identities, rawValues);
        QCOMPARE(cases.titles, titles);
        QVERIFY(cases.areFoundByRawValue);
    }

    void aRawStringThatDiffersInCaseIsNoServiceItemType()
    {
        QVERIFY(!fromRawValue<ServiceItemType>(QStringLiteral("Song")));
        QCOMPARE(fromRawValue<ServiceItemType>(QStringLiteral("song")), ServiceItemType::song);
    }

    void anUnknownRawStringIsNoCase_data()
    {
        QTest::addColumn<QString>("rawValue");
        QTest::newRow("the empty text") << QString();
        QTest::newRow("another word") << QStringLiteral("prayer");
        QTest::newRow("the beginning of a case") << QStringLiteral("so");
        QTest::newRow("a case with a space after it") << QStringLiteral("song ");
        QTest::newRow("a title") << QStringLiteral("Soft Center");
        QTest::newRow("letters beyond ASCII") << QStringLiteral("s\u00f6ng");
    }

    void anUnknownRawStringIsNoCase()
    {
        QFETCH(QString, rawValue);
        QVERIFY(!fromRawValue<ServiceItemType>(rawValue));
        QVERIFY(!fromRawValue<GradientDirection>(rawValue));
    }
};

QUENARA_TEST(TestRawEnums)

} // namespace tst_raw_enums

#include "tst_raw_enums.moc"
