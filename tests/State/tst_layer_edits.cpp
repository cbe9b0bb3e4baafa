#include "ChildProcess.h"
#include "Images.h"
#include "ProjectNormalizer.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTest>

#include <functional>
#include <limits>
#include <sys/stat.h>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_layer_edits {

namespace {

using Edit = std::function<void(World &)>;
using Operation = void (WorkspaceStore::*)();

Edit edit(Operation operation)
{
    return [operation](World &world) { (world.store.*operation)(); };
}

QByteArray png()
{
    return encoded(quarters({8, 8}), "PNG");
}

Edit editWithImage(Operation operation)
{
    return [operation](World &world) {
        world.panels.answer = world.written(u"image.png"_s, png());
        (world.store.*operation)();
    };
}

Edit addText(SlideElementKind kind)
{
    return [kind](World &world) { world.store.addTextLayer(kind); };
}

const Edit renameLayer = [](World &world) {
    world.store.updateSelectedElement([](SlideElement &element) { element.name = u"New"_s; });
};

/// A text layer with \a id, which is its text, too.
SlideElement layer(const QString &id, std::int64_t zIndex)
{
    SlideElement element;
    element.id = id;
    element.name = u"Layer "_s + id;
    element.frame = {100, 100, 640, 480};
    element.zIndex = zIndex;
    element.text = TextElementProperties::lyric(id);
    return element;
}

/// The show "A: A1 A2 | B: B1" with \a layers, written as "a3 b-7", on A2.
ZelvoProject showWithLayers(const QString &layers)
{
    ZelvoProject project = showOf({2, 1});
    Slide &slide = project.serviceItems[0].slides[1];
    slide.design.elements.clear();
    for (const QString &word : layers.split(u' ', Qt::SkipEmptyParts))
        slide.design.elements.append(layer(word.first(1), word.sliced(1).toLongLong()));
    slide.body = ProjectNormalizer::compatibilityBody(slide);
    return project;
}

/// The layers of the selected slide as showWithLayers() takes them; those with other ids are "new".
QString layersOf(const WorkspaceStore &store)
{
    QStringList words;
    for (const SlideElement &element :
         store.slideWithID(store.selectedSlideID()).value_or(Slide()).design.elements) {
        const QString name = element.id.size() == 1 ? element.id : u"new"_s;
        words.append(name + QString::number(element.zIndex));
    }
    return words.join(u' ');
}

/// A world on showWithLayers(), A2 selected with the layer \a selected of it, B1 live.
struct LayerWorld : World
{
    LayerWorld(const QString &layers, const QString &selected) : World(showWithLayers(layers))
    {
        store.selectSlide(u"B1"_s, true);
        store.goLive();
        store.selectSlide(u"A2"_s, false);
        if (!selected.isEmpty())
            store.selectElement(selected);
    }
};

QString text(std::int64_t number)
{
    return QString::number(number);
}

constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();

SlideElement selectedElementOf(const World &world)
{
    return world.store.selectedElement().value_or(SlideElement());
}

} // namespace

