#include "ColorWell.h"
#include "InspectorWorld.h"
#include "NotificationLog.h"
#include "Picker.h"
#include "Slider.h"
#include "Stepper.h"
#include "Switch.h"
#include "SymbolButton.h"
#include "SymbolPicker.h"
#include "TextField.h"

#include <QAbstractItemView>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_inspector_controls {

namespace {

const QColor tried(20, 40, 60, 80);

// The ways in which an operator uses a control, by mouse and keys.

void type(QWidget &field, const QString &text)
{
    QTest::mouseClick(&field, Qt::LeftButton);
    dynamic_cast<QLineEdit &>(field).selectAll();
    QTest::keyClicks(&field, text);
    QTest::keyClick(&field, Qt::Key_Return);
}

void choose(QWidget &control, const QString &title)
{
    auto &picker = dynamic_cast<Picker &>(control);
    picker.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&picker, Qt::Key_Down, Qt::AltModifier);
    picker.view()->setCurrentIndex(picker.model()->index(picker.findText(title), 0));
    QTest::keyClick(picker.view(), Qt::Key_Return);
}

void click(QWidget &control)
{
    QTest::mouseClick(&control, Qt::LeftButton);
}

void pull(QWidget &slider, bool toTheEnd)
{
    const int x = toTheEnd ? slider.width() - 1 : 0;
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {x, slider.height() / 2});
}

void tryColor(QWidget &well)
{
    click(well);
    if (auto *dialog = InspectorWorld::dialogOn(well)) {
        dialog->setCurrentColor(tried);
        dialog->accept();
    }
}

void clickButton(QWidget &control, qsizetype position)
{
    click(*control.findChildren<SymbolButton *>().at(position));
}

/// What a control of any kind shows, as a text.
QString shownBy(const QWidget &control, const Caller &caller)
{
    if (const auto *field = qobject_cast<const QLineEdit *>(&control))
        return field->text();
    if (const auto *picker = qobject_cast<const Picker *>(&control))
        return picker->currentText();
    if (const auto *button = qobject_cast<const Switch *>(&control))
        return button->isChecked() ? u"on"_s : u"off"_s;
    if (const auto *slider = qobject_cast<const Slider *>(&control))
        return QString::number(slider->value());
    if (const auto *stepper = qobject_cast<const Stepper *>(&control))
        return stepper->shownText();
    if (const auto *symbols = qobject_cast<const SymbolPicker *>(&control))
        return symbols->value();
    if (const auto *well = qobject_cast<const ColorWell *>(&control))
        return well->color() ? well->color()->toColor().name(QColor::HexArgb) : QString();
    fail(u"no known control"_s, caller);
}

/// A control, how it is used, and how that changes the selected slide or layer.
struct Row
{
    enum class About { slide, text, shape } about;
    const char *name; ///< the accessible one
    std::function<void(QWidget &)> operate;
    std::function<void(Slide &, SlideElement &)> change;
    QString shownWithoutASlide = {};
};

Row typing(Row::About about, const char *name, const QString &text,
           const std::function<void(Slide &, SlideElement &)> &change)
{
    return {about, name, [text](QWidget &field) { type(field, text); }, change};
}

Row choosing(Row::About about, const char *name, const QString &title,
             const std::function<void(Slide &, SlideElement &)> &change)
{
    return {about, name, [title](QWidget &picker) { choose(picker, title); }, change};
}

Row trying(Row::About about, const char *name,
           const std::function<RGBAColor &(Slide &, SlideElement &)> &color)
{
    return {about, name, tryColor, [color](Slide &slide, SlideElement &layer) {
                color(slide, layer) = RGBAColor::fromColor(tried);
            }};
}

