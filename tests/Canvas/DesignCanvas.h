#pragma once

#include "CanvasTextLayerEditor.h"
#include "CommandWorld.h"
#include "DesignCanvasView.h"
#include "GuiTestSupport.h"
#include "InterfaceStyle.h"
#include "PictureCache.h"
#include "SlideCanvas.h"
#include "SymbolButton.h"

namespace quenara::test {

/// A design canvas in a window of its own, shown.
struct DesignCanvas
{
    CommandWorld world;
    WorkspaceStore &store = world.store;
    PictureCache pictures;
    DesignCanvasView view{store, world.commands, pictures};
    SlideCanvas *canvas = view.findChild<SlideCanvas *>();
    CanvasTextLayerEditor *editor = view.findChild<CanvasTextLayerEditor *>();

    DesignCanvas() : DesignCanvas(showOf({2})) {}
    explicit DesignCanvas(const ZelvoProject &project) : world(project) { setUp(); }

    static void setTheme(const ZelvoTheme &theme)
    {
        QApplication::setPalette(interfacePalette(theme));
        qApp->setStyleSheet(interfaceStyleSheet(theme));
    }

    SymbolButton *button(const QString &title) const
    {
        for (auto *button : view.findChildren<SymbolButton *>()) {
            if (button->text() == title)
                return button;
        }
        qFatal("there is no button %s", qPrintable(title));
    }

    Slide slide() const { return *store.slideWithID(store.selectedSlideID()); }

    SlideElement layer(const QString &id) const
    {
        for (const SlideElement &element : slide().design.elements) {
            if (element.id == id)
                return element;
        }
        qFatal("there is no layer %s", qPrintable(id));
    }

    double scale() const { return canvas->slideRect().width() / slide().design.canvasSize.width; }

    /// Of a point in canvas units.
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

    QImage picture() { return view.grab().toImage().convertToFormat(QImage::Format_RGB32); }

private:
    void setUp()
    {
        setTheme(ZelvoTheme::dark());
        view.resize(854, 664);
        view.show();
        view.activateWindow();
        if (!QTest::qWaitForWindowActive(&view))
            qFatal("the view does not become active");
    }
};

} // namespace quenara::test
