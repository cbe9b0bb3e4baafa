#include "GoToSlideSheet.h"
#include "GuiTestSupport.h"
#include "TestSupport.h"

#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QPushButton>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_go_to_slide_sheet {

namespace {

/// A sheet of its own on a show whose second slide, A2, is selected, queued and live.
struct Sheet
{
    World world{showOf({3, 2, 12})};
    WorkspaceStore &store = world.store;
    QPointer<GoToSlideSheet> sheet;
    QLineEdit *words = nullptr;
    QListView *list = nullptr;

    explicit Sheet(const Caller &caller = Caller::current())
    {
        store.selectSlide(u"A2"_s, true);
        store.goLive();
        sheet = new GoToSlideSheet(store, nullptr);
        words = sheet->findChild<QLineEdit *>();
        list = sheet->findChild<QListView *>();
        showActive(*sheet, caller);
    }
    ~Sheet() { delete sheet; }

    void type(const QString &text) const { QTest::keyClicks(words, text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(words, key, modifiers);
    }
    QPushButton &button(const QString &text) const { return named<QPushButton>(*sheet, text); }

    QStringList found() const
    {
        QStringList titles;
        for (int row = 0; row < list->model()->rowCount(); ++row)
            titles.append(list->model()->index(row, 0).data().toString());
        return titles;
    }
    QString chosen() const { return list->currentIndex().data().toString(); }

    QString show() const
    {
        return u"selected %1, queued %2, live %3"_s.arg(store.selectedSlideID().value_or(u"-"_s),
                                                        store.queuedSlideID().value_or(u"-"_s),
                                                        store.liveSlideID().value_or(u"-"_s));
    }
};

} // namespace

class TestGoToSlideSheet : public GuiTest
{
    Q_OBJECT

private slots:
    void itOpensOnTheWholeShowWithTheLiveSlideChosen()
    {
        const Sheet s;
        QVERIFY(s.words->hasFocus());
        QCOMPARE(s.found().size(), 17);
        QCOMPARE(s.chosen(), u"Title of A2"_s);
    }

    void eachLetterLeavesTheSlidesThatHaveTheWords()
    {
        const Sheet s;
        s.type(u"of b"_s);
        QCOMPARE(s.found(), (QStringList{u"Title of B1"_s, u"Title of B2"_s}));
        QCOMPARE(s.chosen(), u"Title of B1"_s);
        s.type(u"2"_s);
        QCOMPARE(s.found(), QStringList{u"Title of B2"_s});
        s.press(Qt::Key_Backspace);
        QCOMPARE(s.found().size(), 2);
    }