class TestLayerEdits : public QObject
{
    Q_OBJECT

private slots:
    void theLayersAndTheSelectionFollowEachEdit_data()
    {
        QTest::addColumn<QString>("layers");
        QTest::addColumn<QString>("selected");
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<QString>("layersAfter");
        QTest::addColumn<QString>("selectedAfter"); // empty for none

        const auto row = [](const char *name, const QString &layers, const QString &selected,
                            const Edit &edit, const QString &layersAfter,
                            const QString &selectedAfter) {
            QTest::newRow(name) << layers << selected << edit << layersAfter << selectedAfter;
        };
        const Edit addPlain = addText(SlideElementKind::text);
        const Edit addShape = edit(&WorkspaceStore::addShapeLayer);
        const Edit addImage = editWithImage(&WorkspaceStore::addImageLayerWithPanel);
        const Edit setBackground = editWithImage(&WorkspaceStore::setBackgroundImageWithPanel);
        const Edit duplicate = edit(&WorkspaceStore::duplicateSelectedElement);
        const Edit remove = edit(&WorkspaceStore::deleteSelectedElement);
        const Edit forward = edit(&WorkspaceStore::bringSelectedElementForward);
        const Edit backward = edit(&WorkspaceStore::sendSelectedElementBackward);

        row("a text is added on top", u"a3 b7 c5"_s, u"c"_s, addPlain, u"a3 b7 c5 new8"_s,
            u"new"_s);
        row("a text needs no selected layer", u"a3"_s, u""_s, addPlain, u"a3 new4"_s, u"new"_s);
        row("a first text has the index one", u""_s, u""_s, addPlain, u"new1"_s, u"new"_s);
        row("a text above layers below zero", u"a-5 b-9"_s, u"a"_s, addPlain, u"a-5 b-9 new-4"_s,
            u"new"_s);
        row("a text above the last index shares it", u"a"_s + text(highest), u"a"_s, addPlain,
            u"a%1 new%1"_s.arg(highest), u"new"_s);
        row("a shape is added on top", u"b7 a3"_s, u"a"_s, addShape, u"b7 a3 new8"_s, u"new"_s);
        row("a first shape has the index one", u""_s, u""_s, addShape, u"new1"_s, u"new"_s);
        row("an image is added on top", u"a3 b7"_s, u"b"_s, addImage, u"a3 b7 new8"_s, u"new"_s);
        row("a first image has the index one", u""_s, u""_s, addImage, u"new1"_s, u"new"_s);
        row("a background leaves the layers", u"a3 b7"_s, u"b"_s, setBackground, u"a3 b7"_s,
            u"b"_s);
        row("a background needs no layer", u""_s, u""_s, setBackground, u""_s, u""_s);
        row("an update leaves the order", u"a3 b7"_s, u"a"_s, renameLayer, u"a3 b7"_s, u"a"_s);
        row("a copy of the lowest goes on top", u"a3 b7"_s, u"a"_s, duplicate, u"a3 b7 new8"_s,
            u"new"_s);
        row("a copy of the highest goes on top", u"b7 a3"_s, u"b"_s, duplicate, u"b7 a3 new8"_s,
            u"new"_s);
        row("a copy above the last index shares it", u"a2 b"_s + text(highest), u"a"_s, duplicate,
            u"a2 b%1 new%1"_s.arg(highest), u"new"_s);
        row("a deleted layer gives way to the lowest", u"a5 b7 c3"_s, u"b"_s, remove, u"c3 a5"_s,
            u"c"_s);
        row("equal layers stay in order", u"a5 b9 c5 d1"_s, u"d"_s, remove, u"a5 c5 b9"_s, u"a"_s);
        row("a deleted only layer leaves none", u"a3"_s, u"a"_s, remove, u""_s, u""_s);
        row("a layer goes one step up", u"a3 b7"_s, u"a"_s, forward, u"a4 b7"_s, u"a"_s);
        row("up to the level of another", u"a3 b4"_s, u"a"_s, forward, u"a4 b4"_s, u"a"_s);
        row("past another", u"a4 b4"_s, u"a"_s, forward, u"a5 b4"_s, u"a"_s);
        row("up from the top", u"a3 b7"_s, u"b"_s, forward, u"a3 b8"_s, u"b"_s);
        row("up from the last index", u"a"_s + text(highest), u"a"_s, forward,
            u"a"_s + text(highest), u"a"_s);
        row("a layer goes one step down", u"a3 b7"_s, u"b"_s, backward, u"a3 b6"_s, u"b"_s);
        row("down below zero", u"a0 b7"_s, u"a"_s, backward, u"a-1 b7"_s, u"a"_s);
        row("down from the first index", u"a"_s + text(lowest), u"a"_s, backward,
            u"a"_s + text(lowest), u"a"_s);
    }

    void theLayersAndTheSelectionFollowEachEdit()
    {
        QFETCH(QString, layers);
        QFETCH(QString, selected);
        QFETCH(Edit, edit);
        LayerWorld world(layers, selected);
        WorkspaceStore &store = world.store;
        store.toggleBlackout();
        const ZelvoProject before = store.project();
        const Selection selection = selectionOf(store.state());

        edit(world);
        QTEST(layersOf(store), "layersAfter");
        const QString element = store.selectedElementID().value_or(QString());
        QTEST(element.size() > 1 ? u"new"_s : element, "selectedAfter");
        Selection expected = selection;
        expected.element = store.selectedElementID();
        QCOMPARE(selectionOf(store.state()), expected);
        QCOMPARE(store.outputMode(), OutputMode::blackout);
        QVERIFY(store.hasUnsavedChanges());
        const Slide slide = *store.slideWithID(u"A2"_s);
        QCOMPARE(slide.body, ProjectNormalizer::compatibilityBody(slide));

        // One step of undo gives back the project, one of redo the edit.
        const ZelvoProject after = store.project();
        QCOMPARE(store.undoStore().undoStack(), QList{before});
        store.undo();
        QCOMPARE(store.project(), before);
        store.redo();
        QCOMPARE(store.project(), after);
        QVERIFY(!store.canRedo());
    }

