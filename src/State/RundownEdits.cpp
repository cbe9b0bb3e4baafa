#include "RundownEdits.h"

#include "Identifier.h"
#include "ProjectNormalizer.h"
#include "ProjectTemplates.h"
#include "Show.h"

#include <algorithm>
#include <utility>

namespace quenara::edits {

namespace {

constexpr qsizetype notFound = -1;

qsizetype indexOfItem(const ZelvoProject &project, const std::optional<QString> &id)
{
    const QList<ServiceItem> &items = project.serviceItems;
    const auto found = std::find_if(items.cbegin(), items.cend(),
                                    [&](const ServiceItem &item) { return item.id == id; });
    return found == items.cend() ? notFound : found - items.cbegin();
}

Slide newSlide(ServiceItemType type, std::int64_t orderIndex)
{
    return ProjectTemplates::slide(QStringLiteral("New Slide"), QString(), orderIndex,
                                   ProjectTemplates::defaultTemplate(type));
}

void selectAndQueue(WorkspaceState &state, const std::optional<QString> &slideID)
{
    state.selectedSlideID = slideID;
    state.queuedSlideID = slideID;
}

QList<Slide> &slidesForWriting(WorkspaceState &state, const SlidePosition &position)
{
    return state.project.serviceItems[position.item].slides;
}

} // namespace

Edited renameProject(WorkspaceState state, const QString &name)
{
    state.project.name = name;
    return state;
}

Edited addServiceItem(WorkspaceState state, ServiceItemType type)
{
    const ServiceItem item{
        .id = newIdentifier(),
        .title = type == ServiceItemType::custom ? QStringLiteral("New Section") : title(type),
        .type = type,
        .orderIndex = state.project.serviceItems.size(),
        .subtitle = std::nullopt,
        .slides = {newSlide(type, 0)},
    };
    state.project.serviceItems.append(item);
    state.selectedServiceItemID = item.id;
    selectAndQueue(state, item.slides.first().id);
    return state;
}

Edited updateServiceItem(WorkspaceState state, const QString &id,
                         const std::function<void(ServiceItem &)> &update)
{
    const qsizetype index = indexOfItem(state.project, id);
    if (index != notFound)
        update(state.project.serviceItems[index]);
    return state;
}

Edited deleteSelectedServiceItem(WorkspaceState state)
{
    if (!state.selectedServiceItemID)
        return std::nullopt;
    state.project.serviceItems.removeIf(
        [&](const ServiceItem &item) { return item.id == state.selectedServiceItemID; });

    const QList<ServiceItem> &items = std::as_const(state.project).serviceItems;
    std::optional<QString> slideID;
    if (!items.isEmpty() && !items.first().slides.isEmpty())
        slideID = items.first().slides.first().id;
    state.selectedServiceItemID = items.isEmpty() ? std::nullopt : std::optional(items.first().id);
    selectAndQueue(state, slideID);
    if (!state.liveSlideID)
        state.liveSlideID = slideID;
    return state;
}

Edited moveSelectedServiceItem(WorkspaceState state, qsizetype delta)
{
    const qsizetype from = indexOfItem(state.project, state.selectedServiceItemID);
    const qsizetype to = from + delta;
    if (from == notFound || to < 0 || to >= state.project.serviceItems.size())
        return std::nullopt;
    state.project.serviceItems.swapItemsAt(from, to);
    return state;
}

Edited addSlide(WorkspaceState state)
{
    const qsizetype index = state.selectedServiceItemID || state.project.serviceItems.isEmpty()
        ? indexOfItem(state.project, state.selectedServiceItemID)
        : 0;
    if (index == notFound)
        return addServiceItem(std::move(state), ServiceItemType::custom);
    ServiceItem &item = state.project.serviceItems[index];
    const Slide slide = newSlide(item.type, item.slides.size());
    item.slides.append(slide);
    state.selectedServiceItemID = item.id;
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
        const qsizetype to = position->slide + delta;
        const qsizetype count = state.project.serviceItems.at(position->item).slides.size();
        if (to >= 0 && to < count)
            slidesForWriting(state, *position).swapItemsAt(position->slide, to);
    }
    return state;
}

Edited updateSelectedSlide(WorkspaceState state, const std::function<void(Slide &)> &update)
{
    const auto position = positionOf(state.project, state.selectedSlideID);
    if (!position)
        return std::nullopt;
    Slide &slide = slidesForWriting(state, *position)[position->slide];
    update(slide);
    slide.body = ProjectNormalizer::compatibilityBody(slide);
    return state;
}

Edited applyTemplateToSelectedSlide(WorkspaceState state, const QString &templateID)
{
    const auto position = positionOf(state.project, state.selectedSlideID);
    if (!position)
        return std::nullopt;
    Slide &slide = slidesForWriting(state, *position)[position->slide];
    slide.design =
        ProjectTemplates::design(templateID, slide.title, slide.body, slide.footer, slide.image);
    state.selectedElementID = slide.design.firstTextElementID();
    return state;
}

} // namespace quenara::edits
