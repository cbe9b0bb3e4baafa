#include "ColorWell.h"
#include "InspectorWorld.h"
#include "LayerListView.h"
#include "LayerRow.h"
#include "NumberField.h"
#include "Picker.h"
#include "ProjectTemplates.h"
#include "Slider.h"
#include "Stepper.h"
#include "Switch.h"
#include "SymbolButton.h"
#include "TextField.h"

#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalSpy>
#include <QWheelEvent>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_inspector_view {

namespace {

/// A show of two slides, with the first one's text selected.
struct Inspector : InspectorWorld
{
    explicit Inspector(const ZelvoProject &project = showOf({2}),
                       const Caller &caller = Caller::current())
        : InspectorWorld(project, caller)
    {}

    /// The first slide in the design of a template.
    static ZelvoProject showBy(const QString &templateID)
    {
        ZelvoProject project = showOf({1});
        project.serviceItems[0].slides[0].design =
            ProjectTemplates::design(templateID, u"Grace"_s, u"Words"_s);
        return project;
    }

    TextField &field(const QString &name) const { return control<TextField>(name); }

    void startTyping(const QString &name, const QString &text) const
    {
        QTest::mouseClick(&field(name), Qt::LeftButton);
        field(name).selectAll();
        QTest::keyClicks(&field(name), text);
    }

    void type(const QString &name, const QString &text) const
    {
        startTyping(name, text);
        QTest::keyClick(&field(name), Qt::Key_Return);
    }

    void choose(const QString &name, const QString &title) const
    {
        auto &picker = control<Picker>(name);
        emit picker.activated(picker.findText(title));
    }

    QColorDialog &openDialog(const QString &well) const
    {
        QTest::mouseClick(&control<ColorWell>(well), Qt::LeftButton);
        return *dialogOn(control(well));
    }

    SlideElement layer() const { return *store.selectedElement(); }
    QList<SlideElement> layers() const { return slide().design.elements; }

    bool shows(const QString &label) const
    {
        const QList<QLabel *> labels = view.findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(), [&](const QLabel *candidate) {
            return candidate->isVisible() && candidate->text() == label;
        });
    }

    int topOf(const QString &label, const Caller &caller = Caller::current()) const
    {
        for (const QLabel *candidate : view.findChildren<QLabel *>()) {
            if (candidate->text() == label)
                return candidate->mapTo(&view, QPoint()).y();
        }
        fail(u"there is no label \"%1\""_s.arg(label), caller);
    }
};

void makeKind(WorkspaceStore &store, SlideElementKind kind)
{
    store.updateSelectedElement([kind](SlideElement &layer) { layer.kind = kind; });
}

} // namespace

class TestInspectorView : public GuiTest
{
    Q_OBJECT

private slots:
    void theSectionsStandInTheirOrder()
    {
        const Inspector inspector;
        const QStringList labels{u"Inspector"_s,      u"Slide"_s,  u"Title"_s,
                                 u"Template"_s,       u"Layers"_s, u"Background"_s,
                                 u"Type"_s,           u"Solid"_s,  u"Gradient"_s,
                                 u"Direction"_s,      u"Image"_s,  u"Dim"_s,
                                 u"Selected Layer"_s, u"Name"_s,   u"Visible"_s,
                                 u"Opacity"_s,        u"X"_s,      u"W"_s,
                                 u"Font"_s,           u"Weight"_s, u"Text Color"_s,
                                 u"Alignment"_s,      u"Line"_s,   u"Tracking"_s,
                                 u"Uppercase"_s};
        for (qsizetype i = 1; i < labels.size(); ++i) {
            QVERIFY2(inspector.topOf(labels.at(i - 1)) < inspector.topOf(labels.at(i)),
                     qPrintable(labels.at(i)));
        }
    }

    void everyControlHasANameOfItsOwn()
    {
        const Inspector inspector;
        QSet<QString> names;
        for (const QWidget *widget : inspector.view.findChildren<QWidget *>()) {
            const bool isControl = widget->focusPolicy() != Qt::NoFocus
                && !qobject_cast<const QScrollArea *>(widget->parentWidget());
            const bool isOfARow = qobject_cast<const LayerRow *>(widget->parentWidget());
            if (!isControl || isOfARow || !widget->isVisible())
                continue;
            QVERIFY2(!widget->accessibleName().isEmpty(), widget->metaObject()->className());
            QVERIFY2(!names.contains(widget->accessibleName()),
                     qPrintable(widget->accessibleName()));
            names.insert(widget->accessibleName());
        }
        QVERIFY(names.size() > 25);
    }

