#include "DesignCanvas.h"
#include "DevicePixels.h"

#include <QAccessible>
#include <QClipboard>
#include <QInputMethodEvent>

using namespace quenara;
using namespace quenara::test;

namespace tst_canvas_text_layer_editor {

namespace {

const QString lyric = QStringLiteral("A1.lyric");
const QString line = QStringLiteral("A1.line");

/// A design canvas on whose lyric layer \a text is edited, the caret at its end.
struct Editing : DesignCanvas
{
    explicit Editing(const QString &text = QStringLiteral("one two")) : DesignCanvas(withText(text))
    {
        edit(lyric);
        QTest::keyClick(editor, Qt::Key_End, Qt::ControlModifier);
    }

    static ZelvoProject withText(const QString &text)
    {
        ZelvoProject project = showOf({2});
        project.serviceItems[0].slides[0].design.elements[0].text->text = text;
        return project;
    }

    QString text() const { return layer(lyric).text->text; }

    void type(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(editor, key, modifiers);
    }

    /// Sends what an input method sends.
    void compose(const QString &preedit, const QString &commit = {}, int replaceFrom = 0,
                 int replaced = 0) const
    {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit, replaceFrom, replaced);
        QApplication::sendEvent(editor, &event);
    }

    /// The place before the \a index-th character, in the editor's coordinates.
    QPoint placeOf(int index) const
    {
        type(Qt::Key_Home, Qt::ControlModifier);
        for (int i = 0; i < index; ++i)
            type(Qt::Key_Right);
        return caret().center();
    }

    QRect caret() const { return editor->inputMethodQuery(Qt::ImCursorRectangle).toRect(); }
    QString selected() const { return editor->inputMethodQuery(Qt::ImCurrentSelection).toString(); }
};

} // namespace

class TestCanvasTextLayerEditor : public GuiTest
{
    Q_OBJECT

private slots:
    void doubleClickingATextLayerOpensTheEditor()
    {
        DesignCanvas c(showOf({1}));
        c.edit(lyric);
        QCOMPARE(c.store.selectedElementID(), lyric);
        QVERIFY(c.editor->isVisible());
        QVERIFY(c.editor->hasFocus());
        QVERIFY(!c.store.canUndo());
    }

    void doubleClickingAShapeDoesNothing()
    {
        DesignCanvas c(showOf({1}));
        c.edit(line);
        QVERIFY(!c.editor->isVisible());
        QCOMPARE(c.store.selectedElementID(), line);
    }

    void doubleClickingAHiddenLockedTextOpensTheEditor()
    {
        DesignCanvas c(showOf({1}));
        c.store.selectElement(lyric);
        c.store.updateSelectedElement([](SlideElement &element) {
            element.visible = false;
            element.locked = true;
        });
        c.edit(lyric);
        QVERIFY(c.editor->isVisible());
    }

    void clickingAnotherLayerClosesIt()
    {
        Editing e;
        e.click(e.middleOf(line));
        QCOMPARE(e.store.selectedElementID(), line);
        QVERIFY(!e.editor->isVisible());
        QVERIFY(e.canvas->hasFocus());
    }

    void escapeClosesItAndKeepsWhatWasTyped()
    {
        Editing e;
        QTest::keyClicks(e.editor, QStringLiteral("!"));
        e.type(Qt::Key_Escape);
        QVERIFY(!e.editor->isVisible());
        QVERIFY(e.canvas->hasFocus());
        QCOMPARE(e.store.selectedElementID(), lyric);
        QCOMPARE(e.text(), QStringLiteral("one two!"));
    }

    void whatTakesTheLayerAwayClosesIt_data()
    {
        QTest::addColumn<std::function<void(WorkspaceStore &)>>("operation");
        const auto row = [](const char *name, const std::function<void(WorkspaceStore &)> &run) {
            QTest::newRow(name) << run;
        };
        row("another slide",
            [](WorkspaceStore &store) { store.selectSlide(QStringLiteral("A2"), true); });
        row("the layer deleted", [](WorkspaceStore &store) { store.deleteSelectedElement(); });
        row("no selection", [](WorkspaceStore &store) { store.selectElement(std::nullopt); });
        row("another layer",
            [](WorkspaceStore &store) { store.addTextLayer(SlideElementKind::text); });
        row("another document", [](WorkspaceStore &store) { store.newBlankProject(); });
        row("no text left", [](WorkspaceStore &store) {
            store.updateSelectedElement([](SlideElement &element) { element.text.reset(); });
        });
    }

