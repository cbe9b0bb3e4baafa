#include "SelectionBindings.h"

#include <utility>

namespace quenara {

SelectionBindings::SelectionBindings(WorkspaceStore &store, QObject *parent)
    : QObject(parent), m_store(store), m_slide(store.slideWithID(store.selectedSlideID())),
      m_layer(store.selectedElement())
{
    connect(&store, &WorkspaceStore::changed, this, &SelectionBindings::readStore);
}

void SelectionBindings::readStore()
{
    std::optional<Slide> slide = m_store.slideWithID(m_store.selectedSlideID());
    std::optional<SlideElement> layer = m_store.selectedElement();
    const auto idOf = [](const auto &record) {
        return record ? std::optional(record->id) : std::nullopt;
    };
    const bool isAboutTheSame = idOf(slide) == idOf(m_slide) && idOf(layer) == idOf(m_layer);
    m_slide = std::move(slide);
    m_layer = std::move(layer);
    if (!isAboutTheSame)
        m_controls.endEditing();
    m_controls.show();
    emit changed();
}

} // namespace quenara
