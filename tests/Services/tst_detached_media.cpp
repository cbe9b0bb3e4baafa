#include "DetachedMedia.h"
#include "Documents.h"
#include "ProjectTemplates.h"
#include "Records.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QTest>

#include <simdjson.h>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_detached_media {

namespace {

constexpr qsizetype leastSize = 16;
constexpr qsizetype leastSizeInDocuments = 65536;

json::DetachedMedia detached(const QByteArray &json)
{
    json::MediaDetacher detacher(leastSize);
    detacher.append(json);
    return detacher.finish();
}

QByteArray placeholder(const json::DetachedMedia &media, qsizetype index)
{
    return media.mark + QByteArray::number(index);
}

/// The text with the URLs back in their places.
QByteArray restored(const json::DetachedMedia &media)
{
    QByteArray json = media.text;
    for (qsizetype i = media.urls.size() - 1; i >= 0; --i)
        json.replace('"' + placeholder(media, i) + '"', '"' + media.urls.at(i) + '"');
    return json;
}

bool isValid(const QByteArray &json)
{
    simdjson::dom::parser parser;
    return parser.parse(json.constData(), std::size_t(json.size())).error() == simdjson::SUCCESS;
}

QByteArray quoted(const QByteArray &text)
{
    return '"' + text + '"';
}

/// A data URL of \a size bytes.
QByteArray urlOf(qsizetype size, char filling)
{
    const QByteArray start = "data:,";
    return start + QByteArray(size - start.size(), filling);
}

ZelvoProject projectWith(const QByteArray &url)
{
    ZelvoProject project = ProjectTemplates::demoProject(someTime());
    for (Slide &slide : project.serviceItems[0].slides)
        slide.image = SlideMedia{.dataUrl = url, .name = u"photo"_s, .mimeType = u"image/png"_s};
    return project;
}

} // namespace

