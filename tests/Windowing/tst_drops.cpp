#include "Drag.h"
#include "GuiTestSupport.h"
#include "Images.h"
#include "ProgramWindows.h"
#include "RundownView.h"
#include "SongImportSheet.h"
#include "StartPanelView.h"

#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_drops {

namespace {

/// The program on a demo service, with files to drop.
struct Program : ProgramWindows
{
    SlideCanvas &canvas = *operatorWindow.findChild<SlideCanvas *>();
    RundownView &rundown = *operatorWindow.findChild<RundownView *>();
    QWidget &background = named<QWidget>(operatorWindow, u"Choose Image..."_s);
    QUrl picture = written(u"sea.png"_s, encoded(quarters({40, 30}), "PNG"));
    QUrl project = written(u"service.quenara"_s, dataBytes(u"current.quenara"_s));

    Program() { store.loadDemoProject(); }

    QPoint canvasPoint(const QPointF &point) const
    {
        const QRectF slide = canvas.slideRect();
        return (slide.topLeft() + point * slide.width() / CanvasSize().width).toPoint();
    }
};

} // namespace

class TestDrops : public GuiTest
{
    Q_OBJECT

private slots:
    void aPictureOnTheCanvasBecomesALayerWhereItWasDropped()
    {
        Program program;
        Drag drag(program.operatorWindow);
        drag.data.setUrls({program.picture});
        const std::optional<QString> live = program.store.liveSlideID();
        const qsizetype count = program.slide().design.elements.size();
        QVERIFY(drag.over(program.canvas, program.canvasPoint({800, 600})));
        drag.drop();
        QCOMPARE(program.slide().design.elements.size(), count + 1);
        const SlideElement layer = *program.store.selectedElement();
        QCOMPARE(layer.image->name, u"sea.png"_s);
        QVERIFY(std::abs(layer.frame.midX() - 800) < 3);
        QVERIFY(std::abs(layer.frame.midY() - 540) < 61); // as far as the slide has room
        QCOMPARE(program.undoSteps(), 1);
        QCOMPARE(program.store.liveSlideID(), live);
    }

    void aPictureOnTheBackgroundGroupBecomesTheBackground()
    {
        Program program;
        Drag drag(program.operatorWindow);
        drag.data.setUrls({program.picture});
        const qsizetype count = program.slide().design.elements.size();
        QVERIFY(drag.over(program.background));
        QVERIFY(program.operatorWindow.findChild<QWidget *>(u"dropMark"_s));
        drag.drop();
        QVERIFY(!program.operatorWindow.findChild<QWidget *>(u"dropMark"_s));
        QCOMPARE(program.slide().design.background.kind, SlideBackgroundKind::image);
        QCOMPARE(program.slide().design.background.image->name, u"sea.png"_s);
        QCOMPARE(program.slide().design.elements.size(), count);
        QCOMPARE(program.undoSteps(), 1);
    }

    void aPictureIsTakenNowhereElseNorWithoutASlide()
    {
        Program program;
        Drag drag(program.operatorWindow);
        drag.data.setUrls({program.picture});
        QVERIFY(!drag.over(program.rundown));
        program.store.newBlankProject();
        QVERIFY(!drag.over(program.background));
        QVERIFY(!drag.over(program.canvas));
    }

    void aPictureThatIsNoneChangesNothing()
    {
        Program program;
        Drag drag(program.operatorWindow);
        drag.data.setUrls({program.written(u"broken.png"_s, "no picture")});
        const Snapshot before = snapshotOf(program.store);
        QVERIFY(drag.over(program.canvas));
        drag.drop();
        QCOMPARE(snapshotOf(program.store), before);
    }

    void aProjectOpensWhereverItIsDropped_data()
    {
        QTest::addColumn<QString>("where");
        for (const char *where : {"canvas", "rundown", "background", "field"})
            QTest::newRow(where) << QString::fromLatin1(where);
    }

    void aProjectOpensWhereverItIsDropped()
    {
        QFETCH(QString, where);
        Program program;
        const QMap<QString, QWidget *> places{
            {u"canvas"_s, &program.canvas},
            {u"rundown"_s, &program.rundown},
            {u"background"_s, &program.background},
            {u"field"_s, &named<QLineEdit>(program.operatorWindow, u"Project Name"_s)}};
        Drag drag(program.operatorWindow);
        drag.data.setUrls({program.project});
        drag.data.setText(program.project.toString());
        QVERIFY(drag.over(*places.value(where)));
        drag.drop();
        QTRY_COMPARE(program.store.currentFileURL(), program.project);
        QVERIFY(program.questions.asked.isEmpty());
    }

