#pragma once

#include "SlideDesignModels.h"

#include <QString>

#include <optional>
#include <string_view>

namespace quenara {

/// What a slide brings to a template.
struct SlideContents
{
    QString title;
    QString body;
    SharedOptional<QString> footer;
    SharedOptional<SlideMedia> image;
};

/// How a template lays out a slide. The design still lacks its themeId.
struct SlideRecipe
{
    SlideTemplateID id;
    std::string_view subtitle;
    SlideDesign (*design)(const SlideContents &contents);
};

[[nodiscard]] const SlideRecipe &slideRecipe(SlideTemplateID id);

} // namespace quenara
