#pragma once

#include "ProjectModels.h"

namespace quenara {

// What the clipboard carries of a document, media included.

struct SlideClip
{
    Slide slide;

    bool operator==(const SlideClip &) const = default;
    static constexpr auto fields() { return FieldList{field("slide", &SlideClip::slide)}; }
};
static_assert(listsEveryMember<SlideClip>);

struct LayerClip
{
    QString slideID; ///< of the slide that it was copied from
    SlideElement layer;

    bool operator==(const LayerClip &) const = default;
    static constexpr auto fields()
    {
        return FieldList{field("slideID", &LayerClip::slideID), field("layer", &LayerClip::layer)};
    }
};
static_assert(listsEveryMember<LayerClip>);

} // namespace quenara
