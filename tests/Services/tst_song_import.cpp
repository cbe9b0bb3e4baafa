#include "ProjectTemplates.h"
#include "Records.h"
#include "SongImportService.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_song_import {

namespace {

/// Sections as "title: line / line | title:".
QString outlineOf(const QList<SongSection> &sections)
{
    QStringList outline;
    for (const SongSection &section : sections) {
        QStringList words{section.title + u':'};
        if (!section.body.isEmpty())
            words.append(section.body.split(u'\n').join(u" / "_s));
        outline.append(words.join(u' '));
    }
    return outline.join(u" | "_s);
}

QString outlineOf(const QString &lyrics)
{
    return outlineOf(SongImportService::parseSections(lyrics));
}

/// All lines of all bodies, in order.
QStringList bodyLinesOf(const QString &lyrics)
{
    QStringList lines;
    for (const SongSection &section : SongImportService::parseSections(lyrics)) {
        if (!section.body.isEmpty())
            lines += section.body.split(u'\n');
    }
    return lines;
}

QString templateOf(const QString &title)
{
    const QString lyrics = u'[' + title + u"]\nwords"_s;
    return SongImportService::serviceItem({}, lyrics, 0)
        .slides.first()
        .design.themeId.value_or(QString());
}

const QString verseAsPasted = u"[Verse 1]\r\n"
                              "\tMorning has come,\u00a0the river wakes\u00a0\r\n"
                              "\u201cSing,\u201d says the hill \u2014 \u2018it\u2019s day\u2019\r\n"
                              "\u3000\r\n"
                              "\u2003Chorus:\u00a0\r\n"
                              "  So we go out:\u2026 \r\n"
                              "And all the valley answers: \u201cCome\u201d\r\n"
                              "\r\n"
                              "Bridge (x2):\r\n"
                              "One. And then: two. And three:\r\n"_s;

} // namespace

class TestSongImport : public QObject
{
    Q_OBJECT

private slots:
    void aTextIsDividedByBlankLinesAndHeadings_data()
    {
        QTest::addColumn<QString>("lyrics");
        QTest::addColumn<QString>("outline");
        QTest::newRow("headings in brackets")
            << u"[Verse 1]\na\nb\n\n[Chorus]\nc"_s << u"Verse 1: a / b | Chorus: c"_s;
        QTest::newRow("neither headings nor blank lines")
            << u"a\nb\nc"_s << u"Section 1: a / b / c"_s;
        QTest::newRow("two paragraphs") << u"a\nb\n\nc"_s << u"Section 1: a / b | Section 2: c"_s;
        QTest::newRow("a heading above a blank line")
            << u"Chorus:\n\na"_s << u"Chorus: | Section 2: a"_s;
        QTest::newRow("a heading right below text")
            << u"a\nChorus:\nb"_s << u"Section 1: a | Chorus: b"_s;
        QTest::newRow("a heading right below a heading")
            << u"[One]\n[Two]\na"_s << u"One: | Two: a"_s;
        QTest::newRow("text below a titled section takes the number of its place")
            << u"[One]\na\n\nb\n\n[Two]\nc\n\nd"_s
            << u"One: a | Section 2: b | Two: c | Section 4: d"_s;
        QTest::newRow("many blank lines")
            << u"\n\n\na\n\n\n\nb\n\n\n"_s << u"Section 1: a | Section 2: b"_s;
        QTest::newRow("a heading at the end") << u"a\n[Tag]"_s << u"Section 1: a | Tag:"_s;
        QTest::newRow("a heading alone") << u"[Tag]"_s << u"Tag:"_s;
        QTest::newRow("a heading given twice") << u"[A]\na\n[A]\nb"_s << u"A: a | A: b"_s;
        QTest::newRow("nothing") << QString() << QString();
        QTest::newRow("an empty text") << u""_s << QString();
        QTest::newRow("white space") << u" \n\t\n \r\n\u00a0\u2003\n"_s << QString();
    }

    void aTextIsDividedByBlankLinesAndHeadings()
    {
        QFETCH(QString, lyrics);
        QTEST(outlineOf(lyrics), "outline");
    }

    void aHeadingIsToldFromALyric_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<std::optional<QString>>("heading");
        const auto heading = [](const char *name, const QString &line, const QString &title) {
            QTest::newRow(name) << line << std::optional(title);
        };
        const auto lyric = [](const char *name, const QString &line) {
            QTest::newRow(name) << line << std::optional<QString>();
        };
        const QString longest(32, u'x');
        const QString family = u"\U0001F468\u200D\U0001F469\u200D\U0001F467"_s;