    void eachKindOfLayerHasItsControls_data()
    {
        QTest::addColumn<SlideElementKind>("kind");
        QTest::addColumn<bool>("isText");
        QTest::addColumn<bool>("isShape");
        using enum SlideElementKind;
        QTest::newRow("text") << text << true << false;
        QTest::newRow("scripture") << scriptureText << true << false;
        QTest::newRow("lyric") << songLyricText << true << false;
        QTest::newRow("image") << image << false << false;
        QTest::newRow("shape") << shape << false << true;
        QTest::newRow("lower third") << lowerThird << false << false;
    }

    void eachKindOfLayerHasItsControls()
    {
        QFETCH(SlideElementKind, kind);
        Inspector inspector;
        makeKind(inspector.store, kind);
        QVERIFY(inspector.control(u"Name"_s).isVisible());
        QVERIFY(inspector.control(u"Height"_s).isVisible());
        QTEST(inspector.control(u"Font"_s).isVisible(), "isText");
        QTEST(inspector.control(u"Shadow"_s).isVisible(), "isText");
        QTEST(inspector.control(u"Fill"_s).isVisible(), "isShape");
        QTEST(inspector.control(u"Radius"_s).isVisible(), "isShape");
    }

    void withoutASelectedLayerALineSaysWhatToDo()
    {
        Inspector inspector;
        const QString line = u"Select a layer on the canvas or in the layer list."_s;
        QVERIFY(!inspector.shows(line));
        inspector.store.selectElement(std::nullopt);
        QVERIFY(inspector.shows(line));
        QVERIFY(inspector.shows(u"Selected Layer"_s));
        QVERIFY(!inspector.control(u"Name"_s).isVisible());
    }

    void aNewTitleIsAlsoTheTextOfTheTitleLayer()
    {
        const Inspector inspector(Inspector::showBy(u"sermonTitle"_s));
        inspector.type(u"Title"_s, u"Hope"_s);
        QCOMPARE(inspector.slide().title, u"Hope"_s);
        QCOMPARE(inspector.layers().at(0).name, u"Title"_s);
        QCOMPARE(inspector.layers().at(0).text->text, u"Hope"_s);
        QCOMPARE(inspector.layers().at(1).name, u"Subtitle"_s);
        QCOMPARE(inspector.layers().at(1).text->text, u"Words"_s);
        QCOMPARE(inspector.undoSteps(), 1);
    }

    void theFirstTextWithTitleInItsNameFollowsTheTitle()
    {
        ZelvoProject project = Inspector::showBy(u"sermonTitle"_s);
        QList<SlideElement> &layers = project.serviceItems[0].slides[0].design.elements;
        layers[0].text.reset();
        layers[1].name = u"THE SUBTITLE"_s;
        const Inspector inspector(project);
        inspector.type(u"Title"_s, u"Hope"_s);
        QCOMPARE(inspector.layers().at(1).text->text, u"Hope"_s);
    }

    void aSlideWithoutATitleLayerChangesOnlyItsTitle()
    {
        const Inspector inspector;
        Slide expected = inspector.slide();
        expected.title = u"Hope"_s;
        inspector.type(u"Title"_s, u"Hope"_s);
        QCOMPARE(inspector.slide(), expected);
    }

    void widthAndHeightKeepTheSizesOfTheResizeHandle()
    {
        const Inspector inspector;
        inspector.type(u"Width"_s, u"10"_s);
        inspector.type(u"Height"_s, u"30"_s);
        QCOMPARE(inspector.layer().frame.width, 80.0);
        QCOMPARE(inspector.layer().frame.height, 48.0);
        QCOMPARE(inspector.field(u"Width"_s).text(), u"80"_s);
        inspector.type(u"Width"_s, u"300.5"_s);
        QCOMPARE(inspector.layer().frame.width, 300.5);
    }

    void aLayerMayLieLeftOfTheCanvasAndAboveIt()
    {
        const Inspector inspector;
        inspector.type(u"X"_s, u"-5000"_s);
        inspector.type(u"Y"_s, u"-0.5"_s);
        QCOMPARE(inspector.layer().frame.x, -5000.0);
        QCOMPARE(inspector.layer().frame.y, -0.5);
        inspector.type(u"X"_s, u"100"_s);
        QCOMPARE(inspector.layer().frame.x, 100.0);
    }

