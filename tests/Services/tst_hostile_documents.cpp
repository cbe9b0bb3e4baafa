#include "Documents.h"
#include "Records.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QJsonDocument>
#include <QTest>
#include <QTimeZone>

#include <limits>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_hostile_documents {

namespace {

QByteArray withInteger(const QByteArray &token)
{
    return replaced(dataBytes(u"current.quenara"_s), "\"zIndex\": -2", "\"zIndex\": " + token);
}

QByteArray withReal(const QByteArray &token)
{
    return replaced(dataBytes(u"current.quenara"_s), "\"rotation\": 12.5",
                    "\"rotation\": " + token);
}

/// The one layer of current.quenara that withInteger() and withReal() change.
SlideElement changedLayer(const ZelvoProject &project)
{
    return project.serviceItems.first().slides.first().design.elements.first();
}

QByteArray nested(const QByteArray &open, const QByteArray &close, int depth)
{
    return open.repeated(depth) + '0' + close.repeated(depth);
}

/// A current document with \a member, a key with its value, at its end.
QByteArray withMember(const QByteArray &member)
{
    QByteArray bytes = dataBytes(u"empty-slides.quenara"_s).trimmed();
    bytes.chop(1);
    return bytes + ", " + member + '}';
}

QByteArray withName(const QByteArray &name)
{
    return replaced(dataBytes(u"empty-slides.quenara"_s), R"("name": "Bare")",
                    QByteArray(R"("name": "#")").replace('#', name));
}

QByteArray utf16Of(const QByteArray &bytes)
{
    const QString text = u'\ufeff' + QString::fromUtf8(bytes);
    return {reinterpret_cast<const char *>(text.utf16()),
            text.size() * qsizetype(sizeof(char16_t))};
}

} // namespace

class TestHostileDocuments : public QObject
{
    Q_OBJECT

private slots:
    void aDocumentCutShortIsNone_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("a current one") << u"current.quenara"_s;
        QTest::newRow("one of default slides") << u"empty-slides.quenara"_s;
        QTest::newRow("a legacy one") << u"legacy-flat.json"_s;
    }

    void aDocumentCutShortIsNone()
    {
        QFETCH(QString, file);
        const QByteArray whole = dataBytes(file).trimmed();
        QVERIFY(ProjectCodec::decode(whole));
        for (qsizetype length = 0; length < whole.size(); ++length) {
            QVERIFY2(!ProjectCodec::decode(whole.first(length)),
                     QByteArray::number(length).constData());
        }
    }

    void whiteSpaceAroundADocumentSaysNothing()
    {
        const QByteArray bytes = dataBytes(u"legacy-flat.json"_s).trimmed();
        const auto expected = legacyDocument(bytes);
        QVERIFY(expected);
        const QByteArray tail = " \r\n\t\n";
        for (qsizetype length = 0; length <= tail.size(); ++length)
            QCOMPARE(legacyDocument(tail + bytes + tail.first(length)), expected);
    }

    void aNumberIsReadInEveryFormOfJsonAndNoOther_data()
    {
        QTest::addColumn<QByteArray>("token");
        QTest::addColumn<std::optional<double>>("real");
        QTest::addColumn<bool>("isInteger");
        const auto row = [](const QByteArray &token, std::optional<double> real, bool isInteger) {
            QTest::newRow(token.constData()) << token << real << isInteger;
        };
        row("0", 0, true);
        row("-0", -0.0, true);
        row("-0.0", -0.0, true);
        row("2.0", 2, true);
        row("2.5", 2.5, false);
        row("1e2", 100, true);
        row("1E+2", 100, true);
        row("1200e-2", 12, true);
        row("25e-1", 2.5, false);
        row("1e-400", 0, true);
        row("5e-324", 5e-324, false);
        row("9007199254740992.0", 0x1p53, true);
        row("9007199254740994.0", 0x1p53 + 2, false);
        row("9223372036854775807", 0x1p63, true);
        row("-9223372036854775808", -0x1p63, true);
        row("9223372036854775808", 0x1p63, false);
        row("18446744073709551615", 0x1p64, false);
        row("18446744073709551616", 0x1p64, false);
        row("-9223372036854775809", -0x1p63, false);
        row("100000000000000000000", 1e20, false);
        row("1" + QByteArray(308, '0'), 1e308, false);
        row("1e300", 1e300, false);
        row("1.7976931348623157e308", 1.7976931348623157e308, false);
        for (const char *token :
             {"1e309", "-1e309", "1e400", "1e308*10", "NaN", "nan", "Infinity", "-Infinity",
              "inf",   "+1",     "01",    "-01",      ".5",  "5.",  "1e",       "1e+",
              "0x10",  "1_000",  "1,5",   "--1",      "-",   "1 2", "\xd9\xa3"}) {
            row(token, std::nullopt, false);
        }
    }

    void aNumberIsReadInEveryFormOfJsonAndNoOther()
    {
        QFETCH(QByteArray, token);
        QFETCH(std::optional<double>, real);
        QFETCH(bool, isInteger);
        const auto withRealRead = currentProject(withReal(token));
        QCOMPARE(withRealRead.has_value(), real.has_value());
        if (real)
            QCOMPARE(changedLayer(*withRealRead).rotation, *real);
        const auto withIntegerRead = currentProject(withInteger(token));
        QCOMPARE(withIntegerRead.has_value(), isInteger);
        if (isInteger)
            QCOMPARE(double(changedLayer(*withIntegerRead).zIndex), *real);
        // A token that is no number of JSON spoils the document even under a key nobody reads.
        const Reading unread = readingOf(withMember("\"unread\": " + token));
        QCOMPARE(unread, real ? Reading::current : Reading::nothing);
    }

    void theEdgesOfTheIntegersAreExact()
    {
        constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
        constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
        for (const std::int64_t edge : {least, least + 1, most - 1, most}) {
            const auto project = currentProject(withInteger(QByteArray::number(qint64(edge))));
            QVERIFY(project);
            QCOMPARE(changedLayer(*project).zIndex, edge);
        }
    }

    void everythingThatIsNoCurrentDocumentFailsAsOne_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        const auto row = [](const char *name, const QByteArray &before, const QByteArray &after) {
            QTest::newRow(name) << before << after;
        };
        row("the type of an item with a capital", R"("type": "song")", R"("type": "Song")");
        row("an unknown kind of project", R"("kind": "event")", R"("kind": "wedding")");
        row("an empty weight", R"("weight": "heavy")", R"("weight": "")");
        row("a date with a fraction of a second", "09:30:00Z", "09:30:00.000Z");
        row("a date with an offset", "09:30:00Z", "09:30:00+00:00");
        row("a date with a small z", "09:30:00Z", "09:30:00z");
        row("a date with a leap second", "09:30:00Z", "23:59:60Z");
        row("a date at the hour 24", "09:30:00Z", "24:00:00Z");
        row("a date in the year 0", "2026-03-01T", "0000-03-01T");
        row("a date that does not exist", "2026-03-01T", "2026-02-30T");
        row("a null among the slides",
            "\"slides\": [\n"
            "                {\n"
            "                    \"id\": \"SLIDE-3\",",
            "\"slides\": [ null,\n"
            "                {\n"
            "                    \"id\": \"SLIDE-3\",");
    }

