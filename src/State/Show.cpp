#include "Show.h"

#include "Identifier.h"

#include <algorithm>
#include <utility>

namespace quenara {

namespace {

template<class T>
QList<T> inOrder(QList<T> list)
{
    const auto byOrderIndex = [](const T &a, const T &b) { return a.orderIndex < b.orderIndex; };
    if (!std::is_sorted(list.cbegin(), list.cend(), byOrderIndex))
        std::stable_sort(list.begin(), list.end(), byOrderIndex);
    return list;
}

} // namespace

QList<FlattenedSlide> flattenedSlides(const ZelvoProject &project)
{
    QList<FlattenedSlide> show;
    show.reserve(slideCount(project));
    for (const ServiceItem &item : inOrder(project.serviceItems)) {
        for (const Slide &slide : inOrder(item.slides))
            show.append({item.id, item.title, item.type, slide, show.size()});
    }
    return show;
}

std::optional<SlidePosition> positionOf(const ZelvoProject &project,
                                        const std::optional<QString> &slideID)
{
    if (!slideID)
        return std::nullopt;
    qsizetype before = 0;
    for (qsizetype i = 0; i < project.serviceItems.size(); ++i) {
        const QList<Slide> &slides = project.serviceItems.at(i).slides;
        const auto found = std::find_if(slides.cbegin(), slides.cend(), [&](const Slide &slide) {
            return isSameIdentifier(slide.id, *slideID);
        });
        if (found != slides.cend()) {
            const qsizetype j = found - slides.cbegin();
            return SlidePosition{i, j, before + j};
        }
        before += slides.size();
    }
    return std::nullopt;
}

std::optional<SlidePosition> positionAt(const ZelvoProject &project, qsizetype absolute)
{
    if (absolute < 0)
        return std::nullopt;
    qsizetype before = 0;
    for (qsizetype i = 0; i < project.serviceItems.size(); ++i) {
        const qsizetype count = project.serviceItems.at(i).slides.size();
        if (absolute < before + count)
            return SlidePosition{i, absolute - before, absolute};
        before += count;
    }
    return std::nullopt;
}

qsizetype slideCount(const ZelvoProject &project)
{
    qsizetype count = 0;
    for (const ServiceItem &item : project.serviceItems)
        count += item.slides.size();
    return count;
}

const Slide &slideAt(const ZelvoProject &project, const SlidePosition &position)
{
    return project.serviceItems.at(position.item).slides.at(position.slide);
}

std::optional<SlidePosition> positionAfter(const ZelvoProject &project,
                                           const std::optional<SlidePosition> &position)
{
    return positionAt(project, position ? position->absolute + 1 : 0);
}

std::optional<QString> firstSlideID(const ZelvoProject &project)
{
    const auto first = positionAt(project, 0);
    return first ? std::optional(slideAt(project, *first).id) : std::nullopt;
}

std::optional<qsizetype> itemIndex(const ZelvoProject &project,
                                   const std::optional<QString> &itemID)
{
    const QList<ServiceItem> &items = project.serviceItems;
    const auto found = std::find_if(items.cbegin(), items.cend(),
                                    [&](const ServiceItem &item) { return item.id == itemID; });
    return found == items.cend() ? std::nullopt : std::optional(found - items.cbegin());
}

std::optional<qsizetype> elementIndex(const Slide &slide, const std::optional<QString> &elementID)
{
    const QList<SlideElement> &elements = slide.design.elements;
    const auto found = std::find_if(elements.cbegin(), elements.cend(),
                                    [&](const SlideElement &e) { return e.id == elementID; });
    return found == elements.cend() ? std::nullopt : std::optional(found - elements.cbegin());
}

} // namespace quenara