        heading("in brackets", u"[Verse 1]"_s, u"Verse 1"_s);
        heading("spaced within brackets", u"[ \t Verse 1\u00a0]"_s, u"Verse 1"_s);
        heading("spaced around brackets", u"\u3000[Verse 1]\u00a0\t"_s, u"Verse 1"_s);
        heading("empty brackets", u"[]"_s, u""_s);
        heading("blank brackets", u"[ \u2003 ]"_s, u""_s);
        heading("brackets of any length", u'[' + longest + longest + u']', longest + longest);
        heading("brackets with a full stop", u"[St. Anne]"_s, u"St. Anne"_s);
        heading("brackets with a colon within", u"[Chorus:]"_s, u"Chorus:"_s);
        heading("brackets within brackets", u"[[Tag]]"_s, u"[Tag]"_s);
        heading("two pairs of brackets", u"[Am] over [G]"_s, u"Am] over [G"_s);
        heading("brackets before a colon", u"[Chorus]:"_s, u"[Chorus]"_s);
        heading("with a colon", u"Verse 2:"_s, u"Verse 2"_s);
        heading("spaced before the colon", u"Chorus \u00a0:"_s, u"Chorus"_s);
        heading("a colon alone", u":"_s, u""_s);
        heading("two colons", u"Chorus::"_s, u"Chorus:"_s);
        heading("a short lyric with a colon", u"And they sang:"_s, u"And they sang"_s);
        heading("32 characters and a colon", longest + u':', longest);
        heading("32 characters once they are trimmed", longest + u"   :"_s, longest);
        heading("32 characters of two units", u"\U0001F54A"_s.repeated(32) + u':',
                u"\U0001F54A"_s.repeated(32));
        heading("32 letters with their accents", u"e\u0301"_s.repeated(32) + u':',
                u"e\u0301"_s.repeated(32));
        heading("32 families", family.repeated(32) + u':', family.repeated(32));
        heading("an ellipsis of its own sign", u"Wait\u2026:"_s, u"Wait\u2026"_s);