    void typingChangesNothingOfTheShow()
    {
        const Sheet s;
        const WorkspaceState before = s.store.state();
        s.type(u" title of b l"_s);
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_PageUp,
                                  Qt::Key_Right, Qt::Key_Left, Qt::Key_Home, Qt::Key_End})
            s.press(key);
        QCOMPARE(s.store.state(), before);
    }

    void returnSelectsAndQueuesAndNeverSendsLive_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Return") << Qt::Key_Return;
        QTest::newRow("Enter") << Qt::Key_Enter;
    }

    void returnSelectsAndQueuesAndNeverSendsLive()
    {
        QFETCH(Qt::Key, key);
        const Sheet s;
        s.type(u"c7"_s);
        s.press(key);
        QVERIFY(!s.sheet->isVisible());
        QCOMPARE(s.show(), u"selected C7, queued C7, live A2"_s);
    }

    void ctrlReturnSendsLiveToo()
    {
        const Sheet s;
        s.type(u"c7"_s);
        s.press(Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!s.sheet->isVisible());
        QCOMPARE(s.store.liveSlideID(), u"C7"_s);
        QCOMPARE(s.store.selectedSlideID(), u"C7"_s);
    }

    void aHeldCtrlReturnSendsNothing()
    {
        const Sheet s;
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::ControlModifier, {}, true);
        QApplication::sendEvent(s.words, &held);
        QCOMPARE(s.store.liveSlideID(), u"A2"_s);
    }

    void escapeLeavesAllAsItWas()
    {
        const Sheet s;
        const WorkspaceState before = s.store.state();
        s.type(u"c7"_s);
        s.press(Qt::Key_Escape);
        QVERIFY(!s.sheet->isVisible());
        QCOMPARE(s.store.state(), before);
    }

    void theArrowsChooseAndStopAtTheEnds()
    {
        const Sheet s;
        s.type(u"of c"_s);
        s.press(Qt::Key_Up);
        QCOMPARE(s.chosen(), u"Title of C1"_s);
        s.press(Qt::Key_Down);
        s.press(Qt::Key_Down);
        QCOMPARE(s.chosen(), u"Title of C3"_s);
        s.press(Qt::Key_PageDown);
        QVERIFY(s.list->currentIndex().row() > 4);
        s.press(Qt::Key_PageDown);
        s.press(Qt::Key_PageDown);
        QCOMPARE(s.chosen(), u"Title of C12"_s);
        QVERIFY(s.list->viewport()->rect().contains(s.list->visualRect(s.list->currentIndex())));
        s.press(Qt::Key_Return);
        QCOMPARE(s.show(), u"selected C12, queued C12, live A2"_s);
    }

    void aClickOnASlideDoesWhatReturnDoes()
    {
        const Sheet s;
        s.type(u"of b"_s);
        QTest::mouseClick(s.list->viewport(), Qt::LeftButton, Qt::NoModifier,
                          s.list->visualRect(s.list->model()->index(1, 0)).center());
        QCOMPARE(s.show(), u"selected B2, queued B2, live A2"_s);
        QVERIFY(!s.sheet->isVisible());
    }

    void aClickOnASlideThatIsInSightInPartChoosesIt()
    {
        const Sheet s;
        const QRect sight = s.list->viewport()->rect();
        const QModelIndex last = s.list->indexAt(sight.bottomLeft() + QPoint(20, 0));
        QVERIFY(last.isValid() && !sight.contains(s.list->visualRect(last)));
        QTest::mouseClick(s.list->viewport(), Qt::LeftButton, Qt::NoModifier,
                          sight.bottomLeft() + QPoint(20, 0));
        QCOMPARE(s.store.slideWithID(s.store.queuedSlideID())->title, last.data().toString());
    }

    void theButtonsDoWhatTheKeysDo()
    {
        for (const auto &[button, show] :
             {std::pair(u"Queue"_s, u"selected B2, queued B2, live A2"_s),
              std::pair(u"Cancel"_s, u"selected A2, queued A2, live A2"_s)}) {
            const Sheet s;
            s.type(u"b2"_s);
            QTest::mouseClick(&s.button(button), Qt::LeftButton);
            QCOMPARE(s.show(), show);
            QVERIFY(!s.sheet->isVisible());
        }
        const Sheet s;
        s.type(u"b2"_s);
        QTest::mouseClick(&s.button(u"Go Live"_s), Qt::LeftButton);
        QCOMPARE(s.store.liveSlideID(), u"B2"_s);
    }

    void whereNothingIsFoundItSaysSoAndReturnDoesNothing()
    {
        const Sheet s;
        const WorkspaceState before = s.store.state();
        s.type(u"zebra"_s);
        QVERIFY(!s.list->isVisible());
        QVERIFY(!s.button(u"Queue"_s).isEnabled());
        QVERIFY(!s.button(u"Go Live"_s).isEnabled());
        s.press(Qt::Key_Return);
        s.press(Qt::Key_Return, Qt::ControlModifier);
        s.press(Qt::Key_Down);
        QCOMPARE(s.store.state(), before);
        QVERIFY(s.sheet->isVisible());
        s.words->clear();
        QVERIFY(s.list->isVisible());
        QVERIFY(s.button(u"Queue"_s).isEnabled());
    }

    void aSlideThatIsRenamedOrGoneMeanwhileIsFoundSo()
    {
        const Sheet s;
        s.type(u"title b2"_s);
        s.store.selectSlide(u"B2"_s, false);
        s.store.updateSelectedSlide([](Slide &slide) { slide.title = u"Bridge"_s; });
        QCOMPARE(s.found(), QStringList());
        s.words->setText(u"bridge"_s);
        QCOMPARE(s.found(), QStringList{u"Bridge"_s});
        s.store.deleteSelectedSlide();
        QCOMPARE(s.found(), QStringList());
        s.press(Qt::Key_Return);
        QVERIFY(s.sheet->isVisible());
    }
};

QUENARA_GUI_TEST(TestGoToSlideSheet)

} // namespace tst_go_to_slide_sheet

#include "tst_go_to_slide_sheet.moc"
