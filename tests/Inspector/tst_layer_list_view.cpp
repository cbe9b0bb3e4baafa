#include "ElidedLabel.h"
#include "InspectorWorld.h"
#include "LayerListView.h"
#include "LayerRow.h"
#include "SymbolButton.h"
#include "SymbolLabel.h"
#include "ZelvoTheme.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPaintEvent>
#include <QWindow>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_layer_list_view {

namespace {

SlideElement layerAt(const QString &id, std::int64_t zIndex)
{
    SlideElement layer = rectangleLayer(id, {0, 0, 100, 100}, RGBAColor::amber, 0);
    layer.name = u"Layer "_s + id;
    layer.zIndex = zIndex;
    return layer;
}

/// A show of two slides, "A1" with exactly these layers.
ZelvoProject showWith(const QList<SlideElement> &layers)
{
    ZelvoProject project = showOf({2});
    project.serviceItems[0].slides[0].design.elements = layers;
    return project;
}

ZelvoProject threeLayers()
{
    return showWith({layerAt(u"low"_s, 0), layerAt(u"high"_s, 2), layerAt(u"middle"_s, 1)});
}

struct LayerList : InspectorWorld
{
    explicit LayerList(const ZelvoProject &project = threeLayers(),
                       const Caller &caller = Caller::current())
        : InspectorWorld(project, caller)
    {}

    /// The visible rows from the top of the list.
    QList<LayerRow *> rows() const
    {
        QCoreApplication::processEvents(); // lays out what is new
        QList<LayerRow *> found;
        for (LayerRow *row : view.findChildren<LayerRow *>()) {
            if (row->isVisible())
                found.append(row);
        }
        std::sort(found.begin(), found.end(), [this](const auto *a, const auto *b) {
            return a->mapTo(&view, QPoint()).y() < b->mapTo(&view, QPoint()).y();
        });
        return found;
    }

    /// What the operator is told of texts, empty if nothing.
    QString notice() const
    {
        for (const auto *symbol : view.findChildren<SymbolLabel *>()) {
            if (symbol->isVisible())
                return symbol->toolTip();
        }
        return {};
    }

    QStringList ids() const
    {
        QStringList ids;
        for (const LayerRow *row : rows())
            ids.append(row->contents().id);
        return ids;
    }

    QStringList markedIDs() const
    {
        QStringList ids;
        for (const LayerRow *row : rows()) {
            if (row->isChecked())
                ids.append(row->contents().id);
        }
        return ids;
    }

    LayerRow &row(const QString &id, const Caller &caller = Caller::current()) const
    {
        const qsizetype position = ids().indexOf(id);
        if (position < 0)
            fail(u"there is no row of \"%1\""_s.arg(id), caller);
        return *rows().at(position);
    }

    void pressOn(const QString &id, const QString &button,
                 const Caller &caller = Caller::current()) const
    {
        test::press(row(id, caller), button, 0, caller);
    }
};

} // namespace

class TestLayerListView : public GuiTest
{
    Q_OBJECT

private slots:
    void withoutASlideNothingIsWarnedOf()
    {
        LayerList list(showOf({}));
        for (const auto *symbol : list.view.findChildren<SymbolLabel *>())
            QVERIFY(!symbol->isVisible());
    }

