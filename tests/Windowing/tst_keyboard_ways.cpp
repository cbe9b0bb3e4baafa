#include "CanvasTextLayerEditor.h"
#include "GuiTestSupport.h"
#include "Picker.h"
#include "ProgramWindows.h"
#include "SlideCanvas.h"
#include "SymbolPicker.h"

#include <algorithm>

using namespace quenara;
using namespace quenara::test;

namespace tst_keyboard_ways {

namespace {

/// The program on a slide with a new text, the canvas reached by Tab.
struct Canvas : ProgramWindows
{
    SlideCanvas *canvas = operatorWindow.findChild<SlideCanvas *>();
    CanvasTextLayerEditor *editor = operatorWindow.findChild<CanvasTextLayerEditor *>();

    Canvas()
    {
        store.addTextLayer(SlideElementKind::text);
        store.updateSelectedElement([](SlideElement &layer) {
            layer.frame = {300, 200, 400, 100};
        });
        canvas->setFocus(Qt::TabFocusReason);
    }

    using ProgramWindows::press;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        press(operatorWindow, key, modifiers);
    }

    CanvasFrame frame() const { return store.selectedElement()->frame; }
};

/// The identifiers of the slides, item by item.
QStringList slidesOf(const WorkspaceStore &store)
{
    QStringList items;
    for (const ServiceItem &item : store.project().serviceItems) {
        QStringList slides;
        for (const Slide &slide : item.slides)
            slides.append(slide.id);
        items.append(slides.join(QLatin1Char(' ')));
    }
    return items;
}

constexpr auto control = Qt::KeyboardModifiers(Qt::ControlModifier);

} // namespace

class TestKeyboardWays : public GuiTest
{
    Q_OBJECT

private slots:
    void controlAndArrowsChangeTheSelectedLayer_data()
    {
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<CanvasFrame>("after");
        const auto resizing = control | Qt::AltModifier;
        QTest::newRow("Ctrl+Left moves it by one")
            << control << Qt::Key_Left << CanvasFrame{299, 200, 400, 100};
        QTest::newRow("Ctrl+Right") << control << Qt::Key_Right << CanvasFrame{301, 200, 400, 100};
        QTest::newRow("Ctrl+Up") << control << Qt::Key_Up << CanvasFrame{300, 199, 400, 100};
        QTest::newRow("Ctrl+Down") << control << Qt::Key_Down << CanvasFrame{300, 201, 400, 100};
        QTest::newRow("with Shift by ten")
            << (control | Qt::ShiftModifier) << Qt::Key_Down << CanvasFrame{300, 210, 400, 100};
        QTest::newRow("Ctrl+Alt+Right makes it wider")
            << resizing << Qt::Key_Right << CanvasFrame{300, 200, 401, 100};
        QTest::newRow("Ctrl+Alt+Left narrower")
            << resizing << Qt::Key_Left << CanvasFrame{300, 200, 399, 100};
        QTest::newRow("Ctrl+Alt+Down higher")
            << resizing << Qt::Key_Down << CanvasFrame{300, 200, 400, 101};
        QTest::newRow("Ctrl+Alt+Up lower")
            << resizing << Qt::Key_Up << CanvasFrame{300, 200, 400, 99};
        QTest::newRow("with Shift by ten, too")
            << (resizing | Qt::ShiftModifier) << Qt::Key_Right << CanvasFrame{300, 200, 410, 100};
    }

    void controlAndArrowsChangeTheSelectedLayer()
    {
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(Qt::Key, key);
        Canvas c;
        const CanvasFrame before = c.frame();
        c.press(key, modifiers);
        QTEST(c.frame(), "after");
        c.press(Qt::Key_Z, control);
        QCOMPARE(c.frame(), before);
    }

    void aLayerIsNotMadeSmallerThanByTheMouse()
    {
        Canvas c;
        c.store.updateSelectedElement([](SlideElement &layer) {
            layer.frame = {300, 200, 85, 50};
        });
        c.press(Qt::Key_Left, control | Qt::AltModifier | Qt::ShiftModifier);
        c.press(Qt::Key_Up, control | Qt::AltModifier | Qt::ShiftModifier);
        QCOMPARE(c.frame(), (CanvasFrame{300, 200, 80, 48}));
    }

    void aKeyThatIsHeldIsOneStepAndThreePressesAreThree()
    {
        Canvas c;
        QTest::keyPress(c.operatorWindow.windowHandle(), Qt::Key_Right, control);
        for (int i = 0; i < 4; ++i) {
            QTest::simulateEvent(c.operatorWindow.windowHandle(), true, Qt::Key_Right, control, {},
                                 true);
        }
        QTest::keyRelease(c.operatorWindow.windowHandle(), Qt::Key_Right, control);
        QCOMPARE(c.frame().x, 305.0);
        for (int i = 0; i < 3; ++i)
            c.press(Qt::Key_Down, control);
        QCOMPARE(c.frame().y, 203.0);
        c.press(Qt::Key_Z, control);
        QCOMPARE(c.frame().y, 202.0);
        for (int i = 0; i < 2; ++i)
            c.press(Qt::Key_Z, control);
        QCOMPARE(c.frame(), (CanvasFrame{305, 200, 400, 100}));
        c.press(Qt::Key_Z, control);
        QCOMPARE(c.frame(), (CanvasFrame{300, 200, 400, 100}));
    }

