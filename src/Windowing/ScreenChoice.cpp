#include "ScreenChoice.h"

#include <algorithm>

namespace quenara {

namespace {

/// True for a screen of its own beside the primary one.
bool isSeparate(const QRect &screen, const QList<QRect> &screens)
{
    return !screen.isEmpty() && !screen.intersects(screens.first());
}

} // namespace

QRect displayFrame(const QList<QRect> &screens, const std::optional<QRect> &mainScreen)
{
    constexpr QRect withoutScreens(120, 120, 1280, 720);
    return screens.size() > 1 ? screens.at(1) : mainScreen.value_or(withoutScreens);
}

bool isApart(const QRect &screen, const QList<QRect> &screens, const QRect &operatorScreen)
{
    return isSeparate(screen, screens) && !screen.intersects(operatorScreen);
}

std::optional<qsizetype> freeScreen(const QList<QRect> &screens, const QRect &operatorScreen)
{
    const auto found = std::find_if(screens.cbegin(), screens.cend(), [&](const QRect &screen) {
        return isApart(screen, screens, operatorScreen);
    });
    return found == screens.cend() ? std::nullopt : std::optional(found - screens.cbegin());
}

std::optional<qsizetype> screenToFollow(const QList<QRect> &screens,
                                        std::optional<qsizetype> current,
                                        const QRect &operatorScreen)
{
    if (current && (*current == 0 || isSeparate(screens.at(*current), screens)))
        return current;
    return freeScreen(screens, operatorScreen);
}

} // namespace quenara