    void aFrameFieldRefusesWhatIsNoNumber()
    {
        const Inspector inspector;
        const Snapshot before = snapshotOf(inspector.store);
        const QString shown = inspector.field(u"X"_s).text();
        inspector.type(u"X"_s, u"left"_s);
        QCOMPARE(inspector.field(u"X"_s).text(), shown);
        QCOMPARE(snapshotOf(inspector.store), before);
    }

    void aRunOfStepsInAFieldIsOneUndoStep()
    {
        const Inspector inspector;
        const double before = inspector.layer().frame.x;
        QTest::mouseClick(&inspector.field(u"X"_s), Qt::LeftButton);
        for (int i = 0; i < 5; ++i)
            QTest::keyClick(&inspector.field(u"X"_s), Qt::Key_Up);
        QCOMPARE(inspector.layer().frame.x, before + 5);
        QCOMPARE(inspector.undoSteps(), 1);
    }

    void theSizeGoesInStepsOfTwoFrom12To180()
    {
        Inspector inspector;
        const auto setSize = [&](double size) {
            inspector.store.updateSelectedElement(
                [size](SlideElement &layer) { layer.text->fontSize = size; });
        };
        setSize(15);
        QVERIFY(inspector.shows(u"Size 15"_s));
        QList<double> sizes;
        for (int i = 0; i < 3; ++i) {
            inspector.press(u"Decrease Size"_s);
            sizes.append(inspector.layer().text->fontSize);
        }
        QCOMPARE(sizes, (QList<double>{13, 12, 12}));
        setSize(177);
        sizes.clear();
        for (int i = 0; i < 3; ++i) {
            inspector.press(u"Increase Size"_s);
            sizes.append(inspector.layer().text->fontSize);
        }
        QCOMPARE(sizes, (QList<double>{179, 180, 180}));
    }

    void aStepperThatIsHeldIsOneUndoStep()
    {
        const Inspector inspector;
        auto &button = inspector.control<SymbolButton>(u"Increase Size"_s);
        const double before = inspector.layer().text->fontSize;
        QTest::mousePress(&button, Qt::LeftButton);
        QTRY_VERIFY(inspector.layer().text->fontSize >= before + 6);
        QTest::mouseRelease(&button, Qt::LeftButton);
        QCOMPARE(inspector.undoSteps(), 1);
        inspector.press(u"Increase Size"_s);
        QCOMPARE(inspector.undoSteps(), 2);
    }

    void theRadiusGoesInStepsOfTwoFrom0To80()
    {
        Inspector inspector;
        makeKind(inspector.store, SlideElementKind::shape);
        const auto stepped = [&](double radius, const QString &button) {
            inspector.store.updateSelectedElement([radius](SlideElement &layer) {
                layer.shape = ShapeProperties{.kind = ShapeKind::rectangle,
                                              .fill = RGBAColor::amber,
                                              .stroke = {},
                                              .strokeWidth = 0,
                                              .cornerRadius = radius};
            });
            inspector.press(button);
            return inspector.layer().shape->cornerRadius;
        };
        QCOMPARE(stepped(40, u"Increase Radius"_s), 42.0);
        QCOMPARE(stepped(79, u"Increase Radius"_s), 80.0);
        QCOMPARE(stepped(80, u"Increase Radius"_s), 80.0);
        QCOMPARE(stepped(1, u"Decrease Radius"_s), 0.0);
    }

