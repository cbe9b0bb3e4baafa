#include "ColorWell.h"
#include "GuiTestSupport.h"
#include "ProgramWindows.h"
#include "SlideCanvas.h"
#include "ThemeColors.h"

#include <QFocusFrame>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

using namespace quenara;
using namespace quenara::test;

namespace tst_focus_ring {

namespace {

using Open = QWidget *(*)(ProgramWindows &program);

QWidget *openOperator(ProgramWindows &program)
{
    program.store.addTextLayer(SlideElementKind::text);
    return &program.operatorWindow;
}

QWidget *openOperatorOnShape(ProgramWindows &program)
{
    program.store.addShapeLayer();
    return &program.operatorWindow;
}

QWidget *openOperatorOnNothing(ProgramWindows &program)
{
    program.store.newBlankProject();
    return &program.operatorWindow;
}

QWidget *openStartPanel(ProgramWindows &program)
{
    program.store.showStartPanel();
    return QApplication::activeModalWidget();
}

QWidget *openSongImport(ProgramWindows &program)
{
    program.store.setSongImportPresented(true);
    return QApplication::activeModalWidget();
}

QWidget *openGoToSlide(ProgramWindows &program)
{
    program.commands.perform(Command::goToSlide);
    return QApplication::activeModalWidget();
}

QWidget *openSettings(ProgramWindows &program)
{
    program.settings.present();
    return &program.settings;
}

QWidget *openAlert(ProgramWindows &program)
{
    program.store.openProject(QUrl::fromLocalFile(QStringLiteral("/nowhere.quenara")));
    return QApplication::activeModalWidget();
}

QWidget *openColourDialog(ProgramWindows &program)
{
    program.store.addTextLayer(SlideElementKind::text);
    named<ColorWell>(program.operatorWindow, QStringLiteral("Text Color")).click();
    return QApplication::activeModalWidget();
}

constexpr std::pair<const char *, Open> windows[] = {
    {"the operator window with a text selected", openOperator},
    {"the operator window with a shape selected", openOperatorOnShape},
    {"the operator window without a slide", openOperatorOnNothing},
    {"the start panel", openStartPanel},
    {"the song import", openSongImport},
    {"the search for a slide", openGoToSlide},
    {"the settings", openSettings},
    {"an alert", openAlert},
    {"a colour dialog", openColourDialog},
};

QString titleOf(const QWidget &widget)
{
    return QStringLiteral("%1 \"%2\" ")
        .arg(QString::fromUtf8(widget.metaObject()->className()), nameOf(widget));
}

/// What the window shows in an area, everywhere unless one is given.
QImage imageOf(QWidget &window, const QRect &area = QRect(QPoint(0, 0), QSize(-1, -1)))
{
    return window.grab(area).toImage().convertToFormat(QImage::Format_RGB32);
}

/// Waits until the window has painted all, the thumbnails, too, which are made by and by.
void settle(QWidget &window)
{
    QApplication::setCursorFlashTime(0);
    QImage before;
    for (QImage now = imageOf(window); now != before; now = imageOf(window)) {
        before = now;
        QCoreApplication::processEvents();
    }
}

/// The same while \a ring is not there.
QImage imageWithout(QWidget &ring, QWidget &window, const QRect &area)
{
    ring.hide();
    QImage image = imageOf(window, area);
    ring.show();
    return image;
}

/// An area of the window in which lies all that a ring may paint, and what it stands out from.
QRect surroundingsOf(const QWidget &ring, const QWidget &window)
{
    constexpr int fewPoints = 20;
    return QRect(ring.mapTo(&window, QPoint()), ring.size())
               .adjusted(-fewPoints, -fewPoints, fewPoints, fewPoints)
        & window.rect();
}

/// The smallest rectangle around all that differs.
QRect changeBetween(const QImage &before, const QImage &after)
{
    QRect change;
    for (int y = 0; y < after.height(); ++y) {
        const auto *from = reinterpret_cast<const QRgb *>(before.constScanLine(y));
        const auto *to = reinterpret_cast<const QRgb *>(after.constScanLine(y));
        if (std::equal(to, to + after.width(), from))
            continue;
        for (int x = 0; x < after.width(); ++x) {
            if (from[x] != to[x])
                change |= QRect(x, y, 1, 1);
        }
    }
    return change;
}

/// The width in pixels of the widest line near \a start that stands out by 3:1 from what lies on
/// either side, looked for in the direction of \a step.
int lineWidthFrom(const QImage &image, QPoint start, const QPoint &step)
{
    constexpr int fewPixels = 8;
    constexpr double enough = 3;
    int widest = 0;
    for (int i = 0; i < fewPixels; ++i, start += step) {
        const QPoint before = start - step;
        QPoint behind = start;
        while (image.valid(behind) && image.pixel(behind) == image.pixel(start))
            behind += step;
        if (!image.valid(before) || !image.valid(start) || !image.valid(behind))
            continue;
        const QColor line = image.pixelColor(start);
        if (contrast(line, image.pixelColor(before)) >= enough
            && contrast(line, image.pixelColor(behind)) >= enough)
            widest = std::max(widest, (behind - start).manhattanLength());
    }
    return widest;
}

/// Describes what lacks of a ring of two points around \a frame; empty if nothing does.
QString lackOfRing(const QImage &image, const QRect &frame)
{
    if (frame.isEmpty())
        return QStringLiteral("nothing shows");
    const QPoint middle = frame.center();
    const std::tuple<const char *, QPoint, QPoint> sides[] = {
        {"left", {frame.left() - 2, middle.y()}, {1, 0}},
        {"right", {frame.right() + 2, middle.y()}, {-1, 0}},
        {"top", {middle.x(), frame.top() - 2}, {0, 1}},
        {"bottom", {middle.x(), frame.bottom() + 2}, {0, -1}},
    };
    for (const auto &[side, start, step] : sides) {
        const int width = lineWidthFrom(image, start, step);
        if (width < 2)
            return QStringLiteral("%1 points at the %2").arg(width).arg(QString::fromUtf8(side));
    }
    return {};
}

/// How many lines of the accent colour lie one after the other at the left side of \a frame.
int accentLinesAt(const QImage &image, const QRect &frame)
{
    constexpr int depth = 12;
    constexpr int widest = 3; // what is wider is no line
    const int y = frame.top() + frame.height() / 3; // beside what stands in the middle
    const QRgb accent = themeOf(*QApplication::activeWindow()).accent.rgb();
    int lines = 0;
    int width = 0;
    for (int x = frame.left(); x < frame.left() + depth; ++x) {
        if (image.pixel(x, y) == accent) {
            ++width;
        } else {
            lines += width > 0 && width <= widest;
            width = 0;
        }
    }
    return lines;
}

bool isReachable(const QWidget &widget)
{
    return widget.isVisible() && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus)
        && !widget.focusProxy();
}

} // namespace

