#include "LayerEdits.h"

#include "Identifier.h"
#include "SharedParts.h"
#include "Show.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace quenara::edits {

namespace {

using Elements = QList<SlideElement>;

bool isBelow(const SlideElement &a, const SlideElement &b)
{
    return a.zIndex < b.zIndex;
}

/// The next higher zIndex; the same if it is the highest there is, which documents may hold. A
/// layer that is appended to the list is drawn above others of the same zIndex.
std::int64_t above(std::int64_t zIndex)
{
    return zIndex == std::numeric_limits<std::int64_t>::max() ? zIndex : zIndex + 1;
}

std::int64_t below(std::int64_t zIndex)
{
    return zIndex == std::numeric_limits<std::int64_t>::min() ? zIndex : zIndex - 1;
}

void appendOnTop(Elements &elements, SlideElement layer)
{
    const auto highest = std::max_element(elements.cbegin(), elements.cend(), isBelow);
    layer.zIndex = above(highest == elements.cend() ? 0 : highest->zIndex);
    elements.append(std::move(layer));
}

Edited selecting(Edited edited, const std::optional<QString> &elementID)
{
    if (edited) {
        edited->selectedElementID = elementID;
        edited->lastSelected = SelectionKind::layer;
    }
    return edited;
}

Edited addLayer(WorkspaceState state, const SlideElement &layer)
{
    Edited edited = updateSelectedSlide(
        std::move(state), [&](Slide &slide) { appendOnTop(slide.design.elements, layer); });
    return selecting(std::move(edited), layer.id);
}

/// Lets \a change work on the design of the selected slide and the index of the selected layer.
Edited changeSelectedElement(WorkspaceState state,
                             const std::function<void(SlideDesign &, qsizetype)> &change)
{
    const auto position = positionOf(state.project, state.selectedSlideID);
    if (!position)
        return std::nullopt;
    const auto index = elementIndex(slideAt(state.project, *position), state.selectedElementID);
    if (!index)
        return std::nullopt;
    return updateSelectedSlide(std::move(state),
                               [&](Slide &slide) { change(slide.design, *index); });
}

/// Gives the selected layer the frame that \a centered makes of its own.
Edited centerSelectedElement(WorkspaceState state,
                             CanvasFrame (*centered)(const CanvasFrame &, const CanvasSize &))
{
    return changeSelectedElement(std::move(state), [&](SlideDesign &design, qsizetype index) {
        CanvasFrame &frame = design.elements[index].frame;
        frame = centered(frame, design.canvasSize);
    });
}

SlideElement newLayer(const QString &name, SlideElementKind kind, const CanvasFrame &frame)
{
    SlideElement layer;
    layer.id = newIdentifier();
    layer.name = name;
    layer.kind = kind;
    layer.frame = frame;
    return layer;
}

/// What a new text layer is called and says.
struct TextLayerWords
{
    QString name;
    QString text;
};

TextLayerWords textLayerWords(SlideElementKind kind)
{
    switch (kind) {
    case SlideElementKind::scriptureText:
        return {QStringLiteral("Scripture"), QStringLiteral("Scripture text")};
    case SlideElementKind::songLyricText:
        return {QStringLiteral("Lyric"), QStringLiteral("Lyric text")};
    case SlideElementKind::text:
    case SlideElementKind::image:
    case SlideElementKind::shape:
    case SlideElementKind::lowerThird:
        break;
    }
    return {QStringLiteral("Text"), QStringLiteral("New text")};
}

SlideElement textLayer(SlideElementKind kind, const QString &text)
{
    SlideElement layer = newLayer(textLayerWords(kind).name, kind, {360, 370, 1200, 240});
    layer.text = TextElementProperties::lyric(text);
    return layer;
}

SlideElement imageLayer(const SlideMedia &media, const CanvasFrame &frame)
{
    SlideElement layer = newLayer(QStringLiteral("Image"), SlideElementKind::image, frame);
    layer.image = media;
    return layer;
}

/// Moves a copy off what it was copied from.
void shift(SlideElement &copy)
{
    constexpr double offset = 42;
    copy.frame.x += offset;
    copy.frame.y += offset;
}

/// Whether nobody would see that \a layer is there: another one lies in its very place which, on
/// another slide than the one it was copied from, looks the same, too.
bool isHidden(const SlideElement &layer, const Elements &others, bool isSameSlide)
{
    return std::any_of(others.cbegin(), others.cend(), [&](const SlideElement &other) {
        if (other.frame != layer.frame)
            return false;
        SlideElement alike = layer;
        alike.id = other.id;
        alike.zIndex = other.zIndex;
        return isSameSlide || alike == other;
    });
}

} // namespace

Edited addTextLayer(WorkspaceState state, SlideElementKind kind)
{
    return addLayer(std::move(state), textLayer(kind, textLayerWords(kind).text));
}

