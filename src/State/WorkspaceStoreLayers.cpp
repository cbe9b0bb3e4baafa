#include "ImageFile.h"
#include "LayerEdits.h"
#include "WorkspaceStore.h"

namespace quenara {

void WorkspaceStore::addTextLayer(SlideElementKind kind)
{
    editProject([&](const WorkspaceState &state) { return edits::addTextLayer(state, kind); });
}

void WorkspaceStore::addShapeLayer()
{
    editProject(edits::addShapeLayer);
}

void WorkspaceStore::addImageLayerWithPanel()
{
    if (const std::optional<SlideMedia> image = imageFromPanel())
        addImageLayer(*image);
}

void WorkspaceStore::setBackgroundImageWithPanel()
{
    if (const std::optional<SlideMedia> image = imageFromPanel())
        setBackgroundImage(*image);
}

void WorkspaceStore::pasteLayer(const LayerClip &clip)
{
    editProject([&](const WorkspaceState &state) { return edits::pasteLayer(state, clip); });
}

void WorkspaceStore::pasteText(const QString &text)
{
    editProject([&](const WorkspaceState &state) { return edits::pasteText(state, text); });
}

void WorkspaceStore::addImageLayer(const SlideMedia &media)
{
    editProject([&](const WorkspaceState &state) { return edits::addImageLayer(state, media); });
}

void WorkspaceStore::placeImageLayer(const SlideMedia &media, const QPointF &middle)
{
    editProject(
        [&](const WorkspaceState &state) { return edits::placeImageLayer(state, media, middle); });
}

void WorkspaceStore::setBackgroundImage(const SlideMedia &media)
{
    editProject(
        [&](const WorkspaceState &state) { return edits::setBackgroundImage(state, media); });
}

/// Asks only if there is a slide to put an image on. Returns nothing if another slide is selected
/// once the operator has answered: the show may have gone on, and the image was not chosen for that
/// slide.
std::optional<SlideMedia> WorkspaceStore::imageFromPanel()
{
    const std::optional<QString> slideID = m_state.selectedSlideID;
    if (!slideWithID(slideID))
        return std::nullopt;
    const std::optional<QUrl> url = m_environment.panels.run(zelvoImageOpenPanel());
    return url && m_state.selectedSlideID == slideID ? imageFromFile(*url) : std::nullopt;
}

void WorkspaceStore::updateSelectedElement(const std::function<void(SlideElement &)> &update)
{
    editProject(
        [&](const WorkspaceState &state) { return edits::updateSelectedElement(state, update); },
        UndoStep::ofTheGesture);
}

void WorkspaceStore::duplicateSelectedElement()
{
    editProject(edits::duplicateSelectedElement);
}

void WorkspaceStore::deleteSelectedElement()
{
    editProject(edits::deleteSelectedElement);
}

void WorkspaceStore::centerSelectedElementHorizontally()
{
    editProject(edits::centerSelectedElementHorizontally);
}

void WorkspaceStore::centerSelectedElementVertically()
{
    editProject(edits::centerSelectedElementVertically);
}

void WorkspaceStore::bringSelectedElementForward()
{
    editProject(edits::bringSelectedElementForward);
}

void WorkspaceStore::sendSelectedElementBackward()
{
    editProject(edits::sendSelectedElementBackward);
}

} // namespace quenara