    void tabGoesThroughTheLayersAndTheKeysWorkOnTheOneItIsAt()
    {
        Canvas c;
        const std::optional<QString> top = c.store.selectedElementID();
        c.press(Qt::Key_Tab);
        c.press(Qt::Key_Tab);
        QVERIFY(c.canvas->hasFocus());
        QCOMPARE(c.store.selectedElementID(), top);
        c.press(Qt::Key_Space, control);
        const std::optional<QString> second = c.store.selectedElementID();
        QVERIFY(second != top);
        c.press(Qt::Key_Backtab, Qt::ShiftModifier);
        c.press(Qt::Key_Right, control);
        QCOMPARE(c.store.selectedElementID(), top);
        QCOMPARE(c.frame().x, 301.0);
        c.press(Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(c.canvas->hasFocus());
        c.press(Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(!c.canvas->hasFocus());
    }

    void tabLeavesTheCanvasBehindItsLastLayer()
    {
        Canvas c;
        const qsizetype layers =
            c.store.slideWithID(c.store.selectedSlideID())->design.elements.size();
        for (qsizetype i = 0; i < layers; ++i)
            c.press(Qt::Key_Tab);
        QVERIFY(c.canvas->hasFocus());
        c.press(Qt::Key_Tab);
        QVERIFY(!c.canvas->hasFocus());
        c.press(Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(c.canvas->hasFocus());
    }

    void f2EditsTheTextAndEscapeGivesTheCanvasTheKeyboardBack()
    {
        Canvas c;
        c.press(Qt::Key_F2);
        QVERIFY(c.editor->hasFocus());
        c.press(Qt::Key_1);
        QVERIFY(c.store.selectedElement()->text->text.contains(QLatin1Char('1')));
        c.press(Qt::Key_Escape);
        QVERIFY(!c.editor->isVisible());
        QVERIFY(c.canvas->hasFocus());
        c.press(Qt::Key_Right, control);
        QCOMPARE(c.frame().x, 301.0);
    }

    void f2DoesNothingToAShape()
    {
        Canvas c;
        c.store.addShapeLayer();
        const WorkspaceState before = c.store.state();
        c.press(Qt::Key_F2);
        QVERIFY(!c.editor->isVisible());
        QCOMPARE(c.store.state(), before);
    }

    void theBareKeysAreTheShowsOnTheCanvasToo()
    {
        Canvas c;
        const ZelvoProject before = c.store.project();
        const qsizetype live = c.live();
        c.press(Qt::Key_Right);
        QCOMPARE(c.live(), live + 1);
        c.press(Qt::Key_B);
        QCOMPARE(c.store.outputMode(), OutputMode::blackout);
        c.press(Qt::Key_Space);
        QCOMPARE(c.store.outputMode(), OutputMode::live);
        QCOMPARE(c.store.project(), before);
    }

    void altAndAnArrowMoveTheSelectedSlideThroughTheSectionsAndWithShiftItsSection()
    {
        ProgramWindows program;
        const auto press = [&program](Qt::Key key, Qt::KeyboardModifiers modifiers) {
            ProgramWindows::press(program.operatorWindow, key, modifiers);
        };
        const QStringList before = slidesOf(program.store);
        const WorkspaceState state = program.store.state();
        const auto slide = program.store.selectedSlideID();
        const auto section = program.store.selectedServiceItemID();
        const qsizetype own = program.store.project().serviceItems.constFirst().slides.size();
        for (qsizetype i = 0; i < own; ++i)
            press(Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(program.store.project().serviceItems.at(1).slides.constFirst().id, slide);
        press(Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(program.store.project().serviceItems.at(0).slides.constLast().id, slide);
        for (qsizetype i = 1; i < own; ++i)
            press(Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(slidesOf(program.store), before);
        press(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
        QCOMPARE(program.store.project().serviceItems.at(1).id, section);
        press(Qt::Key_Z, control);
        QCOMPARE(slidesOf(program.store), before);
        QCOMPARE(program.store.selectedSlideID(), slide);
        QCOMPARE(program.store.liveSlideID(), state.liveSlideID);
        QCOMPARE(program.store.queuedSlideID(), state.queuedSlideID);
    }

    void altAndDownOpensThePickerThatHasTheKeyboardAndMovesNothing()
    {
        ProgramWindows program;
        const ZelvoProject before = program.store.project();
        auto *picker = program.operatorWindow.findChild<Picker *>();
        picker->setFocus(Qt::TabFocusReason);
        ProgramWindows::press(program.operatorWindow, Qt::Key_Down, Qt::AltModifier);
        QVERIFY(QApplication::activePopupWidget());
        QCOMPARE(program.store.project(), before);
    }

    void controlAndAnArrowChooseAmongTheSymbolsOfAPicker()
    {
        Canvas c;
        auto *picker = c.operatorWindow.findChild<SymbolPicker *>();
        const QList<QAbstractButton *> buttons = picker->findChildren<QAbstractButton *>();
        const auto checked = std::find_if(buttons.begin(), buttons.end(),
                                          [](const auto *button) { return button->isChecked(); });
        QVERIFY(checked != buttons.end());
        (*checked)->setFocus(Qt::TabFocusReason);
        QStringList chosen;
        for (const Qt::Key key :
             {Qt::Key_Left, Qt::Key_Left, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right}) {
            c.press(key, control);
            chosen.append(rawValue(c.store.selectedElement()->text->alignment));
        }
        for (const auto *alignment : {"left", "center", "right"})
            QVERIFY2(chosen.contains(QString::fromUtf8(alignment)), qPrintable(chosen.join(u' ')));
    }
};

QUENARA_GUI_TEST(TestKeyboardWays)

} // namespace tst_keyboard_ways

#include "tst_keyboard_ways.moc"
