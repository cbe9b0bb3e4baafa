#include "CanvasAccessible.h"

#include "AccessibleControls.h"
#include "AccessibleItem.h"
#include "SlideCanvas.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

namespace quenara {

namespace {

/// A layer on the canvas. It stays the same interface however the layer changes.
class LayerInterface : public AccessibleItem
{
public:
    LayerInterface(SlideCanvas &canvas, const QString &id)
        : AccessibleItem(canvas), m_canvas(&canvas), m_id(id)
    {}

    const QString &id() const { return m_id; }
    bool isValid() const override { return layer(); }

    QString text(QAccessible::Text kind) const override
    {
        const SlideElement *layer = this->layer();
        if (layer && kind == QAccessible::Name)
            return layer->name;
        return layer && kind == QAccessible::Description ? describedLayer(*layer) : QString();
    }

    QRect rect() const override
    {
        const SlideElement *layer = this->layer();
        return layer ? m_canvas->boxOf(*layer).toRect().translated(m_canvas->mapToGlobal(QPoint()))
                     : QRect();
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        const SlideElement *layer = this->layer();
        if (!layer) {
            state.invalid = true;
            return state;
        }
        state.selectable = true;
        state.selected = m_canvas->isSelected(*layer);
        state.focusable = true;
        state.focused = m_canvas->hasFocus() && m_canvas->isFocused(*layer);
        state.invisible = !m_canvas->isVisible();
        state.offscreen = !m_canvas->boxOf(*layer).intersects(m_canvas->rect());
        return state;
    }

    void press() const override
    {
        clickSoon(*m_canvas, [canvas = m_canvas, id = m_id] { canvas->chooseLayer(id); });
    }

    bool hasMenu() const override { return true; }

protected:
    void takeFocus() const override
    {
        m_canvas->setFocus(Qt::OtherFocusReason);
        m_canvas->focusLayer(m_id);
    }

    void showMenu() const override
    {
        clickSoon(*m_canvas, [canvas = m_canvas, id = m_id] { canvas->openMenu(id); });
    }

private:
    const SlideElement *layer() const { return m_canvas ? m_canvas->layer(m_id) : nullptr; }

    QPointer<SlideCanvas> m_canvas;
    QString m_id;
};

class CanvasInterface : public QAccessibleWidget
{
public:
    explicit CanvasInterface(SlideCanvas &canvas)
        : QAccessibleWidget(&canvas, QAccessible::Canvas), m_canvas(canvas)
    {}

    int childCount() const override
    {
        return int(m_canvas.layersFromTop().size()) + QAccessibleWidget::childCount();
    }

    /// The layers come first, then the widgets that lie over them.
    QAccessibleInterface *child(int index) const override
    {
        const std::vector<const SlideElement *> layers = m_canvas.layersFromTop();
        const int layerCount = int(layers.size());
        if (index < 0 || index >= layerCount)
            return QAccessibleWidget::child(index - layerCount);
        return interfaceOf(layers.at(std::size_t(index))->id);
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        const std::vector<const SlideElement *> layers = m_canvas.layersFromTop();
        const auto *item = dynamic_cast<const LayerInterface *>(child);
        if (!item) {
            const int place = QAccessibleWidget::indexOfChild(child);
            return place < 0 ? place : place + int(layers.size());
        }
        for (std::size_t i = 0; i < layers.size(); ++i) {
            if (layers[i]->id == item->id())
                return int(i);
        }
        return -1;
    }

    QAccessibleInterface *childAt(int x, int y) const override
    {
        const SlideElement *layer = m_canvas.layerUnder(m_canvas.mapFromGlobal(QPoint(x, y)));
        return layer ? interfaceOf(layer->id) : QAccessibleWidget::childAt(x, y);
    }

    QAccessibleInterface *focusChild() const override
    {
        for (const SlideElement *layer : m_canvas.layersFromTop()) {
            if (m_canvas.hasFocus() && m_canvas.isFocused(*layer))
                return interfaceOf(layer->id);
        }
        return QAccessibleWidget::focusChild();
    }

protected:
    ~CanvasInterface() override
    {
        for (const QAccessible::Id id : std::as_const(m_layers))
            QAccessible::deleteAccessibleInterface(id);
    }

private:
    QAccessibleInterface *interfaceOf(const QString &layerID) const
    {
        if (!m_layers.contains(layerID)) {
            forgetGoneLayers();
            m_layers.insert(
                layerID,
                QAccessible::registerAccessibleInterface(new LayerInterface(m_canvas, layerID)));
        }
        return QAccessible::accessibleInterface(m_layers.value(layerID));
    }

    void forgetGoneLayers() const
    {
        erase_if(m_layers, [this](const auto &entry) {
            const bool isGone = !m_canvas.layer(entry.key());
            if (isGone)
                QAccessible::deleteAccessibleInterface(entry.value());
            return isGone;
        });
    }

    SlideCanvas &m_canvas;
    mutable QHash<QString, QAccessible::Id> m_layers; ///< those that were asked for, by their ids
};

QAccessibleInterface *accessibleCanvas(const QString & /*className*/, QObject *object)
{
    auto *canvas = qobject_cast<SlideCanvas *>(object);
    return canvas ? new CanvasInterface(*canvas) : nullptr;
}

} // namespace

void makeCanvasAccessible()
{
    QAccessible::installFactory(accessibleCanvas); // Qt keeps it once, however often it is called
}

} // namespace quenara