    void ofThousandsOfLayersThoseAroundTheSelectedOneHaveRows()
    {
        QList<SlideElement> layers;
        for (int i = 0; i < 5000; ++i)
            layers.append(layerAt(QString::number(i), i));
        LayerList list(showWith(layers));
        const auto says = [&list](const QString &text) {
            const QList<QLabel *> labels = list.view.findChildren<QLabel *>();
            return std::any_of(labels.begin(), labels.end(), [&](const QLabel *label) {
                return label->isVisible() && label->text() == text;
            });
        };
        const QStringList top = list.ids();
        QCOMPARE(top.size(), 200);
        QCOMPARE(top.constFirst(), u"4999"_s);
        QVERIFY(says(u"4800 more below"_s));

        list.store.selectElement(u"2500"_s);
        QCOMPARE(list.ids().size(), 200);
        QCOMPARE(list.markedIDs(), QStringList{u"2500"_s});
        QVERIFY(says(u"2399 more above"_s));
        QVERIFY(says(u"2401 more below"_s));
        const QStringList around = list.ids();
        list.row(u"2510"_s).click();
        QCOMPARE(list.ids(), around);

        list.store.selectElement(u"0"_s);
        QCOMPARE(list.ids().constLast(), u"0"_s);
        QVERIFY(says(u"4800 more above"_s));
    }

    void textsThatAreCutAreWarnedOf()
    {
        LayerList list(showOf({2}));
        const auto notice = [&list] { return list.notice(); };
        const auto setWords = [&list](int count) {
            list.store.updateSelectedElement([count](SlideElement &layer) {
                layer.name = u"Verse"_s;
                layer.text->text = u"words "_s.repeated(count);
            });
        };
        list.store.selectElement(
            list.store.slideWithID(list.store.selectedSlideID())->design.firstTextElementID());
        QCOMPARE(notice(), QString());
        setWords(4000);
        QCOMPARE(notice(), u"The text of \u201cVerse\u201d does not fit and is cut."_s);
        list.store.updateSelectedElement(
            [](SlideElement &layer) { layer.text->text = u"Holy \U0010fffd"_s; });
        QCOMPARE(notice(), u"No font on this computer has all letters of \u201cVerse\u201d."_s);
        setWords(4000);
        list.store.updateSelectedElement([](SlideElement &layer) { layer.visible = false; });
        QCOMPARE(notice(), QString());
        list.store.updateSelectedElement([](SlideElement &layer) { layer.visible = true; });
        QVERIFY(!notice().isEmpty());
        list.store.queueNext();
        QCOMPARE(notice(), QString());
    }

