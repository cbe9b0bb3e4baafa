#include "RundownEdits.h"

#include "Identifier.h"
#include "ProjectNormalizer.h"
#include "ProjectTemplates.h"
#include "SharedParts.h"
#include "Show.h"
#include "SongImportService.h"

#include <algorithm>
#include <utility>

namespace quenara::edits {

namespace {

/// True if \a delta, however large, leads from one index below \a count to another.
bool isStepWithin(qsizetype count, qsizetype from, qsizetype delta)
{
    return delta >= -from && delta < count - from;
}

Slide newSlide(ServiceItemType type, std::int64_t orderIndex)
{
    return ProjectTemplates::slide(QStringLiteral("New Slide"), QString(), orderIndex,
                                   ProjectTemplates::defaultTemplate(type));
}

/// Its place is that which the store gives it.
ServiceItem newSection(ServiceItemType type, const Slide &slide)
{
    return {.id = newIdentifier(),
            .title = type == ServiceItemType::custom ? QStringLiteral("New Section") : title(type),
            .type = type,
            .orderIndex = 0,
            .subtitle = std::nullopt,
            .slides = {slide}};
}

/// The slide as one of its own, layers included. What it says elsewhere follows its design.
Slide withNewIdentifiers(Slide slide)
{
    slide.id = newIdentifier();
    for (SlideElement &layer : slide.design.elements)
        layer.id = newIdentifier();
    slide.body = ProjectNormalizer::compatibilityBody(slide);
    return slide;
}

std::optional<QString> firstSlideID(const ServiceItem &item)
{
    return item.slides.isEmpty() ? std::nullopt : std::optional(item.slides.first().id);
}

void selectAndQueue(WorkspaceState &state, const std::optional<QString> &slideID)
{
    state.selectedSlideID = slideID;
    state.queuedSlideID = slideID;
    state.lastSelected = SelectionKind::slide;
}

QList<Slide> &slidesForWriting(WorkspaceState &state, const SlidePosition &position)
{
    return state.project.serviceItems[position.item].slides;
}

/// Appends \a item; it and its first slide, if it has one, are selected, the slide queued.
WorkspaceState appended(WorkspaceState state, const ServiceItem &item)
{
    state.project.serviceItems.append(item);
    state.selectedServiceItemID = item.id;
    selectAndQueue(state, firstSlideID(item));
    return state;
}

Edited changeSelectedSlide(WorkspaceState state, const std::function<void(Slide &)> &change)
{
    const auto position = positionOf(state.project, state.selectedSlideID);
    if (!position)
        return std::nullopt;
    change(slidesForWriting(state, *position)[position->slide]);
    return state;
}

} // namespace

Edited renameProject(WorkspaceState state, const QString &name)
{
    state.project.name = name;
    return state;
}

Edited addServiceItem(WorkspaceState state, ServiceItemType type)
{
    return appended(std::move(state), newSection(type, newSlide(type, 0)));
}

Edited importSong(WorkspaceState state, const QString &title, const QString &lyrics)
{
    const ServiceItem song =
        SongImportService::serviceItem(title, lyrics, state.project.serviceItems.size());
    return appended(std::move(state), song);
}

Edited updateServiceItem(WorkspaceState state, const QString &id,
                         const std::function<void(ServiceItem &)> &update)
{
    if (const auto index = itemIndex(state.project, id))
        update(state.project.serviceItems[*index]);
    return state;
}

Edited deleteSelectedServiceItem(WorkspaceState state)
{
    if (!state.selectedServiceItemID)
        return std::nullopt;
    state.project.serviceItems.removeIf(
        [&](const ServiceItem &item) { return item.id == state.selectedServiceItemID; });

    const QList<ServiceItem> &items = std::as_const(state.project).serviceItems;
    state.selectedServiceItemID = items.isEmpty() ? std::nullopt : std::optional(items.first().id);
    selectAndQueue(state, items.isEmpty() ? std::nullopt : firstSlideID(items.first()));
    if (!state.liveSlideID)
        state.liveSlideID = state.selectedSlideID;
    return state;
}

Edited moveSelectedServiceItem(WorkspaceState state, qsizetype delta)
{
    const auto from = itemIndex(state.project, state.selectedServiceItemID);
    if (!from || !isStepWithin(state.project.serviceItems.size(), *from, delta))
        return std::nullopt;
    state.project.serviceItems.swapItemsAt(*from, *from + delta);
    return state;
}

Edited moveServiceItem(WorkspaceState state, const QString &id, qsizetype toPosition)
{
    const auto from = itemIndex(state.project, id);
    if (!from || *from == toPosition || toPosition < 0
        || toPosition >= state.project.serviceItems.size())
        return std::nullopt;
    const ServiceItem item = state.project.serviceItems.takeAt(*from);
    state.project.serviceItems.insert(toPosition, item);
    return state;
}

Edited addSlide(WorkspaceState state)
{
    const auto index = state.selectedServiceItemID || state.project.serviceItems.isEmpty()
        ? itemIndex(state.project, state.selectedServiceItemID)
        : 0;
    if (!index)
        return addServiceItem(std::move(state), ServiceItemType::custom);
    ServiceItem &item = state.project.serviceItems[*index];
    const Slide slide = newSlide(item.type, item.slides.size());
    item.slides.append(slide);
    state.selectedServiceItemID = item.id;
    selectAndQueue(state, slide.id);
    return state;
}

Edited pasteSlide(WorkspaceState state, const SlideClip &clip)
{
    Slide slide = clip.slide;
    if (const auto original = positionOf(state.project, slide.id))
        sharePartsWith(slide, slideAt(state.project, *original));
    slide = withNewIdentifiers(std::move(slide));
    const auto selected = positionOf(state.project, state.selectedSlideID);
    const auto section = itemIndex(state.project, state.selectedServiceItemID);
    if (selected && (!section || *section == selected->item)) {
        slidesForWriting(state, *selected).insert(selected->slide + 1, slide);
    } else if (!state.project.serviceItems.isEmpty()) {
        ServiceItem &item = state.project.serviceItems[section.value_or(0)];
        item.slides.append(slide);
        state.selectedServiceItemID = item.id;
    } else {
        return appended(std::move(state), newSection(ServiceItemType::custom, slide));
    }
    selectAndQueue(state, slide.id);
    return state;
}

Edited duplicateSelectedSlide(WorkspaceState state)
{
    const auto position = positionOf(state.project, state.selectedSlideID);
    if (!position)
        return std::nullopt;
    Slide copy = slideAt(state.project, *position);
    copy.id = newIdentifier();
    copy.title += QStringLiteral(" Copy");
    slidesForWriting(state, *position).insert(position->slide + 1, copy);
    selectAndQueue(state, copy.id);
    return state;
}

Edited deleteSelectedSlide(WorkspaceState state)
{
    const auto position = positionOf(state.project, state.selectedSlideID);
    if (!position)
        return std::nullopt;
    const bool wasLive = state.liveSlideID == state.selectedSlideID;
    QList<Slide> &slides = slidesForWriting(state, *position);
    slides.removeAt(position->slide);
    const std::optional<QString> successor = slides.isEmpty()
        ? firstSlideID(state.project)
        : std::optional(slides.at(std::min(position->slide, slides.size() - 1)).id);
    selectAndQueue(state, successor);
    if (wasLive)
        state.liveSlideID = successor;
    return state;
}

Edited moveSelectedSlide(WorkspaceState state, qsizetype delta)
{
    if (!state.selectedSlideID)
        return std::nullopt;
    if (const auto position = positionOf(state.project, state.selectedSlideID)) {
        const qsizetype count = state.project.serviceItems.at(position->item).slides.size();
        const qsizetype from = position->slide;
        if (isStepWithin(count, from, delta))
            slidesForWriting(state, *position).swapItemsAt(from, from + delta);
    }
    return state;
}

Edited moveSlide(WorkspaceState state, const QString &id, const QString &toServiceItemID,
                 qsizetype toPosition)
{
    const auto from = positionOf(state.project, id);
    const auto to = itemIndex(state.project, toServiceItemID);
    if (!from || !to)
        return std::nullopt;
    const bool isSameItem = *to == from->item;
    const qsizetype others =
        state.project.serviceItems.at(*to).slides.size() - (isSameItem ? 1 : 0);
    if (toPosition < 0 || toPosition > others || (isSameItem && toPosition == from->slide))
        return std::nullopt;
    const Slide slide = slidesForWriting(state, *from).takeAt(from->slide);
    state.project.serviceItems[*to].slides.insert(toPosition, slide);
    return state;
}

bool canStepSlide(const ZelvoProject &project, const SlidePosition &position, int step)
{
    const qsizetype item = position.item + step;
    return isStepWithin(project.serviceItems.at(position.item).slides.size(), position.slide, step)
        || (item >= 0 && item < project.serviceItems.size());
}

Edited stepSelectedSlide(WorkspaceState state, int step)
{
    const auto position = positionOf(state.project, state.selectedSlideID);
    if (!position || !canStepSlide(state.project, *position, step))
        return std::nullopt;
    const QList<ServiceItem> &items = std::as_const(state.project).serviceItems;
    const QString id = *state.selectedSlideID;
    if (isStepWithin(items.at(position->item).slides.size(), position->slide, step)) {
        const QString own = items.at(position->item).id;
        return moveSlide(std::move(state), id, own, position->slide + step);
    }
    const ServiceItem neighbor = items.at(position->item + step);
    return moveSlide(std::move(state), id, neighbor.id, step < 0 ? neighbor.slides.size() : 0);
}

Edited updateSelectedSlide(WorkspaceState state, const std::function<void(Slide &)> &update)
{
    return changeSelectedSlide(std::move(state), [&](Slide &slide) {
        update(slide);
        slide.body = ProjectNormalizer::compatibilityBody(slide);
    });
}

void retitle(Slide &slide, const QString &title)
{
    slide.title = title;
    const QList<SlideElement> &layers = std::as_const(slide.design.elements);
    const auto titleLayer =
        std::find_if(layers.begin(), layers.end(), [](const SlideElement &layer) {
            return layer.text && layer.name.toLower().contains(QLatin1String("title"));
        });
    if (titleLayer != layers.end())
        slide.design.elements[titleLayer - layers.begin()].text->text = title;
    slide.body = ProjectNormalizer::compatibilityBody(slide);
}

Edited applyTemplateToSelectedSlide(WorkspaceState state, const QString &templateID)
{
    std::optional<QString> elementID;
    Edited edited = changeSelectedSlide(std::move(state), [&](Slide &slide) {
        slide.design = ProjectTemplates::design(templateID, slide.title, slide.body, slide.footer,
                                                slide.image);
        elementID = slide.design.firstTextElementID();
    });
    if (edited)
        edited->selectedElementID = elementID;
    return edited;
}

} // namespace quenara::edits