        lyric("33 characters and a colon", longest + u"x:"_s);
        lyric("33 characters of two units", u"\U0001F54A"_s.repeated(33) + u':');
        lyric("33 letters with their accents", u"e\u0301"_s.repeated(33) + u':');
        lyric("a full stop before the colon", u"He came. And said:"_s);
        lyric("an abbreviation before the colon", u"Ch.:"_s);
        lyric("a colon within", u"He said: come"_s);
        lyric("a wide colon", u"Chorus\uff1a"_s);
        lyric("a bracket that is not closed", u"[Chorus"_s);
        lyric("a bracket that is not opened", u"Chorus]"_s);
        lyric("words after the brackets", u"[Am] over the hill"_s);
        lyric("a bracket alone", u"["_s);
        lyric("round brackets", u"(Chorus)"_s);
        lyric("a heading's name", u"Chorus"_s);
    }

    void aHeadingIsToldFromALyric()
    {
        QFETCH(QString, line);
        QFETCH(std::optional<QString>, heading);
        const QString words = heading ? u"words"_s : line.trimmed() + u" / words"_s;
        QCOMPARE(outlineOf(line + u"\nwords"_s),
                 heading.value_or(u"Section 1"_s) + u": "_s + words);
    }

    void aLineIsWhatStandsBetweenLineFeeds_data()
    {
        QTest::addColumn<QString>("lyrics");
        QTest::addColumn<QStringList>("titles");
        QTest::addColumn<QStringList>("lines");
        const auto row = [](const char *name, const QString &lyrics, const QStringList &titles,
                            const QStringList &lines) {
            QTest::newRow(name) << lyrics << titles << lines;
        };
        const QStringList one{u"Section 1"_s};
        row("carriage returns with line feeds", u"[A]\r\na\r\n\r\nb\r\n"_s,
            {u"A"_s, u"Section 2"_s}, {u"a"_s, u"b"_s});
        row("both kinds of line end", u"a\r\nb\nc"_s, one, {u"a"_s, u"b"_s, u"c"_s});
        row("a carriage return alone", u"a\rb\nc"_s, one, {u"a\rb"_s, u"c"_s});
        row("carriage returns alone", u"[A]\ra\r\rb"_s, one, {u"[A]\ra\r\rb"_s});
        row("a carriage return at the end of a line", u"a\r\r\nb"_s, one, {u"a\r"_s, u"b"_s});
        row("a line of one carriage return", u"a\n\r\nb\r\r\nc"_s, {u"Section 1"_s, u"Section 2"_s},
            {u"a"_s, u"b\r"_s, u"c"_s});
        row("a carriage return behind a colon", u"Chorus:\r\r\na"_s, one, {u"Chorus:\r"_s, u"a"_s});
        row("other signs that break lines", u"a\u2028b\u2029c\u0085d\ve\ff"_s, one,
            {u"a\u2028b\u2029c\u0085d\ve\ff"_s});
        row("tabs and spaces of all widths around", u"\t \u00a0a b\u2009c\u202f\n\u3000d\u1680"_s,
            one, {u"a b\u2009c"_s, u"d"_s});
        row("a line of invisible characters", u"a\n\u200b\nb"_s, one,
            {u"a"_s, u"\u200b"_s, u"b"_s});
    }

    void aLineIsWhatStandsBetweenLineFeeds()
    {
        QFETCH(QString, lyrics);
        QStringList titles;
        for (const SongSection &section : SongImportService::parseSections(lyrics))
            titles.append(section.title);
        QTEST(titles, "titles");
        QTEST(bodyLinesOf(lyrics), "lines");
    }

    void aByteOrderMarkThatBeginsTheTextIsNoneOfIt_data()
    {
        QTest::addColumn<QString>("lyrics");
        QTest::addColumn<QString>("outline");
        QTest::newRow("before brackets") << u"\uFEFF[Verse 1]\na"_s << u"Verse 1: a"_s;
        QTest::newRow("before a heading with a colon") << u"\uFEFFChorus:\na"_s << u"Chorus: a"_s;
        QTest::newRow("before a lyric") << u"\uFEFFa\nb"_s << u"Section 1: a / b"_s;
        QTest::newRow("before a blank line") << u"\uFEFF\n\na"_s << u"Section 1: a"_s;
        QTest::newRow("alone") << u"\uFEFF"_s << QString();
        QTest::newRow("further on") << u"a\uFEFF\n\uFEFFb"_s << u"Section 1: a\uFEFF / \uFEFFb"_s;
    }

    void aByteOrderMarkThatBeginsTheTextIsNoneOfIt()
    {
        QFETCH(QString, lyrics);
        QTEST(outlineOf(lyrics), "outline");
    }

    void aSongPastedFromAPageKeepsItsWords()
    {
        QCOMPARE(outlineOf(verseAsPasted),
                 u"Verse 1: Morning has come,\u00a0the river wakes / "
                 "\u201cSing,\u201d says the hill \u2014 \u2018it\u2019s day\u2019 | "
                 "Chorus: So we go out:\u2026 / And all the valley answers: \u201cCome\u201d | "
                 "Bridge (x2): One. And then: two. And three:"_s);
    }

    void aQuotedMailKeepsItsMarks()
    {
        QCOMPARE(outlineOf(u"> [Verse]\n> Morning has come\n>\n-- \nAnne"_s),
                 u"Section 1: > [Verse] / > Morning has come / > / -- / Anne"_s);
    }

    void everyLineThatIsNoHeadingComesOutOnceAndInOrder_data()
    {
        QTest::addColumn<quint32>("seed");
        for (int seed = 1; seed <= 300; ++seed)
            QTest::addRow("seed %d", seed) << quint32(seed);
    }

    void everyLineThatIsNoHeadingComesOutOnceAndInOrder()
    {
        QFETCH(quint32, seed);
        static const QStringList lyricPool{u"words"_s,
                                           u"\u201cwords\u201d: and more"_s,
                                           u"no. 1:"_s,
                                           u"[open"_s,
                                           u"a\rb"_s,
                                           u"a line that is too long for a heading:"_s,
                                           u"\u6b4c\u3046"_s,
                                           u"\u200b"_s,
                                           u"x]"_s};
        static const QStringList otherPool{u""_s,     u" \t\u00a0"_s, u"[A]"_s,
                                           u" [] "_s, u"B:"_s,        u":"_s};
        static const QStringList spacingPool{u""_s, u" "_s, u"\t\u00a0"_s, u"\u3000"_s};
        static const QStringList endPool{u"\n"_s, u"\r\n"_s};
        QRandomGenerator random(seed);
        const auto oneOf = [&random](const QStringList &pool) {
            return pool.at(random.bounded(int(pool.size())));
        };
        QStringList lyrics;
        QString text;
        for (int i = random.bounded(40); i > 0; --i) {
            const bool isLyric = random.bounded(3) > 0;
            const QString line = oneOf(isLyric ? lyricPool : otherPool);
            text += oneOf(spacingPool) + line + oneOf(spacingPool) + oneOf(endPool);
            if (isLyric)
                lyrics.append(line);
        }
        QCOMPARE(bodyLinesOf(text), lyrics);
    }

    void aSectionHasAnIdentifierOfItsOwn()
    {
        QSet<QString> ids;
        for (int i = 0; i < 2; ++i) {
            for (const SongSection &section : SongImportService::parseSections(verseAsPasted))
                ids.insert(section.id);
        }
        QCOMPARE(ids.size(), 6);
        static const QRegularExpression identifier(
            u"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"_s);
        for (const QString &id : std::as_const(ids))
            QVERIFY2(identifier.match(id).hasMatch(), qPrintable(id));
    }

    void whatIsLikeAChorusStandsInTheLowerThird_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("templateID");
        const auto row = [](const QString &title, bool isChorusLike) {
            QTest::newRow(qPrintable(title))
                << title << (isChorusLike ? u"lowerLyric"_s : u"centerLyric"_s);
        };
        row(u"Chorus"_s, true);
        row(u"CHORUS 2"_s, true);
        row(u"Pre-chorus"_s, true);
        row(u"Tag"_s, true);
        row(u"Tagline"_s, true);
        row(u"Heritage"_s, true);
        row(u"Bridge"_s, true);
        row(u"Cambridge"_s, true);
        row(u"Verse 1"_s, false);
        row(u"Refrain"_s, false);
        row(u"Cho rus"_s, false);
        row(u"T-a-g"_s, false);
    }

    void whatIsLikeAChorusStandsInTheLowerThird()
    {
        QFETCH(QString, title);
        QTEST(templateOf(title), "templateID");
    }

    void aTaglineWithAColonIsAHeadingLikeAChorus()
    {
        const QList<SongSection> sections = SongImportService::parseSections(u"Tagline:\na"_s);
        QCOMPARE(outlineOf(sections), u"Tagline: a"_s);
        QVERIFY(sections.first().isChorusLike());
    }

    void anItemHasASlideASection()
    {
        const ServiceItem item = SongImportService::serviceItem(
            u"Morning"_s, u"[Verse 1]\na\nb\n\n[Chorus]\nc\n\nTag:"_s, 7);
        const ServiceItem expected{
            .id = {},
            .title = u"Morning"_s,
            .type = ServiceItemType::song,
            .orderIndex = 7,
            .subtitle = u"3 slides"_s,
            .slides = {ProjectTemplates::slide(u"Verse 1"_s, u"a\nb"_s, 0, u"centerLyric"_s),
                       ProjectTemplates::slide(u"Chorus"_s, u"c"_s, 1, u"lowerLyric"_s),
                       ProjectTemplates::slide(u"Tag"_s, u""_s, 2, u"lowerLyric"_s)}};
        QCOMPARE(withoutIdentifiers(item), withoutIdentifiers(expected));
        QSet<QString> ids{item.id};
        for (const Slide &slide : item.slides)
            ids.insert(slide.id);
        QCOMPARE(ids.size(), 4);
    }

    void anItemIsNamedAndCounted_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("lyrics");
        QTest::addColumn<QString>("itemTitle");
        QTest::addColumn<QString>("subtitle");
        QTest::newRow("one slide") << u"Song"_s << u"a"_s << u"Song"_s << u"1 slides"_s;
        QTest::newRow("four slides")
            << u"Song"_s << u"a\n\nb\n\nc\n\nd"_s << u"Song"_s << u"4 slides"_s;
        QTest::newRow("no slide") << u"Song"_s << u" \n"_s << u"Song"_s << u"0 slides"_s;
        QTest::newRow("an empty title") << u""_s << u"a"_s << u"Imported Song"_s << u"1 slides"_s;
        QTest::newRow("no title") << QString() << u"a"_s << u"Imported Song"_s << u"1 slides"_s;
        QTest::newRow("a blank title") << u" "_s << u"a"_s << u" "_s << u"1 slides"_s;
    }

    void anItemIsNamedAndCounted()
    {
        QFETCH(QString, title);
        QFETCH(QString, lyrics);
        const ServiceItem item = SongImportService::serviceItem(title, lyrics, 0);
        QTEST(item.title, "itemTitle");
        QTEST(item.subtitle.value_or(QString()), "subtitle");
    }
};

QUENARA_TEST(TestSongImport)

} // namespace tst_song_import

#include "tst_song_import.moc"
