#pragma once

#include "RawEnum.h"
#include "ZelvoTheme.h"

#include <QString>

#include <optional>

namespace quenara {

/// The operator's choice of colour scheme, stored as a preference.
enum class AppAppearance { system, light, dark };
template<>
inline constexpr auto rawCases<AppAppearance> = std::to_array<RawCase<AppAppearance>>({
    {AppAppearance::system, "system", "System"},
    {AppAppearance::light, "light", "Light"},
    {AppAppearance::dark, "dark", "Dark"},
});
static_assert(casesStandAtTheirValues<AppAppearance>);

/// The preference's key; its value is the raw value, "system" when the key is absent.
inline constexpr const char *appAppearanceKey = "appAppearance";

/// The scheme that was chosen; absent where the desktop's is followed.
[[nodiscard]] std::optional<ColorScheme> colorScheme(AppAppearance appearance);

/// The choice that is stored as \a rawValue. A text that is no raw value counts as system.
[[nodiscard]] AppAppearance appearanceFromPreference(const QString &rawValue);

} // namespace quenara