    void whatTakesTheLayerAwayClosesIt()
    {
        QFETCH(std::function<void(WorkspaceStore &)>, operation);
        Editing e;
        operation(e.store);
        QVERIFY(!e.editor->isVisible());
        QVERIFY(!e.editor->hasFocus());
        if (e.canvas->isVisible())
            QVERIFY(e.canvas->hasFocus());
    }

    void everyChangeIsWrittenAtOnceAndASessionIsOneStep()
    {
        Editing e;
        QTest::keyClicks(e.editor, QStringLiteral(" thr"));
        QCOMPARE(e.text(), QStringLiteral("one two thr"));
        e.type(Qt::Key_Backspace);
        e.type(Qt::Key_Return);
        QTest::keyClicks(e.editor, QStringLiteral("x"));
        QCOMPARE(e.text(), QStringLiteral("one two th\nx"));
        e.type(Qt::Key_Escape);
        e.store.undo();
        QCOMPARE(e.text(), QStringLiteral("one two"));
        QVERIFY(!e.store.canUndo());
    }

    void eachSessionIsAStepOfItsOwn()
    {
        Editing e;
        QTest::keyClicks(e.editor, QStringLiteral("a"));
        e.type(Qt::Key_Escape);
        e.edit(lyric);
        e.type(Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(e.editor, QStringLiteral("b"));
        QCOMPARE(e.text(), QStringLiteral("one twoab"));
        e.store.undo();
        QCOMPARE(e.text(), QStringLiteral("one twoa"));
    }

    void openingAndClosingIsNoStep()
    {
        Editing e;
        e.type(Qt::Key_Left);
        e.type(Qt::Key_Escape);
        QVERIFY(!e.store.canUndo());
        QVERIFY(!e.store.hasUnsavedChanges());
    }

    void theEditorShowsWhatElseChangesTheText()
    {
        Editing e;
        e.store.updateSelectedElement(
            [](SlideElement &element) { element.text->text = QStringLiteral("abc"); });
        QTest::keyClicks(e.editor, QStringLiteral("!"));
        QCOMPARE(e.text(), QStringLiteral("abc!"));
    }

    void whatIsChangedElsewhereWhileItIsOpenIsAStepOfItsOwn()
    {
        Editing e;
        QTest::keyClicks(e.editor, QStringLiteral("a"));
        e.canvas->setFocus();
        e.store.updateProjectName(QStringLiteral("Other"));
        e.store.undo();
        QCOMPARE(e.text(), QStringLiteral("one twoa"));
        QVERIFY(e.store.canUndo());
    }

    void keysMoveTheCaret_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("expected");
        const Qt::KeyboardModifiers none;
        const Qt::KeyboardModifiers control = Qt::ControlModifier;
        QTest::newRow("left") << Qt::Key_Left << none << "one two\nthre|e";
        QTest::newRow("up") << Qt::Key_Up << none << "one two|\nthree";
        QTest::newRow("home") << Qt::Key_Home << none << "one two\n|three";
        QTest::newRow("word left") << Qt::Key_Left << control << "one two\n|three";
        QTest::newRow("to the start") << Qt::Key_Home << control << "|one two\nthree";
        QTest::newRow("page up") << Qt::Key_PageUp << none << "|one two\nthree";
        QTest::newRow("right at the end") << Qt::Key_Right << none << "one two\nthree|";
        QTest::newRow("down in the last line") << Qt::Key_Down << none << "one two\nthree|";
    }

