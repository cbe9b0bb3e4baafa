#include "AppAppearance.h"

namespace quenara {

std::optional<ColorScheme> colorScheme(AppAppearance appearance)
{
    switch (appearance) {
    case AppAppearance::light:
        return ColorScheme::light;
    case AppAppearance::dark:
        return ColorScheme::dark;
    case AppAppearance::system:
        break;
    }
    return std::nullopt;
}

AppAppearance appearanceFromPreference(const QString &rawValue)
{
    return fromRawValue<AppAppearance>(rawValue).value_or(AppAppearance::system);
}

} // namespace quenara
