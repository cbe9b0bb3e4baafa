#include "TestMain.h"
#include "TestSupport.h"

#include <QSet>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_pasting {

namespace {

QStringList layerIDs(const Slide &slide)
{
    QStringList ids;
    for (const SlideElement &layer : slide.design.elements)
        ids.append(layer.id);
    return ids;
}

SlideClip slideClip(const World &world, const QString &id)
{
    return {*world.store.slideWithID(id)};
}

/// The clip of a layer of the selected slide.
LayerClip layerClip(const World &world, const QString &id)
{
    return {world.slide().id, world.layer(id)};
}

QPointF cornerOf(const SlideElement &layer)
{
    return {layer.frame.x, layer.frame.y};
}

} // namespace

class TestPasting : public QObject
{
    Q_OBJECT

private slots:
    void aSlideIsPastedAfterTheSelectedOneUnderNewIdentifiers()
    {
        World world(showOf({2, 2}));
        const SlideClip clip = slideClip(world, u"B1"_s);
        world.store.selectSlide(u"A1"_s, true);
        world.store.pasteSlide(clip);
        const Slide pasted = world.slide();
        QCOMPARE(slideIDs(world.store.project()),
                 (QStringList{u"A1"_s, pasted.id, u"A2"_s, u"B1"_s, u"B2"_s}));
        QCOMPARE(world.store.queuedSlideID(), pasted.id);
        QCOMPARE(world.store.liveSlideID(), u"A1"_s);
        QCOMPARE(pasted.title, clip.slide.title);
        QCOMPARE(pasted.body, clip.slide.body);
        const QStringList before = layerIDs(clip.slide);
        const QStringList after = layerIDs(pasted);
        QCOMPARE(after.size(), before.size());
        QVERIFY(!QSet<QString>(before.cbegin(), before.cend())
                     .intersects(QSet<QString>(after.cbegin(), after.cend())));
        world.store.undo();
        QCOMPARE(world.store.project(), World(showOf({2, 2})).store.project());
    }

    void aSlideIsPastedAtTheEndOfASectionThatWasSelectedSince()
    {
        World world(showOf({2, 2}));
        const SlideClip clip = slideClip(world, u"A1"_s);
        world.store.selectServiceItem(u"B"_s);
        world.store.pasteSlide(clip);
        QCOMPARE(slideIDs(world.store.project()),
                 (QStringList{u"A1"_s, u"A2"_s, u"B1"_s, u"B2"_s, world.slide().id}));
        QCOMPARE(world.store.selectedServiceItemID(), u"B"_s);
    }

    void aSlideIsPastedIntoAnEmptyDocumentToo()
    {
        World world(showOf({}));
        world.store.pasteSlide(slideClip(World(showOf({1})), u"A1"_s));
        QCOMPARE(world.store.project().serviceItems.size(), 1);
        QCOMPARE(world.slide().title, u"Title of A1"_s);
    }

    void aPastedSlideSharesItsImagesWithTheOneItWasCopiedFrom()
    {
        World world(showOf({1}));
        const QByteArray url = "data:image/png;base64," + QByteArray(1000, 'A');
        world.store.setBackgroundImage({.dataUrl = url, .name = {}, .mimeType = {}});
        SlideClip clip = slideClip(world, u"A1"_s);
        clip.slide.design.background.image->dataUrl.detach();
        world.store.pasteSlide(clip);
        QCOMPARE(
            static_cast<const void *>(world.slide().design.background.image->dataUrl.constData()),
            static_cast<const void *>(
                world.store.slideWithID(u"A1"_s)->design.background.image->dataUrl.constData()));
    }

    void aLayerIsPastedInItsPlaceOnAnotherSlideAndBesideItOnTheSame()
    {
        World world(showOf({2}));
        const LayerClip clip = layerClip(world, u"A1.line"_s);
        const QPointF corner = cornerOf(clip.layer);
        world.store.pasteLayer(clip);
        QCOMPARE(cornerOf(*world.store.selectedElement()), corner + QPointF(42, 42));
        world.store.pasteLayer(clip);
        QCOMPARE(cornerOf(*world.store.selectedElement()), corner + QPointF(84, 84));
        world.store.selectSlide(u"A2"_s, true);
        world.store.updateSelectedSlide([](Slide &slide) { slide.design.elements.clear(); });
        world.store.pasteLayer(clip);
        QCOMPARE(cornerOf(*world.store.selectedElement()), corner);
        world.store.pasteLayer(clip);
        QCOMPARE(cornerOf(*world.store.selectedElement()), corner + QPointF(42, 42));
        QCOMPARE(world.slide().design.elements.size(), 2);
    }