    void everythingThatIsNoCurrentDocumentFailsAsOne()
    {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        const QByteArray bytes = replaced(dataBytes(u"current.quenara"_s), before, after);
        QVERIFY(!QJsonDocument::fromJson(bytes).isNull());
        QVERIFY(!currentProject(bytes));
    }

    void aLeapDayIsADate()
    {
        const auto project =
            currentProject(replaced(dataBytes(u"current.quenara"_s), "2026-03-01T", "2024-02-29T"));
        QVERIFY(project);
        QCOMPARE(project->updatedAt,
                 QDateTime(QDate(2024, 2, 29), QTime(9, 30), QTimeZone::utc()).toUTC());
    }

    void whatIsNoDocumentAtAllGivesNothing_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray whole = dataBytes(u"empty-slides.quenara"_s);
        QTest::newRow("no bytes") << QByteArray();
        QTest::newRow("white space") << QByteArray(" \r\n\t");
        QTest::newRow("a byte-order mark alone") << QByteArray("\xef\xbb\xbf");
        QTest::newRow("half a byte-order mark") << "\xef\xbb" + whole;
        QTest::newRow("a byte-order mark inside") << " \xef\xbb\xbf" + whole;
        QTest::newRow("UTF-16") << utf16Of(whole);
        QTest::newRow("broken JSON") << dataBytes(u"broken.json"_s);
        QTest::newRow("an array") << dataBytes(u"array.json"_s);
        QTest::newRow("an array of a document") << '[' + whole + ']';
        QTest::newRow("a text") << QByteArray("\"{}\"");
        QTest::newRow("a number") << QByteArray("7");
        QTest::newRow("null") << QByteArray("null");
        QTest::newRow("two objects") << QByteArray("{} {}");
        QTest::newRow("two documents") << whole + whole;
        QTest::newRow("a comma too many") << QByteArray(R"({"id":"P",})");
        QTest::newRow("a comment") << "// a show\n" + whole;
        QTest::newRow("keys without quotes") << QByteArray("{id:\"P\"}");
        QTest::newRow("single quotes") << QByteArray("{'id':'P'}");
        QTest::newRow("a line break in a text") << withName("one\ntwo");
        QTest::newRow("an unknown escape") << withName(R"(\x41)");
        QTest::newRow("half an escape") << withName(R"(\u00e)");
        QTest::newRow("a NUL byte in a text") << withName(QByteArray("a\0b", 3));
        QTest::newRow("a NUL byte after the end") << whole + '\0';
        QTest::newRow("a NUL byte before the start") << '\0' + whole;
        QTest::newRow("a legacy key of another type") << QByteArray("{\"name\":7}");
        QTest::newRow("a legacy slide of another type") << QByteArray("{\"slides\":[[]]}");
        for (const auto &[open, close] : {std::pair("[", "]"), std::pair("{\"x\":", "}")}) {
            const QByteArray deep = nested(open, close, 100000);
            QTest::addRow("100,000 nested %s", open) << deep;
            QTest::addRow("100,000 open %s", open) << QByteArray(open).repeated(100000);
            QTest::addRow("100,000 nested %s under an unknown key", open)
                << withMember("\"x\": " + deep);
            QTest::addRow("100,000 nested %s for the slides", open) << "{\"slides\":" + deep + '}';
        }
    }

    void whatIsNoDocumentAtAllGivesNothing()
    {
        QFETCH(QByteArray, bytes);
        QCOMPARE(readingOf(bytes), Reading::nothing);
    }

    void aDocumentMayHoldDeepValuesThatNobodyReads()
    {
        QCOMPARE(readingOf(withMember("\"x\": " + nested("[", "]", 500))), Reading::current);
        QCOMPARE(readingOf(withMember("\"x\": " + nested("{\"x\":", "}", 500))), Reading::current);
    }

    void bytesThatAreNoUtf8SpoilTheDocumentWhereverTheyAre_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("a byte that never occurs") << QByteArray("\xff");
        QTest::newRow("a continuation without a start") << QByteArray("\x80");
        QTest::newRow("a start without a continuation") << QByteArray("\xc3");
        QTest::newRow("a sequence cut short") << QByteArray("\xf0\x9f\x8e");
        QTest::newRow("an overlong solidus") << QByteArray("\xc0\xaf");
        QTest::newRow("an overlong NUL") << QByteArray("\xc0\x80");
        QTest::newRow("half a surrogate pair") << QByteArray("\xed\xa0\x80");
        QTest::newRow("beyond the last code point") << QByteArray("\xf4\x90\x80\x80");
        QTest::newRow("Latin-1") << QByteArray("Gr\xfc\xdf");
    }

    void bytesThatAreNoUtf8SpoilTheDocumentWhereverTheyAre()
    {
        QFETCH(QByteArray, bytes);
        QCOMPARE(readingOf(withName(bytes)), Reading::nothing);
        QCOMPARE(readingOf(withMember('"' + bytes + "\": 1")), Reading::nothing);
        QCOMPARE(readingOf(withMember("\"x\": \"" + bytes + '"')), Reading::nothing);
        const QByteArray withMedia = replaced(
            dataBytes(u"current.quenara"_s),
            "data:audio/wav;base64,UklGRg==", "data:audio/wav;base64,Ukl" + bytes + "GRg==");
        QVERIFY(!withMedia.isEmpty());
        QCOMPARE(readingOf(withMedia), Reading::nothing);
    }

    void halfASurrogatePairIsNoText_data()
    {
        QTest::addColumn<QByteArray>("escape");
        QTest::newRow("the high half") << QByteArray(R"(\ud83c)");
        QTest::newRow("the low half") << QByteArray(R"(\udfb5)");
        QTest::newRow("the halves the wrong way round") << QByteArray(R"(\udfb5\ud83c)");
        QTest::newRow("the high half twice") << QByteArray(R"(\ud83c\ud83c)");
        QTest::newRow("the high half before a letter") << QByteArray(R"(\ud83c\u0041)");
    }

    void halfASurrogatePairIsNoText()
    {
        QFETCH(QByteArray, escape);
        QCOMPARE(readingOf(withName('a' + escape + 'b')), Reading::nothing);
    }

    void aByteOrderMarkIsSkipped()
    {
        const QByteArray mark = "\xef\xbb\xbf";
        const QByteArray current = dataBytes(u"current.quenara"_s);
        const auto project = currentProject(mark + current);
        QVERIFY(project);
        QCOMPARE(withoutIdentifiers(*project), withoutIdentifiers(*currentProject(current)));
        const QByteArray legacy = dataBytes(u"legacy-flat.json"_s);
        QVERIFY(legacyDocument(legacy));
        QCOMPARE(legacyDocument(mark + legacy), legacyDocument(legacy));
    }

    void escapesStandForTheirCharacters()
    {
        const auto project =
            currentProject(withName(R"(\u0000\ud83c\udfb5\"\\\/\b\f\n\r\t\u00DF)"));
        QVERIFY(project);
        QCOMPARE(project->name, u"\0\U0001F3B5\"\\/\b\f\n\r\t\u00df"_s);
        QCOMPARE(currentProject(encoded(*project)), project);
        const auto legacy = legacyDocument(R"({"n\u0061me": "by an escaped key"})");
        QVERIFY(legacy);
        QCOMPARE(legacy->name, u"by an escaped key"_s);
    }

    void theLastOfSeveralEqualKeysCounts()
    {
        QCOMPARE(legacyDocument(R"({"name":"first","name":"last"})")->name, u"last"_s);
        const auto project = currentProject(withMember(R"("name": "last", "kind": "event")"));
        QVERIFY(project);
        QCOMPARE(project->name, u"last"_s);
        QCOMPARE(project->kind, ProjectKind::event);
        QCOMPARE(readingOf(withMember(R"("serviceItems": [])")), Reading::legacy);
    }

    void theLastOfSeveralEqualKeysCountsWholeWhateverTheOthersHold()
    {
        const auto legacy = legacyDocument(
            R"({"name":5,"slides":[{"title":7},8],"name":"last","slides":[{"title":"one"}]})");
        QVERIFY(legacy);
        QCOMPARE(legacy->name, u"last"_s);
        const auto project =
            currentProject(R"({"schemaVersion":"none","serviceItems":[{"id":1}],"name":null,)"
                           + withMember(R"("name": "last")").trimmed().mid(1));
        QVERIFY(project);
        QCOMPARE(project->name, u"last"_s);
        QVERIFY(!project->serviceItems.isEmpty());
        QVERIFY(!currentProject(withMember(R"("name": 5)")));
    }
};

QUENARA_TEST(TestHostileDocuments)

} // namespace tst_hostile_documents

#include "tst_hostile_documents.moc"