Edited addShapeLayer(WorkspaceState state)
{
    SlideElement layer =
        newLayer(QStringLiteral("Shape"), SlideElementKind::shape, {420, 420, 1080, 190});
    layer.opacity = 0.55;
    layer.shape = ShapeProperties{.kind = ShapeKind::rectangle,
                                  .fill = {0, 0, 0, 0.45},
                                  .stroke = RGBAColor::amber,
                                  .strokeWidth = 0,
                                  .cornerRadius = 16};
    return addLayer(std::move(state), layer);
}

Edited addImageLayer(WorkspaceState state, const SlideMedia &media)
{
    return addLayer(std::move(state), imageLayer(media, {480, 270, 960, 540}));
}

Edited placeImageLayer(WorkspaceState state, const SlideMedia &media, const QPointF &middle)
{
    constexpr double width = 960;
    constexpr double height = 540;
    const auto position = positionOf(state.project, state.selectedSlideID);
    if (!position)
        return std::nullopt;
    const CanvasSize canvas = slideAt(state.project, *position).design.canvasSize;
    const auto start = [](double along, double length, double room) {
        return std::max(0.0, std::min(along - length / 2, room - length));
    };
    return addLayer(std::move(state),
                    imageLayer(media,
                               {start(middle.x(), width, canvas.width),
                                start(middle.y(), height, canvas.height), width, height}));
}

Edited pasteText(WorkspaceState state, const QString &text)
{
    return addLayer(std::move(state), textLayer(SlideElementKind::text, text));
}

Edited pasteLayer(WorkspaceState state, const LayerClip &clip)
{
    const auto position = positionOf(state.project, state.selectedSlideID);
    if (!position)
        return std::nullopt;
    const Slide &slide = slideAt(state.project, *position);
    SlideElement layer = clip.layer;
    if (const auto original = elementIndex(slide, layer.id))
        sharePartsWith(layer, slide.design.elements.at(*original));
    layer.id = newIdentifier();
    const bool isSameSlide = slide.id == clip.slideID;
    const Elements &others = slide.design.elements;
    for (qsizetype i = 0; i < others.size() && isHidden(layer, others, isSameSlide); ++i)
        shift(layer);
    return addLayer(std::move(state), layer);
}

Edited setBackgroundImage(WorkspaceState state, const SlideMedia &media)
{
    return updateSelectedSlide(std::move(state), [&](Slide &slide) {
        slide.design.background.kind = SlideBackgroundKind::image;
        slide.design.background.image = media;
    });
}

Edited updateSelectedElement(WorkspaceState state,
                             const std::function<void(SlideElement &)> &update)
{
    return changeSelectedElement(std::move(state), [&](SlideDesign &design, qsizetype index) {
        update(design.elements[index]);
    });
}

Edited duplicateSelectedElement(WorkspaceState state)
{
    const QString id = newIdentifier();
    Edited edited =
        changeSelectedElement(std::move(state), [&](SlideDesign &design, qsizetype index) {
            SlideElement copy = design.elements.at(index);
            copy.id = id;
            copy.name += QStringLiteral(" Copy");
            shift(copy);
            appendOnTop(design.elements, std::move(copy));
        });
    return selecting(std::move(edited), id);
}

Edited deleteSelectedElement(WorkspaceState state)
{
    std::optional<QString> lowest;
    Edited edited =
        changeSelectedElement(std::move(state), [&](SlideDesign &design, qsizetype index) {
            Elements &elements = design.elements;
            elements.removeAt(index);
            std::stable_sort(elements.begin(), elements.end(), isBelow);
            if (!elements.isEmpty())
                lowest = elements.first().id;
        });
    return selecting(std::move(edited), lowest);
}

CanvasFrame centeredHorizontally(const CanvasFrame &frame, const CanvasSize &canvas)
{
    return {canvas.width / 2 - frame.width / 2, frame.y, frame.width, frame.height};
}

CanvasFrame centeredVertically(const CanvasFrame &frame, const CanvasSize &canvas)
{
    return {frame.x, canvas.height / 2 - frame.height / 2, frame.width, frame.height};
}

Edited centerSelectedElementHorizontally(WorkspaceState state)
{
    return centerSelectedElement(std::move(state), centeredHorizontally);
}

Edited centerSelectedElementVertically(WorkspaceState state)
{
    return centerSelectedElement(std::move(state), centeredVertically);
}

Edited bringSelectedElementForward(WorkspaceState state)
{
    return updateSelectedElement(
        std::move(state), [](SlideElement &element) { element.zIndex = above(element.zIndex); });
}

Edited sendSelectedElementBackward(WorkspaceState state)
{
    return updateSelectedElement(
        std::move(state), [](SlideElement &element) { element.zIndex = below(element.zIndex); });
}

} // namespace quenara::edits
