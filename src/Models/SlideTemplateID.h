#pragma once

#include "RawEnum.h"

namespace quenara {

/// The built-in slide templates in catalogue order; the title is what pickers show. Documents may
/// name others.
enum class SlideTemplateID {
    centerLyric,
    lowerLyric,
    scriptureReading,
    sermonTitle,
    welcome,
    announcement,
    closing,
    minimalDark,
    warmAmber,
    imageBackgroundLyric,
};
template<>
inline constexpr auto rawCases<SlideTemplateID> = std::to_array<RawCase<SlideTemplateID>>({
    {SlideTemplateID::centerLyric, "centerLyric", "Center Lyric"},
    {SlideTemplateID::lowerLyric, "lowerLyric", "Lower Lyric"},
    {SlideTemplateID::scriptureReading, "scriptureReading", "Scripture Reading"},
    {SlideTemplateID::sermonTitle, "sermonTitle", "Sermon Title"},
    {SlideTemplateID::welcome, "welcome", "Welcome"},
    {SlideTemplateID::announcement, "announcement", "Announcement"},
    {SlideTemplateID::closing, "closing", "Closing"},
    {SlideTemplateID::minimalDark, "minimalDark", "Minimal Dark"},
    {SlideTemplateID::warmAmber, "warmAmber", "Warm Amber"},
    {SlideTemplateID::imageBackgroundLyric, "imageBackgroundLyric", "Image Background Lyric"},
});
static_assert(casesStandAtTheirValues<SlideTemplateID>);

} // namespace quenara
