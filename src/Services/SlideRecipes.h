#pragma once

#include "SlideDesignModels.h"

#include <QString>

#include <optional>
#include <span>
#include <string_view>

namespace quenara {

/// What a slide brings to a template.
struct SlideContents
{
    QString title;
    QString body;
    std::optional<QString> footer;
    std::optional<SlideMedia> image;
};

/// A template of the catalogue and how it lays out a slide. The design still lacks its themeId.
struct SlideRecipe
{
    std::string_view id;
    std::string_view name;
    std::string_view subtitle;
    SlideDesign (*design)(const SlideContents &contents);
};

/// All recipes in catalogue order; the first one serves for unknown identifiers.
std::span<const SlideRecipe> slideRecipes();

} // namespace quenara