class TestFocusRing : public GuiTest
{
    Q_OBJECT

private slots:
    void whatTabReachesHasARing_data()
    {
        QTest::addColumn<ColorScheme>("scheme");
        QTest::addColumn<Open>("open");
        for (const ColorScheme scheme : {ColorScheme::dark, ColorScheme::light}) {
            for (const auto &[name, open] : windows) {
                QTest::addRow("%s, %s", name, scheme == ColorScheme::dark ? "dark" : "light")
                    << scheme << open;
            }
        }
    }

    void whatTabReachesHasARing()
    {
        QFETCH(ColorScheme, scheme);
        QFETCH(Open, open);
        ProgramWindows program;
        applyTheme(ZelvoTheme::current(scheme));
        QWidget *window = open(program);
        ProgramWindows::activate(*window);
        settle(*window);
        QWidgetList reached;
        constexpr int mostStops = 200;
        for (int i = 0; i < mostStops; ++i) {
            QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
            QWidget *focused = QApplication::focusWidget();
            QVERIFY(focused);
            if (reached.contains(focused) && focused != reached.constLast())
                break;
            if (!reached.contains(focused))
                reached.append(focused);
            QCoreApplication::processEvents();
            auto *ring = window->findChild<QFocusFrame *>();
            QVERIFY2(ring && ring->isVisible(), qPrintable(titleOf(*focused)));
            const QRect area = surroundingsOf(*ring, *window);
            const QImage with = imageOf(*window, area);
            const QImage without = imageWithout(*ring, *window, area);
            const QRect change = changeBetween(without, with);
            const QString lack = lackOfRing(with, change);
            QVERIFY2(lack.isEmpty(), qPrintable(titleOf(*focused) + lack));
            // What is selected on the canvas has an outline of its own.
            QVERIFY2(qobject_cast<SlideCanvas *>(focused) || accentLinesAt(with, change) == 1,
                     qPrintable(titleOf(*focused)));
        }
        QStringList missed;
        for (const QWidget *widget : window->findChildren<QWidget *>()) {
            if (widget->window() == window && isReachable(*widget)
                && !reached.contains(const_cast<QWidget *>(widget)))
                missed.append(titleOf(*widget));
        }
        QCOMPARE(missed, QStringList());
    }