    void aLayerIsCentredInOneDirectionAlone_data()
    {
        QTest::addColumn<CanvasFrame>("frame");
        QTest::addColumn<CanvasFrame>("horizontally");
        QTest::addColumn<CanvasFrame>("vertically");
        QTest::newRow("on the canvas")
            << CanvasFrame{100, 50, 400, 200} << CanvasFrame{760, 50, 400, 200}
            << CanvasFrame{100, 440, 400, 200};
        QTest::newRow("beside the canvas")
            << CanvasFrame{-4000, 9000, 100, 100} << CanvasFrame{910, 9000, 100, 100}
            << CanvasFrame{-4000, 490, 100, 100};
        QTest::newRow("larger than the canvas")
            << CanvasFrame{0, 0, 3000, 2000} << CanvasFrame{-540, 0, 3000, 2000}
            << CanvasFrame{0, -460, 3000, 2000};
        QTest::newRow("in the middle")
            << CanvasFrame{860, 490, 200, 100} << CanvasFrame{860, 490, 200, 100}
            << CanvasFrame{860, 490, 200, 100};
    }

    void aLayerIsCentredInOneDirectionAlone()
    {
        QFETCH(CanvasFrame, frame);
        LayerWorld world(u"a3 b7"_s, u"a"_s);
        WorkspaceStore &store = world.store;
        store.updateSelectedElement([&](SlideElement &layer) {
            layer.frame = frame;
            layer.rotation = 30;
            layer.locked = true;
        });
        SlideElement expected = *store.selectedElement();
        store.centerSelectedElementHorizontally();
        QTEST(store.selectedElement()->frame, "horizontally");
        store.undo();
        QCOMPARE(*store.selectedElement(), expected);
        store.centerSelectedElementVertically();
        QTEST(store.selectedElement()->frame, "vertically");
        expected.frame = store.selectedElement()->frame;
        QCOMPARE(*store.selectedElement(), expected);
    }

    void aLayerIsCentredOnTheCanvasOfItsSlide()
    {
        LayerWorld world(u"a3"_s, u"a"_s);
        world.store.updateSelectedSlide([](Slide &slide) {
            slide.design.canvasSize = {1000, 400};
        });
        world.store.updateSelectedElement([](SlideElement &layer) {
            layer.frame = {0, 0, 100, 100};
        });
        world.store.centerSelectedElementHorizontally();
        world.store.centerSelectedElementVertically();
        QCOMPARE(world.store.selectedElement()->frame, (CanvasFrame{450, 150, 100, 100}));
    }

