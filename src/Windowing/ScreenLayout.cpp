#include "ScreenLayout.h"

namespace quenara {

QRect displayFrame(const QList<QRect> &screens, const std::optional<QRect> &mainScreen)
{
    constexpr QRect withoutScreens(120, 120, 1280, 720);
    return screens.size() > 1 ? screens.at(1) : mainScreen.value_or(withoutScreens);
}

} // namespace quenara