    void whatTabComesToFromBesideIsScrolledIntoSight_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<QString>("to");
        QTest::newRow("backwards to the end")
            << QStringLiteral("Previous") << Qt::Key_Backtab << QStringLiteral("Shadow");
        QTest::newRow("forwards to the start")
            << QStringLiteral("Image") << Qt::Key_Tab << QStringLiteral("Title");
    }

    void whatTabComesToFromBesideIsScrolledIntoSight()
    {
        QFETCH(QString, from);
        QFETCH(Qt::Key, key);
        QFETCH(QString, to);
        ProgramWindows program;
        QWidget *window = openOperator(program);
        window->resize(window->minimumSize());
        auto *area = window->findChild<QScrollArea *>();
        QTRY_VERIFY(area->verticalScrollBar()->maximum() > 200);
        if (key == Qt::Key_Tab)
            area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
        named(*window, from).setFocus(Qt::TabFocusReason);
        constexpr int mostLayers = 20; // which Tab goes through on its way
        for (int i = 0; i < mostLayers && !area->isAncestorOf(QApplication::focusWidget()); ++i) {
            ProgramWindows::press(*window, key,
                                  key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        }
        const QWidget *reached = QApplication::focusWidget();
        QCOMPARE(nameOf(*reached), to);
        QCOMPARE(reached->visibleRegion(), QRegion(reached->rect()));
    }

    void aClickOnTheRundownOrTheCanvasShowsNoRingAndTabDoes()
    {
        ProgramWindows program;
        QWidget &list = named(program.operatorWindow, QStringLiteral("Rundown"));
        for (QWidget *clicked :
             {list.findChild<QWidget *>(QStringLiteral("qt_scrollarea_viewport")),
              static_cast<QWidget *>(program.operatorWindow.findChild<SlideCanvas *>())}) {
            QTest::mouseClick(clicked, Qt::LeftButton);
            QVERIFY(!isRingShown(program));
            QTest::keyClick(program.operatorWindow.windowHandle(), Qt::Key_Tab);
            QVERIFY(isRingShown(program));
        }
    }

    void theRingOfALayerLeavesItsResizeHandleInSight()
    {
        ProgramWindows program;
        program.store.addTextLayer(SlideElementKind::text);
        const CanvasFrame frame = program.store.selectedElement()->frame;
        auto *canvas = program.operatorWindow.findChild<SlideCanvas *>();
        canvas->setFocus(Qt::TabFocusReason);
        QTest::keyClick(program.operatorWindow.windowHandle(), Qt::Key_Tab);
        settle(program.operatorWindow);
        QVERIFY(isRingShown(program));
        const double scale = canvas->slideRect().width() / CanvasSize().width;
        const QPointF corner = canvas->slideRect().topLeft()
            + QPointF(frame.x + frame.width, frame.y + frame.height) * scale;
        QRectF handle(0, 0, 12, 12);
        handle.moveCenter(corner);
        const QRect area(canvas->mapTo(&program.operatorWindow, handle.toAlignedRect().topLeft()),
                         handle.toAlignedRect().size());
        auto *ring = program.operatorWindow.findChild<QFocusFrame *>();
        QCOMPARE(imageOf(program.operatorWindow, area),
                 imageWithout(*ring, program.operatorWindow, area));
    }

    void theRingOfALayerThatReachesBeyondTheCanvasStaysOnIt_data()
    {
        QTest::addColumn<CanvasFrame>("frame");
        QTest::newRow("to the left") << CanvasFrame{-1500, 100, 1800, 200};
        QTest::newRow("on all sides") << CanvasFrame{-2000, -2000, 6000, 6000};
        QTest::newRow("wholly") << CanvasFrame{-9000, 100, 300, 200};
        QTest::newRow("by more than any screen") << CanvasFrame{-1e15, 100, 2e15, 200};
    }

    void theRingOfALayerThatReachesBeyondTheCanvasStaysOnIt()
    {
        QFETCH(CanvasFrame, frame);
        ProgramWindows program;
        program.store.addTextLayer(SlideElementKind::text);
        program.store.updateSelectedElement([&frame](SlideElement &layer) { layer.frame = frame; });
        auto *canvas = program.operatorWindow.findChild<SlideCanvas *>();
        canvas->setFocus(Qt::TabFocusReason);
        QTest::keyClick(program.operatorWindow.windowHandle(), Qt::Key_Tab);
        QCoreApplication::processEvents();
        QVERIFY(isRingShown(program));
        const auto *ring = program.operatorWindow.findChild<QFocusFrame *>();
        const QRect area(canvas->mapTo(&program.operatorWindow, QPoint()), canvas->size());
        QVERIFY(area.adjusted(-3, -3, 3, 3).contains(ring->geometry()));
    }

    void aFieldThatIsClickedHasARing()
    {
        ProgramWindows program;
        QTest::mouseClick(&named(program.operatorWindow, QStringLiteral("Title")), Qt::LeftButton);
        QVERIFY(isRingShown(program));
        QTest::keyClick(program.operatorWindow.windowHandle(), Qt::Key_Escape);
        QVERIFY(!isRingShown(program));
    }

    void theRingGoesWithTheKeyboardAndComesBackWithIt()
    {
        ProgramWindows program;
        QTest::keyClick(program.operatorWindow.windowHandle(), Qt::Key_Tab);
        program.openStage();
        ProgramWindows::activate(*program.windows.stageWindow());
        QVERIFY(!isRingShown(program));
        ProgramWindows::activate(program.operatorWindow);
        QVERIFY(isRingShown(program));
    }

private:
    static bool isRingShown(const ProgramWindows &program)
    {
        const auto *ring = program.operatorWindow.findChild<QFocusFrame *>();
        return ring && ring->isVisible();
    }
};

QUENARA_GUI_TEST(TestFocusRing)

} // namespace tst_focus_ring

#include "tst_focus_ring.moc"