    void aDroppedProjectAsksBeforeUnsavedWorkGoes()
    {
        Program program;
        program.store.addSlide();
        program.questions.answer = LeaveAnswer::cancel;
        Drag drag(program.operatorWindow);
        drag.data.setUrls({program.project});
        QVERIFY(drag.over(program.canvas));
        drag.drop();
        QTRY_COMPARE(program.questions.asked.size(), 1);
        QCOMPARE(program.store.currentFileURL(), std::nullopt);
        QVERIFY(program.store.canUndo());

        program.questions.answer = LeaveAnswer::proceed;
        QVERIFY(drag.over(program.canvas));
        drag.drop();
        QTRY_COMPARE(program.store.currentFileURL(), program.project);
    }

    void whatIsStillBeingTypedCountsAsUnsaved()
    {
        Program program;
        auto &name = named<QLineEdit>(program.operatorWindow, u"Project Name"_s);
        name.setFocus();
        QTest::keyClicks(&name, u"Easter"_s);
        Drag drag(program.operatorWindow);
        drag.data.setUrls({program.project});
        QVERIFY(drag.over(program.canvas));
        drag.drop();
        QTRY_COMPARE(program.questions.asked.size(), 1);
        QVERIFY(program.store.project().name.contains(u"Easter"_s));
    }

    void aProjectOpensOnTheStartPanelToo()
    {
        Program program;
        program.store.showStartPanel();
        auto *panel = program.operatorWindow.findChild<StartPanelView *>();
        showActive(*panel);
        Drag drag(*panel);
        drag.data.setUrls({program.project});
        QVERIFY(drag.over(*panel));
        drag.drop();
        QTRY_COMPARE(program.store.currentFileURL(), program.project);
        QVERIFY(!program.store.isStartPanelPresented());
    }

    void aTextOnTheRundownFillsTheSongSheet()
    {
        Program program;
        const QString lyrics = u"[Verse]\nGr\u00f6\u00dfer \u05e9\u05dc\u05d5\u05dd"_s;
        Drag drag(program.operatorWindow);
        drag.data.setUrls({program.written(u"Our song.txt"_s, lyrics.toUtf8())});
        QVERIFY(!drag.over(program.canvas));
        QVERIFY(drag.over(program.rundown));
        drag.drop();
        QTRY_VERIFY(program.operatorWindow.findChild<SongImportSheet *>());
        const auto *sheet = program.operatorWindow.findChild<SongImportSheet *>();
        QCOMPARE(sheet->findChild<QPlainTextEdit *>()->toPlainText(), lyrics);
        QCOMPARE(sheet->findChild<QLineEdit *>()->text(), u"Our song"_s);
        QVERIFY(!program.store.canUndo());
    }

    void aTextThatCannotBeReadIsSaid_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("in another encoding") << QByteArray("Gr\xf6\xdf"
                                                           "er");
        QTest::newRow("bytes that are no text") << QByteArray("a\0b", 3);
        QTest::newRow("too long") << QByteArray(qsizetype(2) << 20U, 'a');
    }

    void aTextThatCannotBeReadIsSaid()
    {
        QFETCH(QByteArray, bytes);
        Program program;
        Drag drag(program.operatorWindow);
        drag.data.setUrls({program.written(u"song.txt"_s, bytes)});
        QVERIFY(drag.over(program.rundown));
        drag.drop();
        QTRY_VERIFY(program.store.errorMessage());
        QVERIFY(!program.store.isSongImportPresented());
    }

    void whatNobodyTakesIsRefusedEverywhere_data()
    {
        QTest::addColumn<QUrl>("url");
        QTest::newRow("an archive") << QUrl(u"file:///home/songs.zip"_s);
        QTest::newRow("a page") << QUrl(u"https://example.org/sea.png"_s);
        QTest::newRow("a folder") << QUrl(u"file:///home"_s);
    }

    void whatNobodyTakesIsRefusedEverywhere()
    {
        QFETCH(QUrl, url);
        Program program;
        Drag drag(program.operatorWindow);
        drag.data.setUrls({url});
        for (const QWidget *place : std::initializer_list<const QWidget *>{
                 &program.canvas, &program.rundown, &program.background})
            QVERIFY(!drag.over(*place));
    }
};

QUENARA_GUI_TEST(TestDrops)

} // namespace tst_drops

#include "tst_drops.moc"
