#pragma once

#include "CanvasTextLayerEditor.h"
#include "CommandWorld.h"
#include "DesignCanvasView.h"
#include "GuiTestSupport.h"
#include "RenderCaches.h"
#include "SlideCanvas.h"
#include "SymbolButton.h"

namespace quenara::test {

/// A design canvas in a window of its own, shown.
struct DesignCanvas
{
    CommandWorld world;
    WorkspaceStore &store = world.store;
    RenderCaches caches;
    DesignCanvasView view{store, world.commands, caches};
    SlideCanvas *canvas = view.findChild<SlideCanvas *>();
    CanvasTextLayerEditor *editor = view.findChild<CanvasTextLayerEditor *>();

    explicit DesignCanvas(const ZelvoProject &project = showOf({2}),
                          const Caller &caller = Caller::current())
        : world(project)
    {
        applyTheme(ZelvoTheme::dark());
        view.resize(854, 664);
        showActive(view, caller);
    }

    SymbolButton *button(const QString &title, const Caller &caller = Caller::current()) const
    {
        return &named<SymbolButton>(view, title, caller);
    }

    Slide slide() const { return *store.slideWithID(store.selectedSlideID()); }

    SlideElement layer(const QString &id, const Caller &caller = Caller::current()) const
    {
        for (const SlideElement &element : slide().design.elements) {
            if (element.id == id)
                return element;
        }
        fail(QStringLiteral("there is no layer \"%1\"").arg(id), caller);
    }

    double scale() const { return canvas->slideRect().width() / slide().design.canvasSize.width; }

    /// Where a point of the slide, in canvas units, is on the canvas.
    QPoint pointOf(const QPointF &point) const
    {
        return (canvas->slideRect().topLeft() + point * scale()).toPoint();
    }

    QPoint middleOf(const QString &layerID) const
    {
        const CanvasFrame frame = layer(layerID).frame;
        return pointOf({frame.midX(), frame.midY()});
    }

    QPoint handleOf(const QString &layerID) const
    {
        const CanvasFrame frame = layer(layerID).frame;
        return pointOf({frame.x + frame.width, frame.y + frame.height});
    }

    void press(const QPoint &point) const
    {
        QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, point);
    }
    void moveTo(const QPoint &point) const { QTest::mouseMove(canvas, point); }
    void release(const QPoint &point) const
    {
        QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, point);
    }
    void click(const QPoint &point) const
    {
        QTest::mouseClick(canvas, Qt::LeftButton, Qt::NoModifier, point);
    }
    void drag(const QPoint &from, const QPoint &to) const
    {
        press(from);
        moveTo((from + to) / 2);
        moveTo(to);
        release(to);
    }

    /// Selects the layer and opens its text.
    void edit(const QString &layerID) const
    {
        QTest::mouseDClick(canvas, Qt::LeftButton, Qt::NoModifier, middleOf(layerID));
    }

    QImage image() { return view.grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

} // namespace quenara::test
