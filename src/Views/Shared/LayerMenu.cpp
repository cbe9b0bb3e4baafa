#include "LayerMenu.h"

#include "ContextMenu.h"
#include "LayerEdits.h"
#include "WorkspaceStore.h"

#include <QMenu>

namespace quenara {

namespace {

/// Adds items that work on one layer.
class LayerItems
{
public:
    LayerItems(WorkspaceStore &store, const QString &layerID, QMenu &menu)
        : m_store(store), m_layerID(layerID), m_menu(menu)
    {}

    QAction *add(const char *title, void (WorkspaceStore::*operation)()) const
    {
        return addMenuItem(m_menu, QString::fromUtf8(title),
                           [&store = m_store, id = m_layerID, operation] {
                               if (isThere(store, id)) {
                                   store.selectElement(id);
                                   (store.*operation)();
                               }
                           });
    }

    void addSwitch(const char *title, bool SlideElement::*field, bool isOn) const
    {
        QAction *item = addMenuItem(
            m_menu, QString::fromUtf8(title), [&store = m_store, id = m_layerID, field, isOn] {
                if (isThere(store, id))
                    changeLayer(store, id, [&](SlideElement &layer) { layer.*field = !isOn; });
            });
        item->setCheckable(true);
        item->setChecked(isOn);
    }

private:
    static bool isThere(const WorkspaceStore &store, const QString &id)
    {
        const std::optional<Slide> slide = store.slideWithID(store.selectedSlideID());
        return slide && elementIndex(*slide, id);
    }

    WorkspaceStore &m_store;
    QString m_layerID;
    QMenu &m_menu;
};

} // namespace

QMenu *makeLayerMenu(WorkspaceStore &store, const SlideElement &layer, QWidget *parent)
{
    using Store = WorkspaceStore;
    const std::optional<Slide> slide = store.slideWithID(store.selectedSlideID());
    const CanvasSize canvas = slide ? slide->design.canvasSize : CanvasSize();
    QMenu *menu = makeContextMenu(parent);
    const LayerItems items(store, layer.id, *menu);
    items.add("Duplicate", &Store::duplicateSelectedElement);
    items.add("Delete", &Store::deleteSelectedElement);
    menu->addSeparator();
    items.add("Bring Forward", &Store::bringSelectedElementForward);
    items.add("Send Backward", &Store::sendSelectedElementBackward);
    menu->addSeparator();
    items.add("Center Horizontally", &Store::centerSelectedElementHorizontally)
        ->setEnabled(edits::centeredHorizontally(layer.frame, canvas) != layer.frame);
    items.add("Center Vertically", &Store::centerSelectedElementVertically)
        ->setEnabled(edits::centeredVertically(layer.frame, canvas) != layer.frame);
    menu->addSeparator();
    items.addSwitch("Show", &SlideElement::visible, layer.visible);
    items.addSwitch("Lock", &SlideElement::locked, layer.locked);
    return menu;
}

void changeLayer(WorkspaceStore &store, const QString &layerID,
                 const std::function<void(SlideElement &)> &update)
{
    store.selectElement(layerID);
    const GestureID change = store.beginGesture();
    store.updateSelectedElement(update);
    store.endGesture(change);
}

} // namespace quenara
