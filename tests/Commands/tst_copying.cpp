#include "CommandWorld.h"
#include "Copying.h"
#include "GuiTestSupport.h"
#include "Images.h"

#include <QClipboard>
#include <QMimeData>
#include <QPlainTextEdit>

#include <limits>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_copying {

namespace {

/// Has the clipboard hold what \a fill puts there, as another program's.
void putOnClipboard(const std::function<void(QMimeData &)> &fill)
{
    auto *contents = new QMimeData;
    fill(*contents);
    QApplication::clipboard()->setMimeData(contents);
}

void putText(const QString &text)
{
    putOnClipboard([&](QMimeData &contents) { contents.setText(text); });
}

const QString song = u"[Verse 1]\nLine one\n\n[Chorus]\nLine two"_s;

} // namespace

class TestCopying : public GuiTest
{
    Q_OBJECT

private slots:
    void init() { QApplication::clipboard()->clear(); }

    void aSlideGoesFromOneProgramToAnotherItsPicturesIncluded()
    {
        CommandWorld from(showOf({1}));
        CommandWorld to(showOf({1}));
        const SlideMedia image = mediaOf(encoded(quarters({40, 30}), "PNG"));
        from.store.setBackgroundImage(image);
        from.commands.perform(Command::copy);
        to.commands.perform(Command::paste);
        const Slide pasted = to.slide();
        QVERIFY(pasted.id != u"A1"_s);
        QCOMPARE(pasted.title, u"Title of A1"_s);
        QCOMPARE(*pasted.design.background.image, image);
        QCOMPARE(to.undoSteps(), 1);
        QCOMPARE(to.store.liveSlideID(), u"A1"_s);
    }

    void aLayerIsPastedWhateverIsSelectedThere()
    {
        CommandWorld world(showOf({2}));
        world.store.selectElement(u"A1.line"_s);
        world.commands.perform(Command::copy);
        world.store.selectSlide(u"A2"_s, true);
        world.commands.perform(Command::paste);
        QCOMPARE(world.slide().design.elements.size(), 3);
        QCOMPARE(world.store.selectedElement()->kind, SlideElementKind::shape);
        QCOMPARE(world.store.lastSelected(), SelectionKind::layer);
    }

    void whatIsCutIsGoneAndCanBePastedAndIsOneStep()
    {
        CommandWorld world(showOf({2}));
        world.store.selectElement(u"A1.line"_s);
        world.commands.perform(Command::cut);
        QCOMPARE(world.slide().design.elements.size(), 1);
        QCOMPARE(world.undoSteps(), 1);
        world.commands.perform(Command::paste);
        QCOMPARE(world.slide().design.elements.size(), 2);
    }

    void whatCannotBeCopiedIsNotCut()
    {
        CommandWorld world(showOf({1}));
        world.store.selectElement(u"A1.line"_s);
        world.store.updateSelectedElement(
            [](SlideElement &layer) { layer.rotation = std::numeric_limits<double>::quiet_NaN(); });
        world.commands.perform(Command::cut);
        QCOMPARE(world.slide().design.elements.size(), 2);
    }

    void otherProgramsGetTheWords()
    {
        CommandWorld world(showOf({1}));
        world.commands.perform(Command::copy);
        QCOMPARE(QApplication::clipboard()->text(), world.slide().body);
        world.store.selectElement(u"A1.lyric"_s);
        world.commands.perform(Command::copy);
        QCOMPARE(QApplication::clipboard()->text(), world.layer(u"A1.lyric"_s).text->text);
    }

    void duplicatingWorksOnWhatWasSelectedLast()
    {
        CommandWorld world(showOf({1}));
        world.commands.perform(Command::duplicate);
        QCOMPARE(slideIDs(world.store.project()).size(), 2);
        world.store.selectElement(world.slide().design.elements.constFirst().id);
        world.commands.perform(Command::duplicate);
        QCOMPARE(slideIDs(world.store.project()).size(), 2);
        QCOMPARE(world.slide().design.elements.size(), 3);
    }

    void aPictureBecomesAnImageLayer_data()
    {
        using Fill = std::function<void(QMimeData &)>;
        QTest::addColumn<Fill>("fill");
        QTest::addColumn<QString>("type");
        const QImage image = quarters({40, 30});
        QTest::newRow("as pixels")
            << Fill([image](QMimeData &contents) { contents.setImageData(image); })
            << u"image/png"_s;
        QTest::newRow("as the bytes of a file") << Fill([image](QMimeData &contents) {
            contents.setData(u"image/jpeg"_s, encoded(image, "JPG"));
        }) << u"image/jpeg"_s;
        QTest::newRow("in formats of which one is broken") << Fill([image](QMimeData &contents) {
            contents.setData(u"image/jpeg"_s, "no image");
            contents.setData(u"image/png"_s, encoded(image, "PNG"));
        }) << u"image/png"_s;
    }