    void anEditOfNoLayerTakesNoStep_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::newRow("duplicate") << &WorkspaceStore::duplicateSelectedElement;
        QTest::newRow("delete") << &WorkspaceStore::deleteSelectedElement;
        QTest::newRow("forward") << &WorkspaceStore::bringSelectedElementForward;
        QTest::newRow("backward") << &WorkspaceStore::sendSelectedElementBackward;
        QTest::newRow("centre horizontally") << &WorkspaceStore::centerSelectedElementHorizontally;
        QTest::newRow("centre vertically") << &WorkspaceStore::centerSelectedElementVertically;
    }

    void anEditOfNoLayerTakesNoStep()
    {
        QFETCH(Operation, operation);
        for (const QString &selected : {u""_s, u"nowhere"_s, u"A1.lyric"_s}) {
            LayerWorld world(u"a3 b7"_s, selected);
            const Snapshot before = snapshotOf(world.store);
            (world.store.*operation)();
            renameLayer(world);
            QVERIFY2(snapshotOf(world.store) == before, qPrintable(selected));
        }
    }

    void anEditOfNoSlideTakesNoStep_data()
    {
        QTest::addColumn<Edit>("edit");
        QTest::newRow("add a text") << addText(SlideElementKind::text);
        QTest::newRow("add a shape") << edit(&WorkspaceStore::addShapeLayer);
        QTest::newRow("add an image") << editWithImage(&WorkspaceStore::addImageLayerWithPanel);
        QTest::newRow("set a background")
            << editWithImage(&WorkspaceStore::setBackgroundImageWithPanel);
        QTest::newRow("update a layer") << renameLayer;
        QTest::newRow("duplicate a layer") << edit(&WorkspaceStore::duplicateSelectedElement);
        QTest::newRow("delete a layer") << edit(&WorkspaceStore::deleteSelectedElement);
        QTest::newRow("bring a layer forward")
            << edit(&WorkspaceStore::bringSelectedElementForward);
        QTest::newRow("send a layer backward")
            << edit(&WorkspaceStore::sendSelectedElementBackward);
        QTest::newRow("centre a layer horizontally")
            << edit(&WorkspaceStore::centerSelectedElementHorizontally);
        QTest::newRow("centre a layer vertically")
            << edit(&WorkspaceStore::centerSelectedElementVertically);
    }

    void anEditOfNoSlideTakesNoStep()
    {
        QFETCH(Edit, edit);
        World unknown(showOf({1}));
        unknown.store.selectSlide(u"nowhere"_s, false);
        unknown.store.selectElement(u"A1.lyric"_s);
        World empty(showOf({0}));
        for (World *world : {&unknown, &empty}) {
            const Snapshot before = snapshotOf(world->store);
            edit(*world);
            QVERIFY(snapshotOf(world->store) == before);
            QVERIFY(world->panels.asked.isEmpty());
        }
    }

    void aNewTextGoesByItsKind_data()
    {
        QTest::addColumn<SlideElementKind>("kind");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        const auto row = [](SlideElementKind kind, const QString &name, const QString &text) {
            QTest::newRow(qPrintable(name + u" of kind "_s + QString::number(int(kind))))
                << kind << name << text;
        };
        row(SlideElementKind::scriptureText, u"Scripture"_s, u"Scripture text"_s);
        row(SlideElementKind::songLyricText, u"Lyric"_s, u"Lyric text"_s);
        for (const auto kind : {SlideElementKind::text, SlideElementKind::image,
                                SlideElementKind::shape, SlideElementKind::lowerThird})
            row(kind, u"Text"_s, u"New text"_s);
    }

    void aNewTextGoesByItsKind()
    {
        QFETCH(SlideElementKind, kind);
        QFETCH(QString, name);
        QFETCH(QString, text);
        LayerWorld world(u"a3"_s, u"a"_s);
        world.store.addTextLayer(kind);
        SlideElement expected;
        expected.id = selectedElementOf(world).id;
        expected.name = name;
        expected.kind = kind;
        expected.frame = {360, 370, 1200, 240};
        expected.zIndex = 4;
        expected.text = TextElementProperties{.text = text,
                                              .fontFamily = u"Avenir Next"_s,
                                              .fontSize = 78,
                                              .weight = TextFontWeight::semibold,
                                              .textColor = RGBAColor::nearWhite,
                                              .alignment = TextAlignmentValue::center,
                                              .lineHeight = 1.12,
                                              .characterSpacing = 0,
                                              .uppercase = false,
                                              .shadow = TextShadow::soft,
                                              .outline = std::nullopt,
                                              .backgroundFill = std::nullopt,
                                              .padding = 18};
        QCOMPARE(selectedElementOf(world), expected);
    }

    void aNewShapeIsATranslucentRectangle()
    {
        LayerWorld world(u"a3"_s, u"a"_s);
        world.store.addShapeLayer();
        SlideElement expected;
        expected.id = selectedElementOf(world).id;
        expected.name = u"Shape"_s;
        expected.kind = SlideElementKind::shape;
        expected.frame = {420, 420, 1080, 190};
        expected.opacity = 0.55;
        expected.zIndex = 4;
        expected.shape = ShapeProperties{.kind = ShapeKind::rectangle,
                                         .fill = {0, 0, 0, 0.45},
                                         .stroke = RGBAColor::amber,
                                         .strokeWidth = 0,
                                         .cornerRadius = 16};
        QCOMPARE(selectedElementOf(world), expected);
    }

    void aNewImageHoldsTheFile()
    {
        LayerWorld world(u"a3"_s, u"a"_s);
        world.panels.answer = world.written(u"my image.png"_s, png());
        world.store.addImageLayerWithPanel();
        QCOMPARE(world.panels.asked, QList{zelvoImageOpenPanel()});
        SlideElement expected;
        expected.id = selectedElementOf(world).id;
        expected.name = u"Image"_s;
        expected.kind = SlideElementKind::image;
        expected.frame = {480, 270, 960, 540};
        expected.zIndex = 4;
        expected.image = SlideMedia{.dataUrl = "data:image/png;base64," + png().toBase64(),
                                    .name = u"my image.png"_s,
                                    .mimeType = u"image/png"_s};
        QCOMPARE(selectedElementOf(world), expected);
    }

    void aBackgroundTakesTheImageAndKeepsTheRest()
    {
        LayerWorld world(u"a3"_s, u"a"_s);
        Slide expected = *world.store.slideWithID(u"A2"_s);
        world.panels.answer = world.written(u"hill.png"_s, png());
        world.store.setBackgroundImageWithPanel();
        QCOMPARE(world.panels.asked, QList{zelvoImageOpenPanel()});
        expected.design.background.kind = SlideBackgroundKind::image;
        expected.design.background.image =
            SlideMedia{.dataUrl = "data:image/png;base64," + png().toBase64(),
                       .name = u"hill.png"_s,
                       .mimeType = u"image/png"_s};
        QCOMPARE(world.store.slideWithID(u"A2"_s), expected);
        QCOMPARE(world.store.project().serviceItems.at(0).slides.at(0),
                 showWithLayers(u"a3"_s).serviceItems.at(0).slides.at(0));
    }

    void noImageChangesNothing_data()
    {
        QTest::addColumn<QString>("name"); // empty: cancelled
        QTest::addColumn<QByteArray>("bytes"); // null: no such file
        QTest::newRow("cancelled") << QString() << QByteArray();
        QTest::newRow("a missing file") << u"missing.png"_s << QByteArray();
        QTest::newRow("an empty file") << u"empty.png"_s << QByteArray("");
        QTest::newRow("a text") << u"text.png"_s << QByteArray("Only words");
        QTest::newRow("a project") << u"show.png"_s << dataBytes(u"current.quenara"_s);
        QTest::newRow("the beginning of an image") << u"half.png"_s << png().first(40);
        QTest::newRow("the folder") << u"."_s << QByteArray();
    }

    void noImageChangesNothing()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        LayerWorld world(u"a3"_s, u"a"_s);
        if (!name.isEmpty())
            world.panels.answer = bytes.isNull() ? world.fileUrl(name) : world.written(name, bytes);
        const Snapshot before = snapshotOf(world.store);
        world.store.addImageLayerWithPanel();
        world.store.setBackgroundImageWithPanel();
        QCOMPARE(world.panels.asked.size(), 2);
        QVERIFY(snapshotOf(world.store) == before);
    }

    void anImageWithoutLeaveToReadChangesNothing()
    {
        LayerWorld world(u"a3"_s, u"a"_s);
        const QUrl url = world.written(u"image.png"_s, png());
        world.panels.answer = url;
        QCOMPARE(::chmod(QFile::encodeName(world.folder.path()).constData(), 0755), 0);
        QVERIFY(QFile::setPermissions(url.toLocalFile(), {}));
        const Snapshot before = snapshotOf(world.store);
        // Root may read every file.
        QCOMPARE(statusOfProcess([&] {
                     if (!dropPrivileges())
                         return 1;
                     world.store.addImageLayerWithPanel();
                     world.store.setBackgroundImageWithPanel();
                     return snapshotOf(world.store) == before ? 0 : 2;
                 }),
                 0);
    }

    void aSlideThatIsGoneWhenTheImageIsChosenChangesNothing()
    {
        LayerWorld world(u"a3"_s, u"a"_s);
        world.panels.answer = world.written(u"image.png"_s, png());
        world.panels.whileOpen = [&world] { world.store.newBlankProject(); };
        world.store.addImageLayerWithPanel();
        QVERIFY(world.store.project().serviceItems.isEmpty());
        QVERIFY(!world.store.canUndo());
        QVERIFY(!world.store.hasUnsavedChanges());
    }

    void anImageAskedForOneSlideGoesToNoOther_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::newRow("as a layer") << Operation(&WorkspaceStore::addImageLayerWithPanel);
        QTest::newRow("as a background") << Operation(&WorkspaceStore::setBackgroundImageWithPanel);
    }

    void anImageAskedForOneSlideGoesToNoOther()
    {
        QFETCH(Operation, operation);
        LayerWorld world(u"a3"_s, u"a"_s);
        world.panels.answer = world.written(u"image.png"_s, png());
        world.panels.whileOpen = [&world] { world.store.nextLive(); };
        const ZelvoProject before = world.store.project();
        (world.store.*operation)();
        QCOMPARE(world.store.project(), before);
        QVERIFY(!world.store.canUndo());
    }

    void aCopyDiffersInItsIdNameAndPlace()
    {
        ZelvoProject project = showWithLayers(u"a3 b7"_s);
        SlideElement &original = project.serviceItems[0].slides[1].design.elements[0];
        original.rotation = 12;
        original.opacity = 0.5;
        original.locked = true;
        original.visible = false;
        World world(project);
        world.store.selectSlide(u"A2"_s, true);
        world.store.selectElement(u"a"_s);
        world.store.duplicateSelectedElement();
        SlideElement expected = original;
        expected.id = selectedElementOf(world).id;
        expected.name = u"Layer a Copy"_s;
        expected.frame = {142, 142, 640, 480};
        expected.zIndex = 8;
        QCOMPARE(selectedElementOf(world), expected);
        QVERIFY(expected.id != original.id);
    }

    void theBodyFollowsTheLowestText()
    {
        LayerWorld world(u"a3 b7 c5"_s, u"a"_s);
        const auto body = [&world] { return world.store.slideWithID(u"A2"_s)->body; };
        QCOMPARE(body(), u"a"_s);
        world.store.deleteSelectedElement();
        QCOMPARE(body(), u"c"_s);
        world.store.updateSelectedElement(
            [](SlideElement &element) { element.text->text = u" sung \n"_s; });
        QCOMPARE(body(), u"sung"_s);
        world.store.updateSelectedElement([](SlideElement &element) { element.visible = false; });
        QCOMPARE(body(), u"b"_s);
        world.store.selectElement(u"b"_s);
        world.store.deleteSelectedElement();
        QCOMPARE(body(), u"b"_s);
        world.store.addTextLayer(SlideElementKind::text);
        QCOMPARE(body(), u"New text"_s);
    }

    void anUpdateMayChangeEverythingOfALayer()
    {
        LayerWorld world(u"a3 b7"_s, u"b"_s);
        const SlideElement other = layer(u"z"_s, 1);
        world.store.updateSelectedElement([&](SlideElement &element) { element = other; });
        const QList<SlideElement> expected{layer(u"a"_s, 3), other};
        QCOMPARE(world.store.slideWithID(u"A2"_s)->design.elements, expected);
        QCOMPARE(world.store.selectedElementID(), u"a"_s); // the selected one is gone
    }

    void theFirstOfLayersWithTheSameIdIsEdited()
    {
        LayerWorld world(u"a3 b7 b9"_s, u"b"_s);
        world.store.bringSelectedElementForward();
        QCOMPARE(layersOf(world.store), u"a3 b8 b9"_s);
        world.store.deleteSelectedElement();
        QCOMPARE(layersOf(world.store), u"a3 b9"_s);
    }

    void editsOfTheLiveSlideKeepItLive()
    {
        LayerWorld world(u"a3 b7"_s, u"a"_s);
        world.store.queueSlide(u"A2"_s);
        world.store.goLive();
        world.store.deleteSelectedElement();
        world.store.addShapeLayer();
        QCOMPARE(world.store.liveSlideID(), u"A2"_s);
        QCOMPARE(world.store.queuedSlideID(), u"A2"_s);
    }
};

QUENARA_TEST_WITH(QGuiApplication, TestLayerEdits)

} // namespace tst_layer_edits

#include "tst_layer_edits.moc"