QList<Row> rows()
{
    using enum Row::About;
    const auto background = [](Slide &s) -> SlideBackground & { return s.design.background; };
    return {
        typing(slide, "Title", u"Another"_s, [](Slide &s, auto &) { s.title = u"Another"_s; }),
        choosing(slide, "Type", u"image"_s,
                 [=](Slide &s, auto &) { background(s).kind = SlideBackgroundKind::image; }),
        trying(slide, "Solid",
               [=](Slide &s, auto &) -> RGBAColor & { return background(s).solidColor; }),
        trying(slide, "Gradient Start",
               [=](Slide &s, auto &) -> RGBAColor & { return background(s).gradient->startColor; }),
        trying(slide, "Gradient End",
               [=](Slide &s, auto &) -> RGBAColor & { return background(s).gradient->endColor; }),
        choosing(slide, "Direction", u"Soft Center"_s,
                 [=](Slide &s, auto &) {
                     background(s).gradient->direction = GradientDirection::radialHint;
                 }),
        {slide, "Dim", [](QWidget &slider) { pull(slider, true); },
         [=](Slide &s, auto &) { background(s).dimAmount = 0.8; }, u"0"_s},

        typing(text, "Name", u"Another"_s, [](auto &, SlideElement &e) { e.name = u"Another"_s; }),
        {text, "Visible", click, [](auto &, SlideElement &e) { e.visible = !e.visible; }},
        {text, "Locked", click, [](auto &, SlideElement &e) { e.locked = !e.locked; }},
        {text, "Opacity", [](QWidget &slider) { pull(slider, false); },
         [](auto &, SlideElement &e) { e.opacity = 0; }},
        typing(text, "X", u"-40"_s, [](auto &, SlideElement &e) { e.frame.x = -40; }),
        typing(text, "Y", u"7.5"_s, [](auto &, SlideElement &e) { e.frame.y = 7.5; }),
        typing(text, "Width", u"10"_s, [](auto &, SlideElement &e) { e.frame.width = 80; }),
        typing(text, "Height", u"30"_s, [](auto &, SlideElement &e) { e.frame.height = 48; }),
        choosing(text, "Font", u"Georgia"_s,
                 [](auto &, SlideElement &e) { e.text->fontFamily = u"Georgia"_s; }),
        choosing(text, "Weight", u"Heavy"_s,
                 [](auto &, SlideElement &e) { e.text->weight = TextFontWeight::heavy; }),
        {text, "Size", [](QWidget &stepper) { clickButton(stepper, 1); },
         [](auto &, SlideElement &e) { e.text->fontSize += 2; }},
        trying(text, "Text Color",
               [](auto &, SlideElement &e) -> RGBAColor & { return e.text->textColor; }),
        {text, "Alignment", [](QWidget &picker) { clickButton(picker, 2); },
         [](auto &, SlideElement &e) { e.text->alignment = TextAlignmentValue::right; }},
        {text, "Line", [](QWidget &slider) { pull(slider, true); },
         [](auto &, SlideElement &e) { e.text->lineHeight = 1.8; }},
        {text, "Tracking", [](QWidget &slider) { pull(slider, true); },
         [](auto &, SlideElement &e) { e.text->characterSpacing = 12; }},
        {text, "Uppercase", click,
         [](auto &, SlideElement &e) { e.text->uppercase = !e.text->uppercase; }},
        {text, "Shadow", click,
         [](auto &, SlideElement &e) {
             e.text->shadow = e.text->shadow ? std::nullopt : std::optional(TextShadow::soft);
         }},

        choosing(shape, "Shape", u"line"_s,
                 [](auto &, SlideElement &e) { e.shape->kind = ShapeKind::line; }),
        trying(shape, "Fill", [](auto &, SlideElement &e) -> RGBAColor & { return e.shape->fill; }),
        {shape, "Radius", [](QWidget &stepper) { clickButton(stepper, 0); },
         [](auto &, SlideElement &e) { e.shape->cornerRadius -= 2; }},
    };
}

