#include "ExportView.h"
#include "ExportedShow.h"
#include "FullDisk.h"

#include <QDir>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_export_view {

namespace {

const QString onePage = u"PDF, one slide a page"_s;
const QString fourSlides = u"PDF, four slides a page"_s;
const QString pictures = u"Pictures"_s;

/// A view over a show of three slides, and a folder to export to.
struct Export
{
    World world;
    QString target = world.folder.filePath(u"exported"_s);
    ExportView view{world.store, world.panels};

    explicit Export(const ZelvoProject &project = showOf({2, 1}),
                    const Caller &caller = Caller::current())
        : world(project)
    {
        QDir().mkdir(target);
        showActive(view, caller);
    }

    void choosePdf(const QString &name = u"show.pdf"_s)
    {
        world.panels.answer = QUrl::fromLocalFile(target + u'/' + name);
    }
    void chooseFolder() { world.panels.answer = QUrl::fromLocalFile(target); }

    void click(const QString &name, const Caller &caller = Caller::current()) const
    {
        QTest::mouseClick(&button(name, caller), Qt::LeftButton);
    }
    QPushButton &button(const QString &name, const Caller &caller = Caller::current()) const
    {
        return named<QPushButton>(view, name, caller);
    }
    bool isDone() const { return !view.isExporting(); }

    QString words() const
    {
        QStringList words;
        for (const QLabel *label : view.findChildren<QLabel *>()) {
            const QString role = label->property("role").toString();
            if (label->isVisible() && (role == u"note"_s || role == u"fault"_s))
                words.append(label->text());
        }
        return words.join(u'\n');
    }
    QStringList files() const
    {
        return QDir(target).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                      QDir::Name);
    }
};

} // namespace

class TestExportView : public GuiTest
{
    Q_OBJECT

private slots:
    void aDocumentOfPagesIsWrittenWhereTheOperatorSays()
    {
        Export e;
        e.choosePdf();
        e.click(u"Export..."_s);
        QTRY_VERIFY(e.isDone());
        QCOMPARE(e.world.panels.asked.constFirst().kind, FilePanel::Kind::save);
        QCOMPARE(e.files(), QStringList{u"show.pdf"_s});
        QCOMPARE(e.words(), u"3 slides exported to \u201cshow.pdf\u201d."_s);
        QCOMPARE(pagesOf(e.target + u"/show.pdf"_s).size(), 3);
    }

    void aHandOutIsWrittenOnceItIsChosen()
    {
        Export e;
        e.choosePdf();
        e.click(fourSlides);
        e.click(u"Export..."_s);
        QTRY_VERIFY(e.isDone());
        QCOMPARE(pagesOf(e.target + u"/show.pdf"_s).size(), 1);
    }

    void picturesGoToAFolderInTheOneTheOperatorChooses()
    {
        Export e;
        e.chooseFolder();
        e.world.store.updateProjectName(u"Sunday"_s);
        e.click(pictures);
        e.click(u"Export..."_s);
        QTRY_VERIFY(e.isDone());
        QCOMPARE(e.world.panels.asked.constFirst().kind, FilePanel::Kind::folder);
        QCOMPARE(e.files(), QStringList{u"Sunday"_s});
        QCOMPARE(QDir(e.target + u"/Sunday"_s).entryList(QDir::Files).size(), 3);
    }

    void nothingIsExportedIfNoFileIsChosen()
    {
        Export e;
        e.click(u"Export..."_s);
        QVERIFY(e.isDone());
        QCOMPARE(e.world.panels.asked.size(), 1);
        QVERIFY(e.files().isEmpty());
    }

    void nothingIsExportedIfTheWindowIsClosedOverTheFilePanel()
    {
        Export e;
        e.choosePdf();
        e.world.panels.whileOpen = [&e] { e.view.hide(); };
        e.click(u"Export..."_s);
        QVERIFY(e.isDone());
    }

    void itExportsTheShowAsItWasWhenTheFileWasAskedFor()
    {
        Export e;
        e.choosePdf();
        e.world.panels.whileOpen = [&e] { e.world.store.addSlide(); };
        e.click(u"Export..."_s);
        e.world.store.deleteSelectedSlide();
        e.world.store.newBlankProject();
        QTRY_VERIFY(e.isDone());
        QCOMPARE(pagesOf(e.target + u"/show.pdf"_s).size(), 3);
    }

    void itExportsOneSlideBetweenTwoEventsAndTellsHowMany()
    {
        Export e;
        e.choosePdf();
        e.click(u"Export..."_s);
        const auto &progress = *e.view.findChild<QProgressBar *>();
        QVERIFY(progress.isVisible());
        QCOMPARE(e.words(), u"0 of 3 slides"_s);
        int value = 0;
        while (e.view.isExporting()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            QVERIFY(progress.value() <= value + 1);
            value = progress.value();
        }
        QCOMPARE(value, 3);
        QVERIFY(!progress.isVisible());
    }

    void nothingElseCanBeChosenMeanwhile()
    {
        Export e;
        e.choosePdf();
        e.click(u"Export..."_s);
        QVERIFY(!e.button(u"Export..."_s).isEnabled());
        QVERIFY(!e.button(pictures).isEnabled());
        QTRY_VERIFY(e.isDone());
        QVERIFY(e.button(u"Export..."_s).isEnabled());
        QVERIFY(e.button(pictures).isEnabled());
        QVERIFY(e.button(onePage).isChecked());
    }

    void cancelLeavesNothing_data()
    {
        QTest::addColumn<QString>("format");
        QTest::newRow("of a document") << onePage;
        QTest::newRow("of pictures") << pictures;
    }

    void cancelLeavesNothing()
    {
        QFETCH(QString, format);
        Export e;
        e.world.panels.answer =
            QUrl::fromLocalFile(format == pictures ? e.target : e.target + u"/show.pdf"_s);
        e.click(format);
        e.click(u"Export..."_s);
        while (e.words() == u"0 of 3 slides"_s)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCOMPARE(e.words(), u"1 of 3 slides"_s);
        e.click(u"Cancel"_s);
        QVERIFY(e.isDone());
        QVERIFY(e.files().isEmpty());
        QCOMPARE(e.words(), u"The export was cancelled. Nothing was written."_s);
    }

    void closeDismissesTheWindow()
    {
        Export e;
        const QSignalSpy dismissed(&e.view, &ExportView::dismissed);
        e.click(u"Close"_s);
        QCOMPARE(dismissed.size(), 1);
    }

    void aFailureIsToldInTheSystemsWordsAndLeavesNothing()
    {
        Export e;
        e.choosePdf(u"missing/show.pdf"_s);
        e.click(u"Export..."_s);
        QTRY_VERIFY(e.isDone());
        QVERIFY(e.words().startsWith(u"Quenara could not write \u201cshow.pdf\u201d: "_s));
        QVERIFY(e.files().isEmpty());
        e.choosePdf();
        e.click(u"Export..."_s);
        QTRY_VERIFY(e.isDone());
        QCOMPARE(e.files(), QStringList{u"show.pdf"_s});
    }

    void anEmptyShowCannotBeExported()
    {
        Export e(showOf({}));
        QVERIFY(!e.button(u"Export..."_s).isEnabled());
        e.world.store.addSlide();
        QVERIFY(e.button(u"Export..."_s).isEnabled());
    }
};

QUENARA_GUI_TEST(TestExportView)

} // namespace tst_export_view

#include "tst_export_view.moc"
