#pragma once

#include "ProjectModels.h"

#include <QList>
#include <QString>

#include <optional>

namespace quenara {

/// Every slide of every item as one list: items, and slides within each, by orderIndex, equal ones
/// in stored order.
[[nodiscard]] QList<FlattenedSlide> flattenedSlides(const ZelvoProject &project);

/// Where a slide stands in a project whose order indexes mirror its lists.
struct SlidePosition
{
    qsizetype item = 0; ///< index into serviceItems
    qsizetype slide = 0; ///< index into that item's slides
    qsizetype absolute = 0; ///< index in the show

    bool operator==(const SlidePosition &) const = default;
};

// The functions below walk the lists as they are stored, without building the flattened list.

/// The first slide with this id; nothing for an absent or unknown one.
[[nodiscard]] std::optional<SlidePosition> positionOf(const ZelvoProject &project,
                                                      const std::optional<QString> &slideID);

/// The slide at the 0-based place \a absolute of the show; nothing outside it.
[[nodiscard]] std::optional<SlidePosition> positionAt(const ZelvoProject &project,
                                                      qsizetype absolute);

/// The number of slides in the show.
[[nodiscard]] qsizetype slideCount(const ZelvoProject &project);

[[nodiscard]] const Slide &slideAt(const ZelvoProject &project, const SlidePosition &position);

/// The slide after that one: nothing after the last, the first one after none.
[[nodiscard]] std::optional<SlidePosition> positionAfter(
    const ZelvoProject &project, const std::optional<SlidePosition> &position);

[[nodiscard]] std::optional<QString> firstSlideID(const ZelvoProject &project);

/// The index of the first item with this id; nothing for an absent or unknown one.
[[nodiscard]] std::optional<qsizetype> itemIndex(const ZelvoProject &project,
                                                 const std::optional<QString> &itemID);

/// The index of the slide's first layer with this id; nothing for an absent or unknown one.
[[nodiscard]] std::optional<qsizetype> elementIndex(const Slide &slide,
                                                    const std::optional<QString> &elementID);

} // namespace quenara
