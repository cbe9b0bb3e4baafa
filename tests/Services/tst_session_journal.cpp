#include "JournalEntry.h"
#include "RandomProject.h"
#include "SessionJournal.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QRandomGenerator>
#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_session_journal {

namespace {

Session sessionWith(const ZelvoProject &project)
{
    return {.projectName = project.name,
            .file = u"/home/anna/Sunday.quenara"_s,
            .fileVersion = u"5"_s,
            .hasUnsavedChanges = true,
            .project = project,
            .filePlaces = FilePlaces{.selected = 1, .queued = std::nullopt, .live = 0},
            .selectedServiceItemID = u"A"_s,
            .selectedSlideID = u"A1"_s,
            .queuedSlideID = u"A2"_s,
            .liveSlideID = u"A1"_s,
            .selectedElementID = std::nullopt,
            .outputMode = OutputMode::logo,
            .windows = {.display = DisplayPlace::besideOperator, .isStageOpen = true}};
}

QByteArray joined(const QByteArrayList &pieces)
{
    return pieces.join();
}

/// Media that differ by \a letter.
SlideMedia image(char letter, qsizetype size = 300'000)
{
    return {.dataUrl = "data:image/png;base64," + QByteArray(size, letter),
            .name = u"image.png"_s,
            .mimeType = u"image/png"_s};
}

/// A whole and sound entry that says \a change.
QByteArray entryOf(const QByteArray &change)
{
    return journalEntryHead(JournalEntryKind::change, change) + change;
}

/// The bytes of a journal of some edits of a small show, and the sessions it held after each.
struct SmallJournal
{
    QByteArray bytes;
    QList<Session> sessions;

    SmallJournal()
    {
        Session session = sessionWith(showOf({2, 1}));
        SessionJournal journal;
        const auto add = [&] {
            bytes += joined(journal.add(session));
            sessions.append(session);
        };
        add();
        session.project->serviceItems[0].slides[1].title = u"Changed"_s;
        add();
        session.project->serviceItems[0].slides[0].design.background.image = image('x', 5000);
        add();
        session.project->serviceItems.move(0, 1);
        session.liveSlideID = u"B1"_s;
        add();
    }
};

} // namespace

class TestSessionJournal : public QObject
{
    Q_OBJECT

private slots:
    void whatIsWrittenIsReadBack_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 40; ++seed)
            QTest::addRow("random project %u", seed) << seed;
    }

    void whatIsWrittenIsReadBack()
    {
        QFETCH(unsigned, seed);
        SessionJournal journal;
        const Session first = sessionWith(withoutHalfPairs(randomProject(seed)));
        QByteArray bytes = joined(journal.add(first));
        QCOMPARE(SessionJournal::read(bytes), std::optional(first));

        // From any project to any other, too.
        const Session second = sessionWith(withoutHalfPairs(randomProject(seed + 1000)));
        bytes += joined(journal.add(second));
        QCOMPARE(SessionJournal::read(bytes), std::optional(second));
        bytes += joined(journal.add(first));
        QCOMPARE(SessionJournal::read(bytes), std::optional(first));
        bytes += joined(journal.add(Session()));
        QCOMPARE(SessionJournal::read(bytes), std::optional(Session()));
    }

    void listsAreReadBackInAnyNewOrder()
    {
        QRandomGenerator random(1);
        SessionJournal journal;
        Session session = sessionWith(showOf({3, 4, 2, 5}));
        QByteArray bytes = joined(journal.add(session));
        for (int step = 0; step < 400; ++step) {
            QList<ServiceItem> &items = session.project->serviceItems;
            QList<Slide> &slides = items[random.bounded(int(items.size()))].slides;
            const auto any = [&](qsizetype count) { return random.bounded(int(count)); };
            switch (random.bounded(6)) {
            case 0:
                items.move(any(items.size()), any(items.size()));
                break;
            case 1:
                if (slides.size() > 1)
                    slides.remove(any(slides.size()));
                break;
            case 2: // with the same identifier as the original
                slides.insert(any(slides.size()), slides.at(any(slides.size())));
                break;
            case 3:
                slides.swapItemsAt(any(slides.size()), any(slides.size()));
                slides[any(slides.size())].title += u"+"_s;
                break;
            case 4:
                std::reverse(slides.begin(), slides.end());
                break;
            default:
                slides[any(slides.size())].id = newIdentifier();
            }
            bytes += joined(journal.add(session));
            QCOMPARE(SessionJournal::read(bytes), std::optional(session));
        }
    }

    void anEntryHoldsWhatDiffersAlone()
    {
        SessionJournal journal;
        Session session = sessionWith(showOf({50, 50}));
        const qsizetype whole = joined(journal.add(session)).size();
        QVERIFY(whole > 50'000);
        QVERIFY(journal.add(session).isEmpty());

        session.project->serviceItems[1].slides[20].design.elements[0].text->text = u"New"_s;
        QVERIFY(joined(journal.add(session)).size() < 200);
        session.project->serviceItems[1].slides.move(3, 30);
        QVERIFY(joined(journal.add(session)).size() < 200);
        session.liveSlideID = u"B7"_s;
        QVERIFY(joined(journal.add(session)).size() < 100);
    }

    void mediaAreWrittenOnceHoweverManyRecordsHoldThem()
    {
        SessionJournal journal;
        Session session = sessionWith(showOf({6}));
        const auto setImage = [&session](qsizetype index, const SharedOptional<SlideMedia> &media) {
            session.project->serviceItems[0].slides[index].design.background.image = media;
        };
        setImage(0, image('a'));
        setImage(1, image('a'));
        setImage(2, image('b'));
        QByteArray bytes = joined(journal.add(session));
        QVERIFY(bytes.size() > 600'000);
        QVERIFY(bytes.size() < 650'000);
        setImage(3, session.project->serviceItems[0].slides[0].design.background.image);
        setImage(4, image('b'));
        setImage(0, std::nullopt);
        const QByteArray added = joined(journal.add(session));
        QVERIFY(added.size() < 1000);
        bytes += added;

        const auto read = SessionJournal::read(bytes);
        QCOMPARE(read, std::optional(session));
        const QList<Slide> &readSlides = read->project->serviceItems.at(0).slides;
        QCOMPARE(static_cast<const void *>(
                     readSlides.at(2).design.background.image->dataUrl.constData()),
                 static_cast<const void *>(
                     readSlides.at(4).design.background.image->dataUrl.constData()));
    }

    void aTextThatLooksLikeAPlaceholderIsAText()
    {
        Session session = sessionWith(showOf({1}));
        session.project->serviceItems[0].slides[0].design.background.image = image('a');
        SessionJournal journal;
        QByteArray bytes = joined(journal.add(session));
        const qsizetype at = bytes.indexOf("media:");
        QVERIFY(at > 0);
        const QByteArray placeholder = bytes.mid(at, 6 + 36 + 1) + '0';
        session.projectName = QString::fromLatin1(placeholder);
        bytes += joined(journal.add(session));
        QCOMPARE(SessionJournal::read(bytes), std::optional(session));
    }

    void whatIsCutOffGivesBackEverythingUpToItsLastWholeEntry()
    {
        const SmallJournal journal;
        qsizetype known = 0; // the number of sessions that the bytes hold
        const auto check = [&](qsizetype size) {
            const auto read = SessionJournal::read(QByteArrayView(journal.bytes).first(size));
            if (known < journal.sessions.size() && read == journal.sessions.at(known))
                ++known;
            return known == 0 ? !read : read == journal.sessions.at(known - 1);
        };
        for (qsizetype size = 0; size <= journal.bytes.size(); ++size)
            QVERIFY2(check(size), QByteArray::number(size));
        QCOMPARE(known, journal.sessions.size());
    }

    void aFlippedBitGivesBackWhatStandsBeforeIt()
    {
        const SmallJournal journal;
        QRandomGenerator random(7);
        for (int i = 0; i < 3000; ++i) {
            QByteArray bytes = journal.bytes;
            const qsizetype at = random.bounded(int(bytes.size()));
            bytes[at] = char(bytes.at(at) ^ char(1 << random.bounded(8)));
            const auto read = SessionJournal::read(bytes);
            QVERIFY2(!read || journal.sessions.contains(*read), QByteArray::number(at));
            QVERIFY2(read != journal.sessions.last(), QByteArray::number(at));
        }
    }

    void whatIsNoChangeOfTheSessionIsLeftOut_data()
    {
        QTest::addColumn<QByteArray>("json");
        const auto row = [](const char *name, const char *json) {
            QTest::newRow(name) << QByteArray(json);
        };
        row("no JSON", "{\"projectName\":");
        row("an array", "[]");
        row("a name that is a number", R"({"projectName":5})");
        row("a position beyond the list",
            R"({"outputMode":"live","project":{"serviceItems":{"9":{"title":"x"}}}})");
        row("a negative position", R"({"project":{"serviceItems":{"-1":{"title":"x"}}}})");
        row("a position with more behind it",
            R"({"project":{"serviceItems":{"0x":{"title":"x"}}}})");
        row("a run beyond the list", R"({"project":{"serviceItems":[[0,3]]}})");
        row("an endless run", R"({"project":{"serviceItems":[[0,9223372036854775807]]}})");
        row("a record taken over twice", R"({"project":{"serviceItems":[[0,2],[1,1]]}})");
        row("a part of one number", R"({"project":{"serviceItems":[[0]]}})");
        row("a part of texts", R"({"project":{"serviceItems":[["0","1"]]}})");
        row("a new record that lacks a field", R"({"project":{"serviceItems":[{"id":"C"}]}})");
        row("an unknown raw value", R"({"outputMode":"dark"})");
        row("half of it sound", R"({"projectName":"New","project":{"serviceItems":[[0,1],5]}})");
    }

    void whatIsNoChangeOfTheSessionIsLeftOut()
    {
        QFETCH(QByteArray, json);
        const SmallJournal journal;
        QByteArray bytes = journal.bytes + entryOf(json);
        QCOMPARE(SessionJournal::read(bytes), std::optional(journal.sessions.last()));
        bytes += entryOf(R"({"projectName":"Later"})");
        QCOMPARE(SessionJournal::read(bytes), std::optional(journal.sessions.last()));
        Session later = journal.sessions.last();
        later.projectName = u"Later"_s;
        QCOMPARE(SessionJournal::read(journal.bytes + entryOf(R"({"projectName":"Later"})")),
                 std::optional(later));
    }

    void whatIsNoJournalHoldsNoSession()
    {
        for (const QByteArray &bytes :
             {QByteArray(), QByteArray("{}"), dataBytes(u"current.quenara"_s),
              QByteArray(999, '\0'), QByteArray("Quenara recovery journal 1\n"),
              QByteArray("Quenara recovery journal 2\n") + SmallJournal().bytes})
            QVERIFY(!SessionJournal::read(bytes));
        QVERIFY(SessionJournal::isJournal({}));
        QVERIFY(SessionJournal::isJournal("Quenara rec"));
        QVERIFY(!SessionJournal::isJournal("Quenara recovery journal 2\n"));
    }

    void aNumberThatIsNotFiniteIsLeftOutUntilItIs()
    {
        SessionJournal journal;
        Session session = sessionWith(showOf({1}));
        QByteArray bytes = joined(journal.add(session));
        const Session before = session;
        session.project->serviceItems[0].slides[0].design.background.dimAmount = qInf();
        bytes += joined(journal.add(session));
        QCOMPARE(SessionJournal::read(bytes), std::optional(before));
        session.project->serviceItems[0].slides[0].design.background.dimAmount = 1;
        bytes += joined(journal.add(session));
        QCOMPARE(SessionJournal::read(bytes), std::optional(session));
    }
};

QUENARA_TEST(TestSessionJournal)

} // namespace tst_session_journal

#include "tst_session_journal.moc"
