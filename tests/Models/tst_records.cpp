#include "Records.h"
#include "TestMain.h"
#include "WorkspaceState.h"

#include <QSet>
#include <QStringList>
#include <QTest>

#include <functional>

using namespace quenara;
using namespace quenara::test;

namespace tst_records {

namespace {

/// Compares \a changed, which differs from \a original in one field, both ways.
template<Record T>
void compareDifferent(const T &original, const T &changed, std::string_view fieldName)
{
    const QByteArray name(fieldName.data(), qsizetype(fieldName.size()));
    QVERIFY2(changed != original, name);
    QVERIFY2(original != changed, name);
    QVERIFY2(qHash(changed, 0) != qHash(original, 0), name);
    QVERIFY2(qHash(changed, 0) == qHash(T(changed), 0), name);
}

template<Record T>
void changeEachField()
{
    const T original = Values::filled<T>();
    const T copy = original;
    QVERIFY(copy == original);
    QCOMPARE(qHash(copy, 0), qHash(original, 0));
    QCOMPARE((QSet<T>{original, copy}).size(), 1);
    forEachField<T>([&](const auto &f) {
        T changed = original;
        changed.*f.member = Values::altered(original.*f.member);
        compareDifferent(original, changed, f.name);
        if constexpr (requires { (changed.*f.member).has_value(); }) {
            (changed.*f.member).reset();
            compareDifferent(original, changed, f.name);
        }
    });
}

template<Record T>
QStringList fieldNames()
{
    QStringList names;
    forEachField<T>([&](const auto &f) {
        names.append(QString::fromLatin1(f.name.data(), qsizetype(f.name.size())));
    });
    return names;
}

using Check = std::function<void()>;

} // namespace

class TestRecords : public QObject
{
    Q_OBJECT

private slots:
    void everyRecordIsComparedAndHashedByAllItsFields_data() { addRecords(); }
    void everyRecordIsComparedAndHashedByAllItsFields()
    {
        QFETCH(Check, changeEachField);
        changeEachField();
    }

    void everyRecordListsItsFieldsInOrder_data() { addRecords(); }
    void everyRecordListsItsFieldsInOrder()
    {
        QFETCH(QString, expected);
        QFETCH(QStringList, names);
        QCOMPARE(names.join(QLatin1Char(' ')), expected);
    }

    void zeroHashesAsItsNegativeWhichItEquals()
    {
        const CanvasFrame zero{0.0, 0, 0, 0};
        const CanvasFrame negative{-0.0, 0, 0, 0};
        QCOMPARE(zero, negative);
        QCOMPARE(qHash(zero, 0), qHash(negative, 0));
    }

    void recordsThatHoldTheSameTextsInOtherFieldsHashApart()
    {
        const QString word = QStringLiteral("word");
        const Slide body{.id = {},
                         .title = {},
                         .body = word,
                         .orderIndex = 0,
                         .footer = {},
                         .image = {},
                         .audio = {},
                         .design = {}};
        const Slide title{.id = {},
                          .title = word,
                          .body = {},
                          .orderIndex = 0,
                          .footer = {},
                          .image = {},
                          .audio = {},
                          .design = {}};
        QVERIFY(qHash(body, 0) != qHash(title, 0));
    }

    void aCopyIsIndependentOfWhatItWasCopiedFrom()
    {
        const auto original = Values::filled<ZelvoProject>();
        ZelvoProject copy = original;
        copy.serviceItems[0].slides[0].design.elements[0].text->text = QStringLiteral("other");
        QVERIFY(copy != original);
        QCOMPARE(original, Values::filled<ZelvoProject>());
    }

    void aRecentProjectIsKnownByItsPath()
    {
        const RecentProject project{QStringLiteral("Name"), QStringLiteral("/a folder/x.quenara"),
                                    0};
        QCOMPARE(project.id(), QStringLiteral("/a folder/x.quenara"));
        QCOMPARE(project.url(), QUrl(QStringLiteral("file:///a%20folder/x.quenara")));
    }

private:
    static void addRecords()
    {
        QTest::addColumn<Check>("changeEachField");
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("expected");

        add<ZelvoProject>("project", "id name schemaVersion kind updatedAt serviceItems");
        add<ServiceItem>("service item", "id title type orderIndex subtitle slides");
        add<Slide>("slide", "id title body orderIndex footer image audio design");
        add<SlideMedia>("media", "dataUrl name mimeType");
        add<FlattenedSlide>("flattened slide",
                            "serviceItemID serviceItemTitle serviceItemType slide absoluteIndex");
        add<SlideDesign>("design", "canvasSize background elements themeId safeAreaEnabled");
        add<CanvasSize>("canvas size", "width height");
        add<CanvasFrame>("canvas frame", "x y width height");
        add<RGBAColor>("colour", "red green blue alpha");
        add<SlideBackground>("background",
                             "kind solidColor gradient image video blurAmount dimAmount");
        add<GradientBackground>("gradient", "startColor endColor direction");
        add<VideoBackground>("video", "name dataUrl");
        add<SlideElement>("layer",
                          "id name kind frame rotation opacity locked visible zIndex "
                          "text image shape lowerThird");
        add<TextElementProperties>("text",
                                   "text fontFamily fontSize weight textColor alignment "
                                   "lineHeight characterSpacing uppercase shadow outline "
                                   "backgroundFill padding");
        add<TextShadow>("shadow", "color radius x y");
        add<TextOutline>("outline", "color width");
        add<ShapeProperties>("shape", "kind fill stroke strokeWidth cornerRadius");
        add<LowerThirdProperties>("lower third", "title subtitle fill accent");
        add<RecentProject>("recent project", "name path lastOpened");
        add<WorkspaceState>(
            "workspace",
            "project selectedServiceItemID selectedSlideID queuedSlideID liveSlideID "
            "selectedElementID lastSelected outputMode currentFileURL hasUnsavedChanges "
            "recentProjects isStartPanelPresented isSongImportPresented offeredSong errorMessage "
            "canUndo canRedo");
    }

    template<Record T>
    static void add(const char *name, const char *expected)
    {
        QTest::newRow(name) << Check(changeEachField<T>) << fieldNames<T>()
                            << QString::fromLatin1(expected);
    }
};

QUENARA_TEST(TestRecords)

} // namespace tst_records

#include "tst_records.moc"