    void aLayerKeepsItsPlaceOverADifferentOneOfAnotherSlide()
    {
        World world(showOf({2}));
        const LayerClip clip = layerClip(world, u"A1.lyric"_s);
        world.store.selectSlide(u"A2"_s, true);
        world.store.pasteLayer(clip);
        QCOMPARE(world.store.selectedElement()->frame, world.layer(u"A2.lyric"_s).frame);
    }

    void aLayerThatWasCutComesBackWhereItWas()
    {
        World world(showOf({1}));
        const LayerClip clip = layerClip(world, u"A1.line"_s);
        world.store.selectElement(u"A1.line"_s);
        world.store.deleteSelectedElement();
        world.store.pasteLayer(clip);
        QCOMPARE(world.store.selectedElement()->frame, clip.layer.frame);
        QVERIFY(world.store.selectedElementID() != u"A1.line"_s);
    }

    void aPastedLayerLiesOnTop()
    {
        World world(showOf({1}));
        world.store.pasteLayer(layerClip(world, u"A1.line"_s));
        QCOMPARE(world.slide().design.visibleElementsInDrawingOrder().constLast().id,
                 world.store.selectedElementID());
    }

    void aTextIsPastedAsATextLayer()
    {
        World world(showOf({1}));
        world.store.pasteText(u"\u05e9\u05dc\u05d5\u05dd \U0001f389"_s);
        const SlideElement layer = *world.store.selectedElement();
        QCOMPARE(layer.kind, SlideElementKind::text);
        QCOMPARE(layer.text->text, u"\u05e9\u05dc\u05d5\u05dd \U0001f389"_s);
    }

    void anImageIsPlacedAroundAPointWithinTheSlide_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<QPointF>("corner");
        QTest::newRow("in the middle") << QPointF(960, 540) << QPointF(480, 270);
        QTest::newRow("at the top left") << QPointF(10, 10) << QPointF(0, 0);
        QTest::newRow("at the bottom right") << QPointF(1919, 1079) << QPointF(960, 540);
        QTest::newRow("off the slide") << QPointF(-300, 2000) << QPointF(0, 540);
    }

    void anImageIsPlacedAroundAPointWithinTheSlide()
    {
        QFETCH(QPointF, point);
        World world(showOf({1}));
        world.store.placeImageLayer({}, point);
        QTEST(cornerOf(*world.store.selectedElement()), "corner");
    }

    void whatWasSelectedLastIsTold_data()
    {
        using Operation = std::function<void(WorkspaceStore &)>;
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<SelectionKind>("kind");
        const auto row = [](const char *name, SelectionKind kind, const Operation &operation) {
            QTest::newRow(name) << operation << kind;
        };
        using Store = WorkspaceStore;
        using enum SelectionKind;
        row("a layer", layer, [](Store &s) { s.selectElement(u"A1.line"_s); });
        row("no layer", slide, [](Store &s) { s.selectElement(std::nullopt); });
        row("a slide", slide, [](Store &s) { s.selectSlide(u"A2"_s, true); });
        row("a section", section, [](Store &s) { s.selectServiceItem(u"B"_s); });
        row("a slide that went live", slide, &Store::nextLive);
        row("a queued slide", slide, &Store::queueNext);
        row("a new slide", slide, &Store::addSlide);
        row("a new section", slide, [](Store &s) { s.addServiceItem(ServiceItemType::song); });
        row("a new layer", layer, &Store::addShapeLayer);
        row("the slide after a deleted one", slide, &Store::deleteSelectedSlide);
        row("the layer after a deleted one", layer, &Store::deleteSelectedElement);
        row("a new document", slide, &Store::newSundayServiceProject);
        row("nothing by an edit", layer, [](Store &s) { s.updateProjectName(u"Name"_s); });
    }

    void whatWasSelectedLastIsTold()
    {
        QFETCH(std::function<void(WorkspaceStore &)>, operation);
        World world(showOf({2, 1}));
        world.store.selectElement(u"A1.lyric"_s);
        operation(world.store);
        QTEST(world.store.lastSelected(), "kind");
    }

    void anOfferedSongIsForgottenWithItsSheet()
    {
        World world(showOf({1}));
        const SongText song{.title = u"Song"_s, .lyrics = u"[Verse]\nWords"_s};
        world.store.offerSong(song);
        QVERIFY(world.store.isSongImportPresented());
        QCOMPARE(world.store.offeredSong(), song);
        world.store.setSongImportPresented(false);
        QVERIFY(!world.store.offeredSong());
    }
};

QUENARA_TEST(TestPasting)

} // namespace tst_pasting

#include "tst_pasting.moc"
