#include "WindowPlace.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <cmath>

namespace quenara {

namespace {

constexpr int farthest = 100'000; // points, to each side of a screen
constexpr int widestFrame = 500;

constexpr QLatin1String screenKey("screen");
constexpr QLatin1String maximizedKey("isMaximized");
constexpr std::array numberKeys{QLatin1String("x"),          QLatin1String("y"),
                                QLatin1String("width"),      QLatin1String("height"),
                                QLatin1String("frameLeft"),  QLatin1String("frameTop"),
                                QLatin1String("frameRight"), QLatin1String("frameBottom")};
using Numbers = std::array<int, numberKeys.size()>;

Numbers numbersOf(const WindowPlace &place)
{
    return {place.corner.x(),   place.corner.y(),  place.size.width(),  place.size.height(),
            place.frame.left(), place.frame.top(), place.frame.right(), place.frame.bottom()};
}

/// The whole number of \a object under \a key, if it is one and no larger than a desktop.
std::optional<int> numberIn(const QJsonObject &object, QLatin1String key)
{
    const QJsonValue value = object.value(key);
    const double number = value.toDouble();
    const bool isFit =
        value.isDouble() && std::trunc(number) == number && std::abs(number) <= farthest;
    return isFit ? std::optional(int(number)) : std::nullopt;
}

bool isFrame(const QMargins &frame)
{
    const auto isFit = [](int side) { return side >= 0 && side <= widestFrame; };
    return isFit(frame.left()) && isFit(frame.top()) && isFit(frame.right())
        && isFit(frame.bottom());
}

} // namespace

QSize sizeWithin(const QSize &room, const QSize &size, const QMargins &frame)
{
    return size.boundedTo(room.shrunkBy(frame)).expandedTo({1, 1});
}

WindowPlace broughtWithin(const QRect &available, WindowPlace place)
{
    place.size = sizeWithin(available.size(), place.size, place.frame);
    const QSize outer = place.size.grownBy(place.frame);
    const auto kept = [](int at, int length, int start, int room) {
        return std::max(start, std::min(at, start + room - length));
    };
    place.corner = {kept(place.corner.x(), outer.width(), available.left(), available.width()),
                    kept(place.corner.y(), outer.height(), available.top(), available.height())};
    return place;
}

bool isBeside(const WindowPlace &one, const WindowPlace &other)
{
    const auto isNear = [](int a, int b) { return std::abs(a - b) <= 1; };
    return one.screen == other.screen && one.isMaximized == other.isMaximized
        && isNear(one.corner.x(), other.corner.x()) && isNear(one.corner.y(), other.corner.y())
        && isNear(one.size.width(), other.size.width())
        && isNear(one.size.height(), other.size.height());
}

QByteArray encode(const WindowPlace &place)
{
    QJsonObject object{{screenKey, place.screen}, {maximizedKey, place.isMaximized}};
    const Numbers numbers = numbersOf(place);
    for (std::size_t i = 0; i < numbers.size(); ++i)
        object.insert(numberKeys.at(i), numbers.at(i));
    return QJsonDocument(object).toJson();
}

std::optional<WindowPlace> decodeWindowPlace(const QByteArray &json)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    if (!object.value(screenKey).isString() || !object.value(maximizedKey).isBool())
        return std::nullopt;
    Numbers numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::optional<int> number = numberIn(object, numberKeys.at(i));
        if (!number)
            return std::nullopt;
        numbers.at(i) = *number;
    }
    const auto [x, y, width, height, left, top, right, bottom] = numbers;
    const WindowPlace place{.screen = object.value(screenKey).toString(),
                            .corner = {x, y},
                            .size = {width, height},
                            .frame = {left, top, right, bottom},
                            .isMaximized = object.value(maximizedKey).toBool()};
    return !place.size.isEmpty() && isFrame(place.frame) ? std::optional(place) : std::nullopt;
}

} // namespace quenara