    void aPictureBecomesAnImageLayer()
    {
        QFETCH(std::function<void(QMimeData &)>, fill);
        CommandWorld world(showOf({1}));
        putOnClipboard(fill);
        world.commands.perform(Command::paste);
        const SlideElement layer = *world.store.selectedElement();
        QCOMPARE(layer.kind, SlideElementKind::image);
        QTEST(layer.image->mimeType, "type");
        QCOMPARE(world.undoSteps(), 1);
    }

    void aCopiedPictureFileBecomesAnImageLayer()
    {
        CommandWorld world(showOf({1}));
        const QUrl file = world.written(u"sea.png"_s, encoded(quarters({40, 30}), "PNG"));
        putOnClipboard([&](QMimeData &contents) { contents.setUrls({file}); });
        world.commands.perform(Command::paste);
        QCOMPARE(world.store.selectedElement()->image->name, u"sea.png"_s);
    }

    void aTextBecomesATextLayer()
    {
        CommandWorld world(showOf({1}));
        putText(song + u"\r\nlast"_s);
        world.commands.perform(Command::paste);
        QCOMPARE(world.store.selectedElement()->text->text, song + u"\nlast"_s);
        QVERIFY(!world.store.isSongImportPresented());
    }

    void aTextThatComesWithAPictureOfItIsAText()
    {
        CommandWorld world(showOf({1}));
        putOnClipboard([](QMimeData &contents) {
            contents.setText(u"a cell"_s);
            contents.setImageData(quarters({40, 30}));
        });
        world.commands.perform(Command::paste);
        QCOMPARE(world.store.selectedElement()->kind, SlideElementKind::text);
    }

    void aSongOpensItsSheetWhereSongsBelongAndWithoutASlide()
    {
        CommandWorld world(showOf({1}));
        QWidget window;
        takeSongs(window);
        auto *list = new QPlainTextEdit(&window);
        showActive(window);
        list->setFocus();
        putText(song);
        const ZelvoProject project = world.store.project();
        world.commands.perform(Command::paste);
        QVERIFY(world.store.isSongImportPresented());
        QCOMPARE(world.store.offeredSong()->lyrics, song);
        QCOMPARE(world.store.project(), project);

        world.store.setSongImportPresented(false);
        putText(u"Words without a heading"_s);
        world.commands.perform(Command::paste);
        QVERIFY(!world.store.isSongImportPresented());
        QCOMPARE(world.store.selectedElement()->kind, SlideElementKind::text);

        window.hide();
        CommandWorld blank(showOf({}));
        putText(song);
        blank.commands.perform(Command::paste);
        QVERIFY(blank.store.isSongImportPresented());
    }

    void whatIsNoneOfTheseChangesNothing_data()
    {
        using Fill = std::function<void(QMimeData &)>;
        QTest::addColumn<Fill>("fill");
        const auto row = [](const char *name, const Fill &fill) { QTest::newRow(name) << fill; };
        row("nothing at all", [](QMimeData &) {});
        row("blanks", [](QMimeData &contents) { contents.setText(u" \n\t"_s); });
        row("a text that no slide has room for",
            [](QMimeData &contents) { contents.setText(QString(200'000, u'a')); });
        row("a broken picture",
            [](QMimeData &contents) { contents.setData(u"image/png"_s, "\x89PNG"); });
        row("a file that is no picture", [](QMimeData &contents) {
            contents.setUrls({QUrl::fromLocalFile(dataPath(u"current.quenara"_s))});
            contents.setText(dataPath(u"current.quenara"_s));
        });
        row("a file that is not there", [](QMimeData &contents) {
            contents.setUrls({QUrl::fromLocalFile(u"/nowhere/sea.png"_s)});
        });
        row("a broken slide with words", [](QMimeData &contents) {
            contents.setData(QString::fromLatin1(slideClipType), R"({"slide": [)");
            contents.setText(u"words"_s);
        });
        row("a broken layer", [](QMimeData &contents) {
            contents.setData(QString::fromLatin1(layerClipType), R"({"layer": {}})");
        });
    }

    void whatIsNoneOfTheseChangesNothing()
    {
        QFETCH(std::function<void(QMimeData &)>, fill);
        CommandWorld world(showOf({1}));
        const Snapshot before = snapshotOf(world.store);
        putOnClipboard(fill);
        world.commands.perform(Command::paste);
        QCOMPARE(snapshotOf(world.store), before);
    }

    void nothingIsCopiedWhereNothingIsSelected()
    {
        CommandWorld world(showOf({1}));
        putText(u"kept"_s);
        world.store.selectServiceItem(u"A"_s);
        world.commands.perform(Command::copy);
        QCOMPARE(QApplication::clipboard()->text(), u"kept"_s);
    }
};

QUENARA_GUI_TEST(TestCopying)

} // namespace tst_copying

#include "tst_copying.moc"
