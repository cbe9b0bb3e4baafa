#include "RGBAColor.h"

#include "HexDigits.h"

#include <QColor>

#include <algorithm>

namespace quenara {

RGBAColor RGBAColor::fromHex(QStringView hex, double alpha)
{
    const HexDigits digits = HexDigits::scan(hex);
    switch (digits.characterCount) {
    case 6:
        return {digits.bits(16, 8) / 255.0, digits.bits(8, 8) / 255.0, digits.bits(0, 8) / 255.0,
                alpha};
    case 3:
        return {digits.bits(8, 4) * 17 / 255.0, digits.bits(4, 4) * 17 / 255.0,
                digits.bits(0, 4) * 17 / 255.0, alpha};
    default:
        return {0, 0, 0, alpha};
    }
}

RGBAColor RGBAColor::fromColor(const QColor &color)
{
    if (!color.isValid())
        return {1, 1, 1, 1};
    // QColor gives its channels as single-precision reals, which are a little off.
    constexpr double largest = 65535;
    const QRgba64 rgb = color.rgba64();
    return {rgb.red() / largest, rgb.green() / largest, rgb.blue() / largest,
            rgb.alpha() / largest};
}

QColor RGBAColor::toColor() const
{
    const auto channel = [](double value) { return float(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(channel(red), channel(green), channel(blue), channel(alpha));
}

} // namespace quenara