/// A copy of \a layer with another value for everything that a control shows.
SlideElement unlike(SlideElement layer)
{
    layer.id += u".unlike"_s;
    layer.name += u" Unlike"_s;
    layer.frame = {11, 12, 130, 140};
    layer.opacity = 0.5;
    layer.visible = false;
    layer.locked = true;
    if (layer.text) {
        layer.text->fontFamily = u"Menlo"_s;
        layer.text->fontSize = 30;
        layer.text->weight = TextFontWeight::regular;
        layer.text->textColor = RGBAColor::charcoal;
        layer.text->alignment = TextAlignmentValue::left;
        layer.text->lineHeight = 1;
        layer.text->characterSpacing = 3;
        layer.text->uppercase = true;
        layer.text->shadow.reset();
    }
    if (layer.shape) {
        layer.shape->kind = ShapeKind::rectangle;
        layer.shape->fill = RGBAColor::charcoal;
        layer.shape->cornerRadius = 20;
    }
    return layer;
}

/// Two slides that have nothing in common, the first of them with two texts and two shapes that
/// have nothing in common.
ZelvoProject variedShow()
{
    ZelvoProject project = showOf({2});
    QList<Slide> &slides = project.serviceItems[0].slides;
    QList<SlideElement> &layers = slides[0].design.elements;
    layers.append({unlike(layers.at(0)), unlike(layers.at(1))});
    slides[1].design.background = {
        .kind = SlideBackgroundKind::solid,
        .solidColor = RGBAColor::amber,
        .gradient = GradientBackground{.startColor = RGBAColor::amber,
                                       .endColor = RGBAColor::warmAmber,
                                       .direction = GradientDirection::horizontal},
        .image = {},
        .video = {},
        .blurAmount = 0,
        .dimAmount = 0.5};
    return project;
}

/// An inspector that shows the control of a row, with the first layer of its kind selected.
struct Inspected : InspectorWorld
{
    Row row;
    QWidget &target;

    explicit Inspected(const Row &tested, const Caller &caller = Caller::current())
        : InspectorWorld(variedShow(), caller), row(tested),
          target(control(QString::fromLatin1(tested.name), caller))
    {
        store.selectElement(row.about == Row::About::shape ? u"A1.line"_s : u"A1.lyric"_s);
    }

    QString shown(const Caller &caller = Caller::current()) const
    {
        return shownBy(target, caller);
    }

    /// The project after the row's change.
    ZelvoProject changed() const
    {
        ZelvoProject project = store.project();
        Slide &slide = *std::find_if(
            project.serviceItems[0].slides.begin(), project.serviceItems[0].slides.end(),
            [&](const Slide &candidate) { return candidate.id == store.selectedSlideID(); });
        QList<SlideElement> &layers = slide.design.elements;
        const auto layer =
            std::find_if(layers.begin(), layers.end(), [&](const SlideElement &candidate) {
                return candidate.id == store.selectedElementID();
            });
        SlideElement none;
        row.change(slide, layer == layers.end() ? none : *layer);
        return project;
    }

    /// Makes the row's change without the control.
    void changeInTheStore()
    {
        SlideElement layer = store.selectedElement().value_or(SlideElement());
        if (row.about == Row::About::slide) {
            store.updateSelectedSlide([&](Slide &slide) { row.change(slide, layer); });
        } else {
            store.updateSelectedElement([&](SlideElement &selected) {
                Slide slide;
                row.change(slide, selected);
            });
        }
    }

    void selectAnother()
    {
        if (row.about == Row::About::slide) {
            store.selectSlide(u"A2"_s, true);
        } else {
            store.selectElement(*store.selectedElementID() + u".unlike"_s);
        }
    }
};

} // namespace

class TestInspectorControls : public GuiTest
{
    Q_OBJECT

private slots:
    void itShowsTheValueOfTheStoreAndEchoesNothing_data() { addRows(); }
    void itShowsTheValueOfTheStoreAndEchoesNothing()
    {
        QFETCH(Row, row);
        Inspected inspected(row);
        const QString before = inspected.shown();
        const ZelvoProject expected = inspected.changed();
        NotificationLog log(inspected.store);
        inspected.changeInTheStore();
        QCOMPARE(log.takeChangedCount(), 1);
        QCOMPARE(inspected.store.project(), expected);
        const QString after = inspected.shown();
        QVERIFY(after != before);

        inspected.store.undo();
        QCOMPARE(inspected.shown(), before);
        row.operate(inspected.target);
        QCOMPARE(inspected.shown(), after);
    }