    void linesOfALowerThirdThatAreCutAreWarnedOf_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("subtitle");
        QTest::addColumn<double>("height");
        QTest::addColumn<QString>("notice");
        const QString cut = u"The text of \u201cSpeaker\u201d does not fit and is cut."_s;
        const QString lacking =
            u"No font on this computer has all letters of \u201cSpeaker\u201d."_s;
        QTest::newRow("both fit") << u"Ruth"_s << u"Elder"_s << 200.0 << QString();
        QTest::newRow("both just fit") << u"Ruth"_s << u"Elder"_s << 85.0 << QString();
        QTest::newRow("the layer is too low for both") << u"Ruth"_s << u"Elder"_s << 60.0 << cut;
        QTest::newRow("the title is too wide")
            << u"Ruth "_s.repeated(30) << u"Elder"_s << 200.0 << cut;
        QTest::newRow("the subtitle is too wide")
            << u"Ruth"_s << u"Elder "_s.repeated(30) << 200.0 << cut;
        QTest::newRow("what fits of breaks and blanks")
            << u"Ruth"_s + QString(200, u'\n') + u"Weaver"_s << QString() << 200.0 << QString();
        QTest::newRow("a letter is missing") << u"Ruth"_s << u"\U0010fffd"_s << 200.0 << lacking;
        for (const QString &name :
             {u"\u4f60\u597d"_s, u"\u0645\u0631\u062d\u0628\u0627"_s,
              u"\u0e2a\u0e27\u0e31\u0e2a\u0e14\u0e35"_s, u"\u0928\u092e\u0938\u094d\u0924\u0947"_s,
              u"\u1019\u103c\u1014\u103a\u1019\u102c"_s, u"\u0f56\u0f7c\u0f51"_s,
              u"\u1781\u17d2\u1798\u17c2\u179a"_s, u"\u05e9\u05c1\u05b8\u05dc\u05d5\u05b9\u05dd"_s})
            QTest::newRow(qUtf8Printable(name)) << name << name << 200.0 << QString();
    }

    void linesOfALowerThirdThatAreCutAreWarnedOf()
    {
        QFETCH(QString, title);
        QFETCH(QString, subtitle);
        QFETCH(double, height);
        ZelvoProject project = showOf({1});
        SlideElement layer = rectangleLayer(u"speaker"_s, {100, 800, 700, 200}, {}, 1);
        layer.name = u"Speaker"_s;
        layer.kind = SlideElementKind::lowerThird;
        layer.lowerThird = LowerThirdProperties();
        layer.frame.height = height;
        layer.lowerThird->title = title;
        layer.lowerThird->subtitle = subtitle;
        project.serviceItems.first().slides.first().design.elements = {layer};
        const LayerList list(project);
        QTEST(list.notice(), "notice");
    }

    void layersAreListedFromTheTopmostDown()
    {
        const LayerList list;
        QCOMPARE(list.ids(), (QStringList{u"high"_s, u"middle"_s, u"low"_s}));
        QCOMPARE(list.row(u"high"_s).accessibleName(), u"Layer high"_s);
    }

    void layersOfOneZIndexAreListedInTheOrderOfTheDesign()
    {
        QList<SlideElement> layers;
        QStringList above;
        QStringList below;
        for (int i = 0; i < 40; ++i) {
            layers.append(layerAt(QString::number(i), i % 2));
            (i % 2 ? above : below).append(QString::number(i));
        }
        const LayerList list(showWith(layers));
        QCOMPARE(list.ids(), above + below);
    }

    void clickingARowSelectsItsLayerAndChangesNothingElse()
    {
        LayerList list;
        const ZelvoProject before = list.store.project();
        QTest::mouseClick(&list.row(u"middle"_s), Qt::LeftButton);
        QCOMPARE(list.store.selectedElementID(), u"middle"_s);
        QCOMPARE(list.store.project(), before);
        QCOMPARE(list.undoSteps(), 0);
    }

    void theRowOfTheSelectedLayerIsMarked()
    {
        LayerList list;
        list.store.selectElement(u"low"_s);
        QCOMPARE(list.markedIDs(), QStringList{u"low"_s});
        QTest::mouseClick(&list.row(u"high"_s), Qt::LeftButton);
        QCOMPARE(list.markedIDs(), QStringList{u"high"_s});
        QTest::mouseClick(&list.row(u"high"_s), Qt::LeftButton);
        QCOMPARE(list.markedIDs(), QStringList{u"high"_s});
        list.store.selectElement(std::nullopt);
        QCOMPARE(list.markedIDs(), QStringList());
    }

    void hidingALayerThatIsNotSelectedSelectsAndHidesIt()
    {
        LayerList list;
        list.store.selectElement(u"low"_s);
        list.pressOn(u"high"_s, u"Hide"_s);
        QCOMPARE(list.store.selectedElementID(), u"high"_s);
        QVERIFY(!list.layer(u"high"_s).visible);
        QVERIFY(list.layer(u"low"_s).visible);
        QCOMPARE(list.undoSteps(), 1);
        list.pressOn(u"high"_s, u"Show"_s);
        QVERIFY(list.layer(u"high"_s).visible);
        QCOMPARE(list.undoSteps(), 2);
    }

    void lockingALayerThatIsNotSelectedSelectsAndLocksIt()
    {
        LayerList list;
        list.store.selectElement(u"low"_s);
        list.pressOn(u"high"_s, u"Lock layer"_s);
        QCOMPARE(list.store.selectedElementID(), u"high"_s);
        QVERIFY(list.layer(u"high"_s).locked);
        QCOMPARE(list.undoSteps(), 1);
        list.pressOn(u"high"_s, u"Unlock layer"_s);
        QVERIFY(!list.layer(u"high"_s).locked);
    }

    void theButtonsOfARowShowTheStateOfItsLayer()
    {
        LayerList list;
        list.store.selectElement(u"middle"_s);
        list.store.updateSelectedElement([](SlideElement &layer) {
            layer.visible = false;
            layer.locked = true;
        });
        QStringList titles;
        QStringList tips;
        for (const SymbolButton *button : list.row(u"middle"_s).findChildren<SymbolButton *>()) {
            titles.append(button->accessibleName());
            tips.append(button->toolTip());
        }
        QCOMPARE(titles, (QStringList{u"Show"_s, u"Unlock layer"_s}));
        QCOMPARE(tips, titles);
    }

    void theButtonsOfARowAreDescribedByItsLayer()
    {
        const LayerList list;
        for (const QString &button : {u"Hide"_s, u"Lock layer"_s}) {
            QCOMPARE(named(list.row(u"middle"_s), button).accessibleDescription(),
                     u"Layer middle"_s);
        }
    }

    void aRowUnderThePointerLightsUp()
    {
        applyTheme(ZelvoTheme::dark());
        const LayerList list;
        LayerRow &row = list.row(u"low"_s);
        const auto background = [&] { return row.grab().toImage().pixelColor(200, 2); };
        QVERIFY(background() != ZelvoTheme::dark().controlBackground);
        QTest::mouseMove(list.view.windowHandle(), row.mapTo(&list.view, row.rect().center()));
        QTRY_VERIFY(row.underMouse());
        QCOMPARE(background(), ZelvoTheme::dark().controlBackground);
    }

    void rowsAreThirtyPointsHigh()
    {
        const LayerList list;
        for (const LayerRow *row : list.rows())
            QCOMPARE(row->height(), 30);
    }

    void anotherKindBringsItsSymbolAtOnce()
    {
        struct Repainted : QObject
        {
            QRegion region;

            bool eventFilter(QObject * /*watched*/, QEvent *event) override
            {
                if (event->type() == QEvent::Paint)
                    region |= static_cast<QPaintEvent *>(event)->region();
                return false;
            }
        };
        LayerList list;
        list.store.selectElement(u"middle"_s);
        LayerRow &row = list.row(u"middle"_s);
        QTRY_VERIFY(!row.visibleRegion().isEmpty());
        QCoreApplication::processEvents();
        Repainted repainted;
        row.installEventFilter(&repainted);
        list.store.updateSelectedElement(
            [](SlideElement &layer) { layer.kind = SlideElementKind::image; });
        const QPoint symbol(15, row.height() / 2);
        QTRY_VERIFY(repainted.region.contains(symbol));
    }

    void aRowsContextMenuSelectsItsLayerAndWorksOnIt_data()
    {
        QTest::addColumn<QContextMenuEvent::Reason>("reason");
        QTest::newRow("by the pointer") << QContextMenuEvent::Mouse;
        QTest::newRow("by a key") << QContextMenuEvent::Keyboard;
    }

    void aRowsContextMenuSelectsItsLayerAndWorksOnIt()
    {
        QFETCH(QContextMenuEvent::Reason, reason);
        const LayerList list;
        LayerRow &row = list.row(u"middle"_s);
        QContextMenuEvent event(reason, row.rect().center(), row.mapToGlobal(row.rect().center()));
        QApplication::sendEvent(&row, &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(list.store.selectedElementID(), u"middle"_s);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Down);
        QCOMPARE(menu->activeAction()->text(), u"Delete"_s);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(list.ids(), (QStringList{u"high"_s, u"low"_s}));
    }

    void whatIsChangedAfterAClickOnARowsButtonIsAStepOfItsOwn()
    {
        LayerList list;
        list.pressOn(u"high"_s, u"Hide"_s);
        list.store.updateSelectedElement([](SlideElement &layer) { layer.name = u"Typed"_s; });
        QCOMPARE(list.undoSteps(), 2);
    }

    void aClickOnARowsButtonIsAStepOfItsOwnWhileAGestureIsOpen()
    {
        LayerList list;
        list.store.selectElement(u"high"_s);
        list.store.beginGesture();
        list.store.updateSelectedElement([](SlideElement &layer) { layer.name = u"Typed"_s; });
        list.pressOn(u"high"_s, u"Hide"_s);
        QCOMPARE(list.undoSteps(), 2);
        list.store.undo();
        QCOMPARE(list.layer(u"high"_s).name, u"Typed"_s);
        QVERIFY(list.layer(u"high"_s).visible);
    }

    void textsAndShapesAreAddedOnTop()
    {
        LayerList list;
        list.press(u"Add Text"_s);
        list.press(u"Add Shape"_s);
        QCOMPARE(list.rows().size(), 5);
        QCOMPARE(list.rows().at(0)->contents().kind, SlideElementKind::shape);
        QCOMPARE(list.rows().at(1)->contents().kind, SlideElementKind::text);
        QCOMPARE(list.markedIDs(), QStringList{list.rows().at(0)->contents().id});
    }

    void aRowThatIsAddedElsewhereIsNotUnderThePointer()
    {
        LayerList list;
        auto &button = list.control<SymbolButton>(u"Add Shape"_s);
        QCursor::setPos(button.mapToGlobal(button.rect().center()));
        list.press(u"Add Shape"_s);
        for (const LayerRow *row : list.rows())
            QVERIFY2(!row->underMouse(), qPrintable(row->contents().name));
    }

    void withoutASlideThereAreNoRowsAndTheButtonsChangeNothing()
    {
        LayerList list;
        list.store.newBlankProject();
        QVERIFY(list.rows().isEmpty());
        const Snapshot before = snapshotOf(list.store);
        for (const QString &button : {u"Add Text"_s, u"Add Shape"_s, u"Duplicate layer"_s,
                                      u"Delete layer"_s, u"Bring forward"_s, u"Send backward"_s}) {
            QVERIFY2(!list.control(button).isEnabled(), qPrintable(button));
            list.press(button);
        }
        QCOMPARE(snapshotOf(list.store), before);
    }

    void theActionsWorkOnTheSelectedLayer()
    {
        LayerList list;
        list.store.selectElement(u"low"_s);
        list.press(u"Bring forward"_s);
        list.press(u"Bring forward"_s);
        QCOMPARE(list.layer(u"low"_s).zIndex, 2);
        QCOMPARE(list.ids(), (QStringList{u"low"_s, u"high"_s, u"middle"_s}));
        list.press(u"Send backward"_s);
        QCOMPARE(list.layer(u"low"_s).zIndex, 1);
        list.press(u"Duplicate layer"_s);
        QCOMPARE(list.rows().size(), 4);
        QCOMPARE(list.rows().at(0)->contents().name, u"Layer low Copy"_s);
        list.press(u"Delete layer"_s);
        QCOMPARE(list.ids(), (QStringList{u"high"_s, u"low"_s, u"middle"_s}));
    }

    void theActionsAreOfUseWhileALayerIsSelected()
    {
        LayerList list;
        const auto isOfUse = [&](const QString &title) { return list.control(title).isEnabled(); };
        list.store.selectElement(std::nullopt);
        QVERIFY(!isOfUse(u"Duplicate layer"_s) && !isOfUse(u"Delete layer"_s)
                && !isOfUse(u"Bring forward"_s) && !isOfUse(u"Send backward"_s));
        QVERIFY(isOfUse(u"Add Text"_s) && isOfUse(u"Add Shape"_s));
        list.store.selectElement(u"low"_s);
        QVERIFY(isOfUse(u"Duplicate layer"_s) && isOfUse(u"Delete layer"_s)
                && isOfUse(u"Bring forward"_s) && isOfUse(u"Send backward"_s));
    }

    void theActionsAreKnownByTheirTooltips()
    {
        const LayerList list;
        for (const QString &title : {u"Add Text"_s, u"Add Shape"_s, u"Duplicate layer"_s,
                                     u"Delete layer"_s, u"Bring forward"_s, u"Send backward"_s}) {
            QCOMPARE(list.control<SymbolButton>(title).toolTip(), title);
        }
    }

    void anotherSlideBringsItsLayers()
    {
        LayerList list;
        list.store.selectSlide(u"A2"_s, true);
        QCOMPARE(list.ids(), (QStringList{u"A2.lyric"_s, u"A2.line"_s}));
        list.store.selectSlide(u"A1"_s, true);
        QCOMPARE(list.ids(), (QStringList{u"high"_s, u"middle"_s, u"low"_s}));
    }

    void everyKindOfLayerHasASymbolOfItsOwn()
    {
        QList<SlideElement> layers;
        for (const SlideElementKind kind : allCases<SlideElementKind>()) {
            SlideElement layer = layerAt(rawValue(kind), 0);
            layer.name = u"Layer"_s;
            layer.kind = kind;
            layers.append(layer);
        }
        const LayerList list(showWith(layers));
        QList<QImage> images;
        for (LayerRow *row : list.rows()) {
            const QImage image = row->grab().toImage();
            QVERIFY2(!images.contains(image), qPrintable(row->contents().id));
            images.append(image);
        }
        QCOMPARE(images.size(), 6);
    }

    void aLongNameLeavesTheButtonsTheirRoom()
    {
        LayerList list;
        list.store.selectElement(u"high"_s);
        list.store.updateSelectedElement(
            [](SlideElement &layer) { layer.name = QString(500, u'w'); });
        const LayerRow &row = list.row(u"high"_s);
        QVERIFY(row.width() < list.view.width());
        for (const SymbolButton *button : row.findChildren<SymbolButton *>())
            QVERIFY(row.rect().contains(button->geometry()));
        QVERIFY(row.findChild<ElidedLabel *>()->width() < row.width());
    }

    void tabGoesThroughTheListFromTheTopDown()
    {
        LayerList list;
        list.store.addShapeLayer();
        list.store.updateSelectedElement([](SlideElement &layer) { layer.name = u"New"_s; });
        QStringList reached;
        list.control(u"Add Text"_s).setFocus();
        while (reached.size() < 20 && !reached.contains(u"Send backward"_s)) {
            reached.append(QApplication::focusWidget()->accessibleName());
            QTest::keyClick(list.view.windowHandle(), Qt::Key_Tab);
        }
        const QStringList buttons{u"Hide"_s, u"Lock layer"_s};
        QCOMPARE(reached,
                 QStringList({u"Add Text"_s, u"Add Shape"_s, u"New"_s}) + buttons
                     + QStringList{u"Layer high"_s} + buttons + QStringList{u"Layer middle"_s}
                     + buttons + QStringList{u"Layer low"_s} + buttons
                     + QStringList({u"Duplicate layer"_s, u"Delete layer"_s, u"Bring forward"_s,
                                    u"Send backward"_s}));
    }

    void rowsStayWhileTheirLayersAreChanged()
    {
        QList<SlideElement> layers;
        for (int i = 0; i < 200; ++i)
            layers.append(layerAt(QString::number(i), i));
        LayerList list(showWith(layers));
        const QList<LayerRow *> before = list.rows();
        QCOMPARE(before.size(), 200);
        list.store.selectElement(u"100"_s);
        list.store.updateSelectedElement([](SlideElement &layer) {
            layer.frame.x = 7;
            layer.name = u"Moved"_s;
        });
        list.store.toggleBlackout();
        QCOMPARE(list.rows(), before);
        QCOMPARE(list.row(u"100"_s).contents().name, u"Moved"_s);
    }
};

QUENARA_GUI_TEST(TestLayerListView)

} // namespace tst_layer_list_view

#include "tst_layer_list_view.moc"