class TestDetachedMedia : public QObject
{
    Q_OBJECT

private slots:
    void whatIsTakenOut_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QList<QByteArray>>("urls");
        const auto row = [](const char *name, const QByteArray &json,
                            const QList<QByteArray> &urls = {}) {
            QTest::newRow(name) << json << urls;
        };
        const QByteArray url = urlOf(leastSize, 'A');
        const QByteArray longer = urlOf(5 * leastSize + 3, 'B');
        row("nothing", "");
        row("one URL", '[' + quoted(url) + ']', {url});
        row("URLs of any length",
            "{" + quoted("a") + ": " + quoted(longer) + ", " + quoted("b") + ": " + quoted(url)
                + '}',
            {longer, url});
        row("URLs side by side", '[' + quoted(url) + ',' + quoted(url) + ',' + quoted(longer) + ']',
            {url, url, longer});
        row("a URL as a key", '{' + quoted(longer) + ": 1}", {longer});
        row("not a short one", '[' + quoted(url.chopped(1)) + ']');
        row("no other text", '[' + quoted(QByteArray(100, 'x')) + ']');
        row("no number", '[' + QByteArray(100, '1') + ']');
        row("none with an escape in it", '[' + quoted(url + "\\n") + ']');
        row("none with an escape before it", '[' + quoted("\\\"" + url) + ']');
        row("none that is not ASCII", '[' + quoted(url + "\xc3\xa9") + ']');
        row("none with a control character", '[' + quoted(url + "\x01") + ']');
        row("none that does not end", "[\"" + url);
        row("none outside of strings", '[' + quoted({}) + ", " + url + ", " + quoted({}) + ']');
    }

    void whatIsTakenOut()
    {
        QFETCH(QByteArray, json);
        QFETCH(QList<QByteArray>, urls);
        // Wherever the boundaries lie between the pieces that are looked at.
        for (qsizetype shift = 0; shift < leastSize; ++shift) {
            const QByteArray shifted = QByteArray(shift, ' ') + json;
            const json::DetachedMedia media = detached(shifted);
            QCOMPARE(media.urls, urls);
            QCOMPARE(restored(media), shifted);
            for (const QByteArray &url : urls)
                QVERIFY(!media.text.contains(url));
        }
    }

    void thePiecesInWhichATextComesDoNotMatter()
    {
        const QByteArray json = '[' + quoted(urlOf(5 * leastSize, 'A')) + ", " + quoted("x") + ", "
            + quoted(urlOf(leastSize, 'B')) + ']';
        for (qsizetype size = 1; size <= json.size(); ++size) {
            json::MediaDetacher detacher(leastSize);
            for (qsizetype start = 0; start < json.size(); start += size) {
                detacher.append(
                    QByteArrayView(json).sliced(start, std::min(size, json.size() - start)));
            }
            const json::DetachedMedia media = detacher.finish();
            QCOMPARE(media.urls.size(), 2);
            QCOMPARE(restored(media), json);
        }
    }

    void aPlaceholderLeadsToItsUrlAndNoOtherTextToAny()
    {
        const QByteArray first = urlOf(leastSize, 'A');
        const QByteArray second = urlOf(leastSize, 'B');
        const json::DetachedMedia media =
            detached('[' + quoted(first) + ',' + quoted(second) + ']');
        const auto behind = [&media](const QByteArray &text) {
            return media.urlBehind({text.constData(), std::size_t(text.size())});
        };
        QCOMPARE(media.urls.size(), 2);
        QCOMPARE(behind(placeholder(media, 0)), &media.urls.at(0));
        QCOMPARE(behind(placeholder(media, 1)), &media.urls.at(1));
        for (const QByteArray &other :
             {first, QByteArray(), media.mark, placeholder(media, 2), placeholder(media, -1),
              media.mark + '+', QByteArray('x' + media.mark + '0')})
            QVERIFY2(!behind(other), other.constData());
        QVERIFY(detached("[]").mark != detached("[]").mark);
    }

    void equalUrlsShareTheirStorage()
    {
        const QByteArray url = urlOf(leastSize, 'A');
        const json::DetachedMedia media = detached('[' + quoted(url) + ',' + quoted(url) + ']');
        QCOMPARE(media.urls.size(), 2);
        QVERIFY(isSharedWith(media.urls.at(0), media.urls.at(1)));
    }

    void noDamageIsHiddenOrAdded()
    {
        const QByteArray url = urlOf(leastSize, 'A');
        const QByteArray whole = '{' + quoted("a") + ": [" + quoted(url) + ", " + quoted("x\\\\")
            + ", " + quoted(url + 'B') + ", 1.5], " + quoted(url) + ": " + quoted("\xc3\xa9") + '}';
        QVERIFY(isValid(whole));
        int changeCount = 0;
        int validCount = 0;
        const auto check = [&](const QByteArray &json) {
            const json::DetachedMedia media = detached(json);
            QVERIFY2(restored(media) == json, json.constData());
            QVERIFY2(isValid(media.text) == isValid(json), json.constData());
            ++changeCount;
            validCount += isValid(json) ? 1 : 0;
        };
        for (qsizetype i = 0; i < whole.size(); ++i) {
            check(whole.first(i));
            check(whole.first(i) + whole.sliced(i + 1));
            for (const char *byte : {"\"", "\\", "d", " ", ",", "\n", "\x80", "\"data:"}) {
                check(QByteArray(whole).insert(i, byte));
                check(whole.first(i) + byte + whole.sliced(i + 1));
            }
        }
        QVERIFY(changeCount > 1000);
        QVERIFY(validCount > 100 && validCount < changeCount - 100);
    }

    void aDocumentsMediaAreReadAsTheyWere_data()
    {
        QTest::addColumn<QByteArray>("url");
        constexpr qsizetype size = leastSizeInDocuments;
        QTest::newRow("just too short to be taken out") << urlOf(size - 1, 'A');
        QTest::newRow("just long enough") << urlOf(size, 'A');
        QTest::newRow("long") << urlOf(10 * size + 1, 'A');
        QTest::newRow("not in the form of a data URL") << QByteArray(2 * size, 'A');
        QTest::newRow("with what JSON escapes") << urlOf(2 * size, '"');
        QTest::newRow("beyond ASCII") << urlOf(size, 'A') + "\xc3\xa9";
    }

    void aDocumentsMediaAreReadAsTheyWere()
    {
        QFETCH(QByteArray, url);
        const ZelvoProject project = projectWith(url);
        const auto read = currentProject(encoded(project));
        QVERIFY(read);
        QCOMPARE(*read, project);
        const QList<Slide> slides = read->serviceItems.at(0).slides;
        QVERIFY(isSharedWith(slides.at(0).image->dataUrl, slides.at(1).image->dataUrl));
    }

    void aDataUrlMayStandInAnyText()
    {
        ZelvoProject project = projectWith(urlOf(leastSizeInDocuments, 'A'));
        project.name = QString::fromLatin1(urlOf(leastSizeInDocuments, 'B'));
        project.serviceItems[0].slides[0].footer = project.name;
        QCOMPARE(currentProject(encoded(project)), project);
    }
};

QUENARA_TEST(TestDetachedMedia)

} // namespace tst_detached_media

#include "tst_detached_media.moc"
