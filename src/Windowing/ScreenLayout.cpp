#include "ScreenLayout.h"

#include <algorithm>

namespace quenara {

namespace {

bool isFree(const QRect &screen, const QList<QRect> &screens)
{
    return !screen.isEmpty() && !screen.intersects(screens.first());
}

} // namespace

QRect displayFrame(const QList<QRect> &screens, const std::optional<QRect> &mainScreen)
{
    constexpr QRect withoutScreens(120, 120, 1280, 720);
    return screens.size() > 1 ? screens.at(1) : mainScreen.value_or(withoutScreens);
}

std::optional<qsizetype> freeScreen(const QList<QRect> &screens)
{
    const auto found = std::find_if(screens.cbegin(), screens.cend(),
                                    [&](const QRect &screen) { return isFree(screen, screens); });
    return found == screens.cend() ? std::nullopt : std::optional(found - screens.cbegin());
}

std::optional<qsizetype> screenToFollow(const QList<QRect> &screens,
                                        std::optional<qsizetype> current)
{
    if (current && (*current == 0 || isFree(screens.at(*current), screens)))
        return current;
    return freeScreen(screens);
}

} // namespace quenara