    void theSlidersGoFromEndToEnd_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<double>("least");
        QTest::addColumn<double>("most");
        QTest::newRow("dimming") << u"Dim"_s << 0.0 << 0.8;
        QTest::newRow("opacity") << u"Opacity"_s << 0.0 << 1.0;
        QTest::newRow("line height") << u"Line"_s << 0.85 << 1.8;
        QTest::newRow("tracking") << u"Tracking"_s << -3.0 << 12.0;
    }

    void theSlidersGoFromEndToEnd()
    {
        QFETCH(QString, name);
        Inspector inspector;
        auto &slider = inspector.control<Slider>(name);
        const auto pulledTo = [&](int x) {
            QTest::mouseClick(&slider, Qt::LeftButton, {}, {x, slider.height() / 2});
            return slider.value();
        };
        QTEST(pulledTo(slider.width() - 1), "most");
        QTEST(pulledTo(0), "least");
    }

    void theControlsBeginOnOneLine()
    {
        const Inspector inspector;
        const auto left = [&](const QString &name) {
            return inspector.control(name).mapTo(&inspector.view, QPoint()).x();
        };
        for (const QString &name : {u"Template"_s, u"Solid"_s, u"Dim"_s, u"Name"_s, u"Opacity"_s})
            QCOMPARE(left(name), left(u"Title"_s));
    }

    void aPickerIsLabelledByItsTitle()
    {
        const Inspector inspector;
        for (const QString &name : {u"Template"_s, u"Type"_s, u"Direction"_s, u"Font"_s}) {
            const QWidget *picker = &inspector.control(name);
            const auto labels = inspector.view.findChildren<QLabel *>();
            const auto label = std::find_if(labels.begin(), labels.end(), [&](const QLabel *title) {
                return title->buddy() == picker;
            });
            QVERIFY2(label != labels.end(), qPrintable(name));
            QCOMPARE((*label)->text(), name);
        }
    }

    void softCenterIsTheRadialDirection()
    {
        const Inspector inspector;
        inspector.choose(u"Direction"_s, u"Soft Center"_s);
        QCOMPARE(inspector.slide().design.background.gradient->direction,
                 GradientDirection::radialHint);
    }

    void thePickerShowsTheTemplateThatMadeTheDesign()
    {
        Inspector inspector(Inspector::showBy(u"lowerLyric"_s));
        const auto &picker = inspector.control<Picker>(u"Template"_s);
        QCOMPARE(picker.currentText(), u"Lower Lyric"_s);
        QCOMPARE(picker.count(), ProjectTemplates::templates().size());
        const auto setTheme = [&](const std::optional<QString> &id) {
            inspector.store.updateSelectedSlide([id](Slide &slide) { slide.design.themeId = id; });
        };
        setTheme(std::nullopt);
        QCOMPARE(picker.currentIndex(), -1);
        QCOMPARE(picker.currentText(), QString());
        setTheme(u"welcome"_s);
        QCOMPARE(picker.currentText(), u"Welcome"_s);
        setTheme(u"unheardOf"_s);
        QCOMPARE(picker.currentIndex(), -1);
        QCOMPARE(picker.currentText(), QString());
    }

    void choosingATemplateAppliesItEvenIfItIsTheSame()
    {
        const Inspector inspector;
        inspector.choose(u"Template"_s, u"Minimal Dark"_s);
        const Slide applied = inspector.slide();
        QCOMPARE(applied.design.themeId, u"minimalDark"_s);
        QCOMPARE(applied.design.elements.at(0).name, u"Title"_s);
        QCOMPARE(inspector.undoSteps(), 1);
        inspector.type(u"X"_s, u"7"_s);
        inspector.choose(u"Template"_s, u"Minimal Dark"_s);
        QCOMPARE(inspector.layers().at(0).frame, applied.design.elements.at(0).frame);
        QCOMPARE(inspector.undoSteps(), 3);
    }

    void aFontThatIsNotOfferedShowsNoChoiceAndStaysUntilOneIsChosen()
    {
        Inspector inspector;
        const auto &picker = inspector.control<Picker>(u"Font"_s);
        QStringList choices;
        for (int i = 0; i < picker.count(); ++i)
            choices.append(picker.itemText(i));
        QCOMPARE(choices,
                 (QStringList{u"Avenir Next"_s, u"Helvetica Neue"_s, u"SF Pro Display"_s,
                              u"Georgia"_s, u"Menlo"_s}));
        inspector.store.updateSelectedElement(
            [](SlideElement &layer) { layer.text->fontFamily = u"Comic Neue"_s; });
        QCOMPARE(picker.currentIndex(), -1);
        QCOMPARE(picker.currentText() + picker.placeholderText(), QString());
        QCOMPARE(picker.count(), 5);
        inspector.choose(u"Weight"_s, u"Bold"_s);
        QCOMPARE(inspector.layer().text->fontFamily, u"Comic Neue"_s);
        inspector.choose(u"Font"_s, u"Menlo"_s);
        QCOMPARE(inspector.layer().text->fontFamily, u"Menlo"_s);
        QCOMPARE(picker.currentText(), u"Menlo"_s);
    }

    void aGradientThatIsMissingIsTakenFromTheDefaultWhenItIsEdited()
    {
        ZelvoProject project = showOf({1});
        project.serviceItems[0].slides[0].design.background = SlideBackground::minimalDark();
        const Inspector inspector(project);
        inspector.openDialog(u"Gradient End"_s).setCurrentColor(Qt::red);
        const SlideBackground background = inspector.slide().design.background;
        GradientBackground expected = *SlideBackground::defaultDark().gradient;
        expected.endColor = RGBAColor::fromColor(Qt::red);
        QCOMPARE(background.gradient, expected);
        QCOMPARE(background.kind, SlideBackgroundKind::solid);
    }

    void choosingAKindChangesTheKindAlone_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("image") << u"image"_s;
        QTest::newRow("gradient") << u"gradient"_s;
        QTest::newRow("video") << u"video"_s;
    }

    void choosingAKindChangesTheKindAlone()
    {
        QFETCH(QString, kind);
        ZelvoProject project = showOf({1});
        project.serviceItems[0].slides[0].design.background = SlideBackground::minimalDark();
        const Inspector inspector(project);
        Slide expected = inspector.slide();
        expected.design.background.kind = *fromRawValue<SlideBackgroundKind>(kind);
        inspector.choose(u"Type"_s, kind);
        QCOMPARE(inspector.slide(), expected);
    }

    void theImageButtonAsksForTheBackgroundsImage()
    {
        Inspector inspector;
        inspector.press(u"Choose Image..."_s);
        QCOMPARE(inspector.panels.asked.size(), 1);
        QCOMPARE(inspector.undoSteps(), 0);
        inspector.panels.answer = inspector.written(
            u"red.png"_s,
            QByteArray::fromBase64(solidImage({4, 4}, Qt::red).dataUrl.split(',').at(1)));
        inspector.press(u"Choose Image..."_s);
        QCOMPARE(inspector.slide().design.background.kind, SlideBackgroundKind::image);
        QCOMPARE(inspector.slide().design.background.image->name, u"red.png"_s);
        QCOMPARE(inspector.control<Picker>(u"Type"_s).currentText(), u"image"_s);
        QCOMPARE(inspector.undoSteps(), 1);
    }

    void withoutASlideItsControlsAreOfNoUseAndNoFieldGetsTheFocus()
    {
        Inspector inspector;
        const QStringList controls{u"Title"_s, u"Template"_s, u"Type"_s,
                                   u"Solid"_s, u"Dim"_s,      u"Choose Image..."_s};
        for (const QString &control : controls)
            QVERIFY2(inspector.control(control).isEnabled(), qPrintable(control));
        inspector.control(u"Title"_s).setFocus();
        inspector.store.newBlankProject();
        for (const QString &control : controls)
            QVERIFY2(!inspector.control(control).isEnabled(), qPrintable(control));
        QCOMPARE(inspector.view.window()->focusWidget(), &inspector.view);
        inspector.store.loadDemoProject();
        for (const QString &control : controls)
            QVERIFY2(inspector.control(control).isEnabled(), qPrintable(control));
    }

    void withoutASlideTheImageButtonAsksForNothing()
    {
        Inspector inspector;
        inspector.store.newBlankProject();
        inspector.press(u"Choose Image..."_s);
        QVERIFY(inspector.panels.asked.isEmpty());
    }

    void theShadowIsSwitchedOnAsTheSoftOne()
    {
        const Inspector inspector;
        auto &shadow = inspector.control<Switch>(u"Shadow"_s);
        QTest::mouseClick(&shadow, Qt::LeftButton);
        QVERIFY(!inspector.layer().text->shadow);
        QTest::mouseClick(&shadow, Qt::LeftButton);
        QCOMPARE(inspector.layer().text->shadow, TextShadow::soft);
    }

    void aTextLayerWithoutTextPropertiesShowsNothingAndKeepsNothing()
    {
        Inspector inspector;
        inspector.store.updateSelectedElement([](SlideElement &layer) { layer.text.reset(); });
        QVERIFY(inspector.shows(u"Size 0"_s));
        QCOMPARE(inspector.control<Picker>(u"Font"_s).currentIndex(), -1);
        QVERIFY(!inspector.control<ColorWell>(u"Text Color"_s).color());
        const Snapshot before = snapshotOf(inspector.store);
        inspector.press(u"Increase Size"_s);
        inspector.choose(u"Font"_s, u"Menlo"_s);
        QTest::mouseClick(&inspector.control(u"Shadow"_s), Qt::LeftButton);
        inspector.press(u"Align Left"_s);
        QCOMPARE(snapshotOf(inspector.store), before);
        QVERIFY(!inspector.control<Switch>(u"Shadow"_s).isChecked());
        QVERIFY(!inspector.control<SymbolButton>(u"Align Left"_s).isChecked());
    }

    void whatIsTypedFromEnteringAFieldToLeavingItIsOneUndoStep()
    {
        Inspector inspector;
        inspector.type(u"Name"_s, u"First"_s);
        inspector.type(u"Name"_s, u"Second"_s);
        QCOMPARE(inspector.undoSteps(), 2);
        inspector.store.undo();
        QCOMPARE(inspector.layer().name, u"First"_s);
        QCOMPARE(inspector.field(u"Name"_s).text(), u"First"_s);
    }

    void typingOnASlideThatTheShowHasSteppedToIsOneUndoStepToo()
    {
        Inspector inspector(showOf({1, 1}));
        inspector.store.nextLive();
        const QString before = inspector.slide().title;
        inspector.type(u"Title"_s, u"Second"_s);
        QCOMPARE(inspector.slide().title, u"Second"_s);
        QCOMPARE(inspector.undoSteps(), 1);
        inspector.store.undo();
        QCOMPARE(inspector.slide().title, before);
    }

    void everyKeyPressInATextIsInTheStoreAtOnce()
    {
        const Inspector inspector;
        inspector.startTyping(u"Name"_s, u"abc"_s);
        QCOMPARE(inspector.layer().name, u"abc"_s);
        QCOMPARE(inspector.undoSteps(), 1);
    }

    void typingThatIsTakenBackIsNoUndoStep()
    {
        const Inspector inspector;
        const QString before = inspector.layer().name;
        inspector.startTyping(u"Name"_s, u"abc"_s);
        inspector.type(u"Name"_s, before);
        QCOMPARE(inspector.undoSteps(), 0);
        QVERIFY(!inspector.store.hasUnsavedChanges());
    }

    void anEditBetweenPartsTheTyping()
    {
        Inspector inspector;
        inspector.startTyping(u"Name"_s, u"abc"_s);
        inspector.control<Switch>(u"Locked"_s).click();
        QTest::keyClicks(&inspector.field(u"Name"_s), u"d"_s);
        QCOMPARE(inspector.undoSteps(), 3);
        inspector.store.undo();
        inspector.store.undo();
        QCOMPARE(inspector.layer().name, u"abc"_s);
        QVERIFY(!inspector.layer().locked);
    }

    void aFieldKeepsCaretSelectionAndFocusWhenTheStoreChanges_data()
    {
        QTest::addColumn<QString>("name");
        for (const auto &name : {u"Title"_s, u"Name"_s, u"Width"_s})
            QTest::newRow(qPrintable(name)) << name;
    }

    void aFieldKeepsCaretSelectionAndFocusWhenTheStoreChanges()
    {
        QFETCH(QString, name);
        Inspector inspector;
        inspector.startTyping(name, u"123456"_s);
        inspector.field(name).setSelection(4, -3);
        inspector.store.toggleBlackout();
        inspector.store.updateSelectedElement([](SlideElement &layer) { layer.rotation = 5; });
        inspector.store.updateSelectedSlide([](Slide &slide) { slide.footer = u"Foot"_s; });
        inspector.store.updateProjectName(u"Renamed"_s);
        QCOMPARE(inspector.field(name).text(), u"123456"_s);
        QCOMPARE(inspector.field(name).selectedText(), u"234"_s);
        QCOMPARE(inspector.field(name).cursorPosition(), 1);
        QVERIFY(inspector.field(name).hasFocus());
    }

    void aPullIsOneUndoStep()
    {
        Inspector inspector;
        auto &slider = inspector.control<Slider>(u"Opacity"_s);
        const int middle = slider.height() / 2;
        const double before = inspector.layer().opacity;
        QTest::mousePress(&slider, Qt::LeftButton, {}, {slider.width() - 5, middle});
        QList<double> seen;
        for (const int x : {150, 120, 90}) {
            QTest::mouseMove(&slider, {x, middle});
            seen.append(inspector.layer().opacity);
        }
        QVERIFY(seen.at(0) > seen.at(1) && seen.at(1) > seen.at(2));
        QTest::mouseRelease(&slider, Qt::LeftButton, {}, {90, middle});
        QCOMPARE(inspector.undoSteps(), 1);
        inspector.store.undo();
        QCOMPARE(inspector.layer().opacity, before);
    }

    void typingStaysOneStepWhileAPullElsewhereEnds()
    {
        const Inspector inspector;
        auto &slider = inspector.control<Slider>(u"Opacity"_s);
        const QPoint place(120, slider.height() / 2);
        QTest::mousePress(&slider, Qt::LeftButton, {}, place);
        TextField &field = inspector.field(u"Name"_s);
        field.setFocus(Qt::TabFocusReason);
        QTest::keyClicks(&field, u"a"_s);
        QTest::mouseRelease(&slider, Qt::LeftButton, {}, place);
        QTest::keyClicks(&field, u"b"_s);
        QCOMPARE(inspector.undoSteps(), 2);
    }

    void aPullEndsWhereTheSelectionChanges()
    {
        Inspector inspector;
        auto &slider = inspector.control<Slider>(u"Dim"_s);
        const int middle = slider.height() / 2;
        QTest::mousePress(&slider, Qt::LeftButton, {}, {120, middle});
        inspector.store.nextLive();
        const ZelvoProject before = inspector.store.project();
        QTest::mouseMove(&slider, {200, middle});
        QTest::mouseRelease(&slider, Qt::LeftButton, {}, {200, middle});
        QCOMPARE(inspector.store.project(), before);
    }

    void aColourIsSeenWhileItIsTriedAndIsOneUndoStep()
    {
        const Inspector inspector;
        QColorDialog &dialog = inspector.openDialog(u"Text Color"_s);
        QVERIFY(!inspector.store.canUndo());
        for (const QColor &color : {QColor(Qt::red), QColor(Qt::green), QColor(0, 0, 255, 128)}) {
            dialog.setCurrentColor(color);
            QCOMPARE(inspector.layer().text->textColor, RGBAColor::fromColor(color));
        }
        dialog.accept();
        QCOMPARE(inspector.layer().text->textColor, RGBAColor::fromColor(QColor(0, 0, 255, 128)));
        QCOMPARE(inspector.undoSteps(), 1);
    }

    void aCancelledColourPutsEverythingBack_data()
    {
        QTest::addColumn<QString>("well");
        for (const auto &well : {u"Solid"_s, u"Gradient Start"_s, u"Text Color"_s})
            QTest::newRow(qPrintable(well)) << well;
    }

    void aCancelledColourPutsEverythingBack()
    {
        QFETCH(QString, well);
        ZelvoProject project = showOf({1});
        project.serviceItems[0].slides[0].design.background = SlideBackground::minimalDark();
        const Inspector inspector(project);
        const Snapshot before = snapshotOf(inspector.store);
        const auto shown = inspector.control<ColorWell>(well).color();
        QColorDialog &dialog = inspector.openDialog(well);
        dialog.setCurrentColor(Qt::red);
        dialog.setCurrentColor(Qt::green);
        dialog.reject();
        QCOMPARE(snapshotOf(inspector.store), before);
        QCOMPARE(inspector.control<ColorWell>(well).color(), shown);
    }

    void theColourDialogClosesWhenTheSelectionChanges()
    {
        Inspector inspector;
        QColorDialog &dialog = inspector.openDialog(u"Solid"_s);
        dialog.setCurrentColor(Qt::red);
        const QSignalSpy destroyed(&dialog, &QObject::destroyed);
        inspector.store.nextLive();
        QTRY_COMPARE(destroyed.size(), 1);
        QCOMPARE(inspector.undoSteps(), 1);
        QCOMPARE(inspector.store.slideWithID(u"A1"_s)->design.background.solidColor,
                 RGBAColor::fromColor(Qt::red));
        QVERIFY(inspector.slide().design.background.solidColor != RGBAColor::fromColor(Qt::red));
    }

    void theFocusOfARowThatGoesGoesToNoOtherField()
    {
        Inspector inspector;
        inspector.startTyping(u"X"_s, u"12"_s);
        const ZelvoProject before = inspector.store.project();
        inspector.store.selectElement(std::nullopt);
        QVERIFY(QApplication::focusWidget());
        QVERIFY(!qobject_cast<QLineEdit *>(QApplication::focusWidget()));
        QCOMPARE(inspector.store.project(), before);
    }

    void aFocusThatIsElsewhereStaysThereWhenRowsGo()
    {
        Inspector inspector;
        inspector.startTyping(u"X"_s, u"12"_s);
        auto &title = inspector.control<TextField>(u"Title"_s);
        title.setFocus();
        inspector.store.selectElement(std::nullopt);
        QCOMPARE(QApplication::focusWidget(), &title);
    }

    void tabGoesOnFromTheFieldThatReturnHasLeft()
    {
        Inspector inspector;
        inspector.startTyping(u"Width"_s, u"900"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(!qobject_cast<QLineEdit *>(QApplication::focusWidget()));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), &inspector.control<NumberField>(u"Height"_s));
    }

    void aClickBesideAFieldEndsTheTyping()
    {
        Inspector inspector;
        inspector.startTyping(u"X"_s, u"12"_s);
        QTest::mouseClick(&inspector.view, Qt::LeftButton, {}, {170, 20});
        QVERIFY(!inspector.field(u"X"_s).hasFocus());
        QCOMPARE(inspector.layer().frame.x, 12.0);
    }

    void aClickOnALayerEndsTheTypingBeforeItSelects()
    {
        const Inspector inspector;
        inspector.startTyping(u"X"_s, u"12"_s);
        auto *row = inspector.view.findChildren<LayerRow *>().at(1);
        QTest::mouseClick(row, Qt::LeftButton);
        QCOMPARE(inspector.store.selectedElementID(), u"A1.line"_s);
        QCOMPARE(inspector.layers().at(0).frame.x, 12.0);
    }

    void keysReachTheShowFromEveryControlThatTakesNoText()
    {
        Inspector inspector;
        QList<QKeySequence> keys;
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Left, Qt::Key_Right,
                                  Qt::Key_Up, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_B}) {
            keys.append(QKeySequence(key));
        }
        int reached = 0;
        QShortcut shortcut(&inspector.view);
        shortcut.setKeys(keys);
        QObject::connect(&shortcut, &QShortcut::activated, [&reached] { ++reached; });
        const Snapshot before = snapshotOf(inspector.store);
        int controls = 0;
        for (QWidget *control : inspector.view.findChildren<QWidget *>()) {
            if (control->focusPolicy() != Qt::TabFocus || !control->isVisible())
                continue;
            control->setFocus(Qt::TabFocusReason);
            for (const QKeySequence &key : keys)
                QTest::keyClick(inspector.view.windowHandle(), key[0].key());
            QCOMPARE(reached, keys.size());
            reached = 0;
            ++controls;
        }
        QVERIFY(controls > 20);
        QCOMPARE(snapshotOf(inspector.store), before);
    }

    void noControlTakesTheFocusFromAClickButTheFields()
    {
        const Inspector inspector;
        for (const QWidget *widget : inspector.view.findChildren<QWidget *>()) {
            const bool takesClicks = widget->focusPolicy() & Qt::ClickFocus;
            QVERIFY2(!takesClicks || qobject_cast<const QLineEdit *>(widget)
                         || qobject_cast<const QScrollBar *>(widget)
                         || widget->window() != &inspector.view,
                     widget->metaObject()->className());
        }
    }

    void theWheelScrollsTheColumnOverEveryControl()
    {
        Inspector inspector;
        inspector.view.resize(inspector.view.width(), 500);
        QCoreApplication::processEvents();
        const Snapshot before = snapshotOf(inspector.store);
        QScrollBar *bar = inspector.view.findChild<QScrollArea *>()->verticalScrollBar();
        for (const QString &name : {u"Title"_s, u"Template"_s, u"Dim"_s, u"Type"_s}) {
            bar->setValue(0);
            QWidget &control = inspector.control(name);
            const QPointF middle = control.rect().center();
            QWheelEvent turn(middle, control.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton,
                             Qt::NoModifier, Qt::NoScrollPhase, false);
            QSpontaneKeyEvent::setSpontaneous(&turn); // else it is not passed on
            qApp->notify(&control, &turn);
            QVERIFY2(bar->value() > 0, qPrintable(name));
        }
        QCOMPARE(snapshotOf(inspector.store), before);
    }

    void theColumnIsAsWideWithAScrollBarAsWithoutOne()
    {
        Inspector inspector;
        QCOMPARE(inspector.view.width(), 340);
        const int width = inspector.control(u"Title"_s).width();
        inspector.view.resize(340, 300);
        QCoreApplication::processEvents();
        QVERIFY(inspector.view.findChild<QScrollArea *>()->verticalScrollBar()->isVisible());
        QCOMPARE(inspector.control(u"Title"_s).width(), width);
        QCOMPARE(inspector.control(u"X"_s).width(), 82);
        const QWidget &title = inspector.control(u"Title"_s);
        const QWidget *bar = inspector.view.findChild<QScrollArea *>()->verticalScrollBar();
        QVERIFY(title.mapTo(&inspector.view, title.rect().topRight()).x()
                < bar->mapTo(&inspector.view, QPoint()).x());
    }
};

QUENARA_GUI_TEST(TestInspectorView)

} // namespace tst_inspector_view

#include "tst_inspector_view.moc"