    void keysMoveTheCaret()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QString, expected);
        Editing e(QStringLiteral("one two\nthree"));
        e.store.updateSelectedElement(
            [](SlideElement &element) { element.text->alignment = TextAlignmentValue::right; });
        e.type(key, modifiers);
        QTest::keyClicks(e.editor, QStringLiteral("|"));
        QCOMPARE(e.text(), expected);
    }

    void withShiftTheySelect()
    {
        Editing e(QStringLiteral("one two\nthree"));
        e.type(Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(e.selected(), QStringLiteral("e"));
        e.type(Qt::Key_Home, Qt::ShiftModifier);
        QCOMPARE(e.selected(), QStringLiteral("three"));
        e.type(Qt::Key_Up, Qt::ShiftModifier);
        QVERIFY(e.selected().endsWith(QStringLiteral("\nthree")));
        e.type(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(e.selected(), QStringLiteral("one two\nthree"));
        QTest::keyClicks(e.editor, QStringLiteral("x"));
        QCOMPARE(e.text(), QStringLiteral("x"));
    }

    void upAndDownKeepToTheirColumn()
    {
        Editing e(QStringLiteral("a long line\nx\na long line"));
        e.store.updateSelectedElement(
            [](SlideElement &element) { element.text->alignment = TextAlignmentValue::left; });
        e.type(Qt::Key_Left);
        e.type(Qt::Key_Up);
        e.type(Qt::Key_Up);
        QTest::keyClicks(e.editor, QStringLiteral("|"));
        QCOMPARE(e.text(), QStringLiteral("a long lin|e\nx\na long line"));
    }

    void rightIsTheWayBackInTextFromTheRight()
    {
        Editing e(QStringLiteral("\u05e9\u05dc\u05d5\u05dd"));
        e.type(Qt::Key_Right);
        QTest::keyClicks(e.editor, QStringLiteral("|"));
        QCOMPARE(e.text(), QStringLiteral("\u05e9\u05dc\u05d5|\u05dd"));
    }

    void keysRemove_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("expected");
        const Qt::KeyboardModifiers none;
        const Qt::KeyboardModifiers control = Qt::ControlModifier;
        QTest::newRow("backspace") << Qt::Key_Backspace << none << "onetwo";
        QTest::newRow("delete") << Qt::Key_Delete << none << "one wo";
        QTest::newRow("the word before") << Qt::Key_Backspace << control << "two";
        QTest::newRow("the word behind") << Qt::Key_Delete << control << "one ";
    }

    void keysRemove()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QString, expected);
        Editing e;
        e.type(Qt::Key_Left, Qt::ControlModifier);
        e.type(key, modifiers);
        QCOMPARE(e.text(), expected);
    }

    void emojiAreTypedAndRemovedWhole()
    {
        Editing e(QString{});
        const QString family = QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467");
        e.compose({}, family);
        e.compose({}, QStringLiteral("\u2764\uFE0F"));
        QCOMPARE(e.text(), family + QStringLiteral("\u2764\uFE0F"));
        e.type(Qt::Key_Backspace);
        QCOMPARE(e.text(), family);
        e.type(Qt::Key_Left);
        e.type(Qt::Key_Delete);
        QCOMPARE(e.text(), QString());
    }

    void theTextKeepsWhatTheSlideDoesNotShow()
    {
        const QString odd = QStringLiteral("a\u00a0b \r\nc\u2028d\te\u2764\uFE0F ");
        Editing e(odd);
        QTest::keyClicks(e.editor, QStringLiteral("!"));
        QCOMPARE(e.text(), odd + u'!');
    }

    void tabIsText()
    {
        Editing e;
        e.type(Qt::Key_Tab);
        QCOMPARE(e.text(), QStringLiteral("one two\t"));
        QVERIFY(e.editor->hasFocus());
    }

    void theClipboardGivesAndTakes()
    {
        Editing e;
        QClipboard *clipboard = QApplication::clipboard();
        e.type(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
        e.type(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(clipboard->text(), QStringLiteral("two"));
        QCOMPARE(e.text(), QStringLiteral("one two"));
        e.type(Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(e.text(), QStringLiteral("one "));
        clipboard->setText(QStringLiteral("a\r\nb\rc"));
        e.type(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(e.text(), QStringLiteral("one a\nb\nc"));
        clipboard->clear();
        e.type(Qt::Key_V, Qt::ControlModifier);
        e.type(Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(e.text(), QStringLiteral("one a\nb\nc"));
        QCOMPARE(clipboard->text(), QString());
    }

    void anInputMethodComposesAndCommits()
    {
        Editing e;
        e.compose(QStringLiteral("n"));
        e.compose(QStringLiteral("ni"));
        QCOMPARE(e.text(), QStringLiteral("one two"));
        QVERIFY(!e.store.canUndo());
        e.compose({}, QStringLiteral("你"));
        QCOMPARE(e.text(), QStringLiteral("one two你"));
        e.compose({}, QStringLiteral("TWO"), -4, 4);
        QCOMPARE(e.text(), QStringLiteral("one TWO"));
        e.type(Qt::Key_A, Qt::ControlModifier);
        e.compose(QStringLiteral("x"));
        QCOMPARE(e.text(), QString());
        e.compose({});
        e.store.undo();
        QCOMPARE(e.text(), QStringLiteral("one two"));
    }

    void whatIsComposedIsSeenAndTheCaretFollows()
    {
        Editing e;
        const QImage before = e.editor->grab().toImage();
        const QRect caret = e.caret();
        e.compose(QStringLiteral("nihao"));
        QVERIFY(e.editor->grab().toImage() != before);
        QVERIFY(e.caret().left() > caret.left());
        e.compose({});
        QCOMPARE(e.caret(), caret);
    }

    void aScreenReaderReadsTheTextItsCaretAndItsSelection()
    {
        Editing e;
        QAccessibleInterface *told = QAccessible::queryAccessibleInterface(e.editor);
        QCOMPARE(told->role(), QAccessible::EditableText);
        QVERIFY(told->state().editable);
        QAccessibleTextInterface *text = told->textInterface();
        QVERIFY(text);
        const QString written = e.text();
        QCOMPARE(text->text(0, text->characterCount()), written);
        e.type(Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(text->cursorPosition(), 0);
        QCOMPARE(text->selectionCount(), 0);
        e.type(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier);
        int start = -1;
        int end = -1;
        text->selection(0, &start, &end);
        QCOMPARE(text->text(start, end), written);
    }

    void aScreenReaderMovesTheCaretAndSelects()
    {
        Editing e;
        QAccessibleTextInterface *text =
            QAccessible::queryAccessibleInterface(e.editor)->textInterface();
        text->setCursorPosition(3);
        QCOMPARE(text->cursorPosition(), 3);
        text->setSelection(0, 4, 7);
        QCOMPARE(e.selected(), QStringLiteral("two"));
        text->removeSelection(0);
        QCOMPARE(e.selected(), QString());
        QCOMPARE(text->cursorPosition(), 7);
        text->setCursorPosition(1000);
        QCOMPARE(text->cursorPosition(), text->characterCount());
        QCOMPARE(e.text(), QStringLiteral("one two"));
        QVERIFY(!e.store.canUndo());
    }

    void anInputMethodIsToldOfTheText()
    {
        Editing e;
        e.type(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
        const auto told = [&](Qt::InputMethodQuery query) {
            QInputMethodQueryEvent event(query);
            QApplication::sendEvent(e.editor, &event);
            return event.value(query);
        };
        QVERIFY(told(Qt::ImEnabled).toBool());
        QCOMPARE(told(Qt::ImSurroundingText).toString(), QStringLiteral("one two"));
        QCOMPARE(told(Qt::ImCursorPosition).toInt(), 4);
        QCOMPARE(told(Qt::ImAnchorPosition).toInt(), 7);
        QCOMPARE(told(Qt::ImCurrentSelection).toString(), QStringLiteral("two"));
        QVERIFY(e.editor->rect().contains(told(Qt::ImCursorRectangle).toRect()));
    }

    void thePointerPlacesTheCaretAndSelects()
    {
        Editing e;
        const QPoint third = e.placeOf(3);
        const QPoint first = e.placeOf(1);
        QTest::mouseClick(e.editor, Qt::LeftButton, Qt::NoModifier, third);
        QTest::keyClicks(e.editor, QStringLiteral("|"));
        QCOMPARE(e.text(), QStringLiteral("one| two"));
        e.type(Qt::Key_Backspace);
        QTest::mousePress(e.editor, Qt::LeftButton, Qt::NoModifier, first);
        QTest::mouseMove(e.editor, third);
        QTest::mouseRelease(e.editor, Qt::LeftButton, Qt::NoModifier, third);
        QCOMPARE(e.selected(), QStringLiteral("ne"));
        QTest::mouseClick(e.editor, Qt::LeftButton, Qt::ShiftModifier, e.placeOf(0));
        QTest::mouseDClick(e.editor, Qt::LeftButton, Qt::NoModifier, first);
        QCOMPARE(e.selected(), QStringLiteral("one"));
    }

    void theDoubleClickPlacesTheCaret()
    {
        Editing e;
        const QPoint third = e.editor->mapTo(e.canvas, e.placeOf(3));
        e.type(Qt::Key_Escape);
        QTest::mouseDClick(e.canvas, Qt::LeftButton, Qt::NoModifier, third);
        QTest::keyClicks(e.editor, QStringLiteral("|"));
        QCOMPARE(e.text(), QStringLiteral("one| two"));
    }

    void nothingJumpsAsEditingBegins_data()
    {
        QTest::addColumn<std::function<void(SlideElement &)>>("style");
        const auto row = [](const char *name, const std::function<void(SlideElement &)> &style) {
            QTest::newRow(name) << style;
        };
        row("as it is", [](SlideElement &) {});
        row("left", [](SlideElement &e) { e.text->alignment = TextAlignmentValue::left; });
        row("right", [](SlideElement &e) { e.text->alignment = TextAlignmentValue::right; });
        row("without padding", [](SlideElement &e) { e.text->padding = 0; });
        row("padded", [](SlideElement &e) { e.text->padding = 90; });
        row("wrapped", [](SlideElement &e) { e.frame.width = 600; });
        row("shrunk", [](SlideElement &e) { e.frame = {300, 300, 500, 160}; });
        row("truncated", [](SlideElement &e) { e.frame = {300, 300, 300, 90}; });
        row("far apart", [](SlideElement &e) {
            e.text->lineHeight = 1.7;
            e.text->characterSpacing = 9;
        });
        row("capitals", [](SlideElement &e) { e.text->uppercase = true; });
        row("large and light", [](SlideElement &e) {
            e.text->fontSize = 170;
            e.text->weight = TextFontWeight::regular;
        });
        row("rotated", [](SlideElement &e) { e.rotation = 12; });
        row("between pixels", [](SlideElement &e) { e.frame.x += 0.7, e.frame.y += 1.3; });
        row("emoji",
            [](SlideElement &e) { e.text->text += QStringLiteral("\U0001F600\u2764\uFE0F"); });
        row("blank lines", [](SlideElement &e) { e.text->text = QStringLiteral("\n\na\n\n"); });
    }

    void nothingJumpsAsEditingBegins()
    {
        QFETCH(std::function<void(SlideElement &)>, style);
        Editing e(QStringLiteral("We rise and sing\nYou are faithful"));
        e.type(Qt::Key_Escape);
        // On a slide of the editor's own colour nothing but the letters is seen.
        const QColor input = ZelvoTheme::dark().inputBackground;
        e.store.updateSelectedSlide([&](Slide &slide) {
            slide.design.background =
                solidBackground({input.redF(), input.greenF(), input.blueF(), 1});
            slide.design.safeAreaEnabled = false;
            slide.design.elements = {slide.design.elements.constFirst()};
        });
        e.store.updateSelectedElement([&](SlideElement &element) {
            element.text->shadow.reset();
            style(element);
        });
        const auto unmarked = [&] {
            QImage image = e.canvas->grab().toImage().convertToFormat(QImage::Format_ARGB32);
            QPainter painter(&image);
            const CanvasFrame frame = e.layer(lyric).frame;
            const QRectF box(e.pointOf({frame.x, frame.y}),
                             e.pointOf({frame.x + frame.width, frame.y + frame.height}));
            // Without the marks of the selection and of the editor.
            painter.setPen(QPen(Qt::black, 24));
            for (const double rotation : {0.0, e.layer(lyric).rotation}) {
                painter.translate(box.center());
                painter.rotate(rotation);
                painter.drawRect(box.translated(-box.center()));
                painter.resetTransform();
            }
            painter.fillRect(e.caret().translated(e.editor->pos()).adjusted(-2, -2, 2, 2),
                             Qt::black);
            return image;
        };
        e.edit(lyric);
        const QImage during = unmarked();
        e.type(Qt::Key_Escape);
        const QImage after = unmarked();
        QVERIFY(inkOf(after).height() > 8);
        QCOMPARE(largestDifference(during, after), 0);
    }

    void theEditorIsOnThePlainInputColourInAnAccentOutline()
    {
        Editing e;
        e.store.updateSelectedElement([](SlideElement &element) {
            element.text->backgroundFill = RGBAColor{1, 0, 0, 1};
        });
        const QImage image = e.canvas->grab().toImage();
        const QRect editor = e.editor->geometry();
        const QColor accent = ZelvoTheme::dark().accent;
        QCOMPARE(image.pixelColor(editor.left() + 12, editor.top() + 12),
                 ZelvoTheme::dark().inputBackground);
        int outlined = 0;
        for (int y = editor.top(); y < editor.top() + 6; ++y)
            outlined += image.pixelColor(editor.center().x(), y) == accent ? 1 : 0;
        QVERIFY(outlined >= 1);
    }

    void lettersCanBeReadInBothSchemes_data()
    {
        QTest::addColumn<bool>("isDark");
        QTest::addColumn<RGBAColor>("letters");
        QTest::addColumn<QColor>("expected");
        const QColor dark = ZelvoTheme::dark().inputBackground;
        const QColor light = ZelvoTheme::light().inputBackground;
        QTest::newRow("white in the dark") << true << RGBAColor{1, 1, 1, 1} << dark;
        QTest::newRow("black in the light") << false << RGBAColor{0, 0, 0, 1} << light;
        QTest::newRow("amber in the light") << false << RGBAColor::amber << light;
        QTest::newRow("white in the light") << false << RGBAColor{1, 1, 1, 1} << dark;
        QTest::newRow("black in the dark") << true << RGBAColor{0, 0, 0, 1} << light;
    }

    void lettersCanBeReadInBothSchemes()
    {
        QFETCH(bool, isDark);
        QFETCH(RGBAColor, letters);
        QFETCH(QColor, expected);
        Editing e;
        applyTheme(isDark ? ZelvoTheme::dark() : ZelvoTheme::light());
        e.store.updateSelectedElement(
            [&](SlideElement &element) { element.text->textColor = letters; });
        QCOMPARE(e.editor->grab().toImage().pixelColor(12, 12), expected);
    }

    void theEditorStandsInTheLayersBoxAndFollowsIt()
    {
        Editing e;
        const auto box = [&] {
            const CanvasFrame frame = e.layer(lyric).frame;
            return QRect(e.pointOf({frame.x, frame.y}),
                         e.pointOf({frame.x + frame.width, frame.y + frame.height}));
        };
        const auto isThere = [&] {
            const QRect editor = e.editor->geometry();
            constexpr QMargins around(3, 3, 3, 3);
            return box().marginsAdded(around).contains(editor)
                && editor.contains(box().marginsRemoved(around));
        };
        QVERIFY(isThere());
        e.store.updateSelectedElement([](SlideElement &element) {
            element.frame = {100, 100, 700, 500};
        });
        QVERIFY(isThere());
        e.view.resize(1200, 900);
        QVERIFY(isThere());
        QVERIFY(e.editor->isVisible());
    }

    void aLayerOfAnySizeAndPlaceIsWrittenIn_data()
    {
        QTest::addColumn<CanvasFrame>("frame");
        QTest::newRow("nothing") << CanvasFrame{0, 0, 0, 0};
        for (const double number : {-1.0, 1e6, 1e9, 1e18, 1e300, -1e9, -1e300}) {
            QTest::addRow("far to the right, %g", number) << CanvasFrame{number, 0, 400, 300};
            QTest::addRow("far below, %g", number) << CanvasFrame{0, number, 400, 300};
            QTest::addRow("wide, %g", number) << CanvasFrame{0, 0, number, 300};
            QTest::addRow("high, %g", number) << CanvasFrame{0, 0, 400, number};
            QTest::addRow("everything, %g", number)
                << CanvasFrame{-number, -number, number, number};
        }
    }

    void aLayerOfAnySizeAndPlaceIsWrittenIn()
    {
        QFETCH(CanvasFrame, frame);
        Editing e;
        for (const double rotation : {0.0, 8.0}) {
            e.store.updateSelectedElement([&](SlideElement &element) {
                element.frame = frame;
                element.rotation = rotation;
            });
            e.view.grab();
            const QRect geometry = e.editor->geometry();
            QCOMPARE(reachableRect(geometry), geometry);
            e.type(Qt::Key_X);
        }
        QCOMPARE(e.text(), QStringLiteral("one twoxx"));
    }

    void whatIsSelectedIsSeen()
    {
        Editing e;
        const QImage before = e.editor->grab().toImage();
        e.type(Qt::Key_A, Qt::ControlModifier);
        QVERIFY(e.editor->grab().toImage() != before);
    }
};

QUENARA_GUI_TEST(TestCanvasTextLayerEditor)

} // namespace tst_canvas_text_layer_editor

#include "tst_canvas_text_layer_editor.moc"