    void itWritesExactlyItsFieldInOneUndoStep_data() { addRows(); }
    void itWritesExactlyItsFieldInOneUndoStep()
    {
        QFETCH(Row, row);
        Inspected inspected(row);
        const ZelvoProject before = inspected.store.project();
        const QString shownBefore = inspected.shown();
        const ZelvoProject expected = inspected.changed();
        row.operate(inspected.target);
        QCOMPARE(inspected.store.project(), expected);
        QCOMPARE(inspected.undoSteps(), 1);

        inspected.store.undo();
        QCOMPARE(inspected.store.project(), before);
        QCOMPARE(inspected.shown(), shownBefore);
        inspected.store.redo();
        QCOMPARE(inspected.store.project(), expected);
    }

    void eachTimeIsAnUndoStepOfItsOwn_data() { addRows(); }
    void eachTimeIsAnUndoStepOfItsOwn()
    {
        QFETCH(Row, row);
        Inspected inspected(row);
        row.operate(inspected.target);
        inspected.selectAnother();
        row.operate(inspected.target);
        QCOMPARE(inspected.undoSteps(), 2);
    }

    void itIsAStepOfItsOwnWhileAGestureIsOpenElsewhere_data() { addRows(); }
    void itIsAStepOfItsOwnWhileAGestureIsOpenElsewhere()
    {
        QFETCH(Row, row);
        Inspected inspected(row);
        inspected.store.beginGesture();
        inspected.store.updateSelectedElement([](SlideElement &layer) { layer.rotation = 30; });
        const ZelvoProject between = inspected.store.project();
        row.operate(inspected.target);
        QCOMPARE(inspected.undoSteps(), 2);
        inspected.store.undo();
        QCOMPARE(inspected.store.project(), between);
    }

    void withoutASelectionItShowsNothingAndIsOfNoUse_data() { addRows(); }
    void withoutASelectionItShowsNothingAndIsOfNoUse()
    {
        QFETCH(Row, row);
        Inspected inspected(row);
        if (row.about != Row::About::slide) {
            inspected.store.selectElement(std::nullopt);
            QVERIFY(!inspected.target.isVisible());
            return;
        }
        inspected.store.newBlankProject();
        QCOMPARE(inspected.shown(), row.shownWithoutASlide);
        QVERIFY(!inspected.target.isEnabled());
    }

    void theSelectionMayChangeWhileItHasTheFocus_data() { addRows(); }
    void theSelectionMayChangeWhileItHasTheFocus()
    {
        QFETCH(Row, row);
        Inspected inspected(row);
        const bool isOfButtons = inspected.target.focusPolicy() == Qt::NoFocus;
        (isOfButtons ? inspected.target.findChild<SymbolButton *>() : &inspected.target)
            ->setFocus(Qt::TabFocusReason);
        const QWidget *focused = inspected.view.focusWidget();
        const QString before = inspected.shown();
        if (auto *field = qobject_cast<QLineEdit *>(&inspected.target)) {
            QTest::keyClicks(field, u"99"_s);
            QVERIFY(inspected.shown() != before);
        }
        const ZelvoProject written = inspected.store.project();
        inspected.selectAnother();
        QCOMPARE(inspected.store.project(), written);
        QVERIFY(inspected.shown() != before);
        QCOMPARE(inspected.view.focusWidget(), focused);
        inspected.view.setFocus();
        QCOMPARE(inspected.store.project(), written);

        const ZelvoProject expected = inspected.changed();
        row.operate(inspected.target);
        QCOMPARE(inspected.store.project(), expected);
    }

private:
    static void addRows()
    {
        QTest::addColumn<Row>("row");
        for (const Row &row : rows())
            QTest::newRow(row.name) << row;
    }
};

QUENARA_GUI_TEST(TestInspectorControls)

} // namespace tst_inspector_controls

#include "tst_inspector_controls.moc"
