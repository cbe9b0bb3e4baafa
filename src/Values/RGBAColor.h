#pragma once

#include "Record.h"

#include <QStringView>

#include <cstdint>

class QColor;

namespace quenara {

/// A colour of a slide: four channels in sRGB, each 0 to 1, alpha not premultiplied.
struct RGBAColor
{
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    /// Trims what is not alphanumeric from both ends and scans the rest as a hexadecimal number up
    /// to its first other character. Six characters give two digits a channel, three one digit
    /// doubled; any other length gives black. \a alpha is taken as given.
    [[nodiscard]] static RGBAColor fromHex(QStringView hex, double alpha = 1);

    /// The four sRGB components of \a color, exact to its 16 bits a channel; opaque white if it has
    /// no such form (an invalid one).
    [[nodiscard]] static RGBAColor fromColor(const QColor &color);

    /// The reverse of fromColor(); channels outside 0 to 1 are clamped.
    [[nodiscard]] QColor toColor() const;

    /// \a rgb is 0xRRGGBB.
    [[nodiscard]] static constexpr RGBAColor fromRgb(std::uint32_t rgb, double alpha = 1)
    {
        return {((rgb >> 16U) & 255U) / 255.0, ((rgb >> 8U) & 255U) / 255.0, (rgb & 255U) / 255.0,
                alpha};
    }

    static const RGBAColor nearWhite;
    static const RGBAColor amber;
    static const RGBAColor warmAmber;
    static const RGBAColor darkCanvas;
    static const RGBAColor deeperCanvas;
    static const RGBAColor charcoal;

    bool operator==(const RGBAColor &) const = default;
    static constexpr auto fields()
    {
        return FieldList{field("red", &RGBAColor::red), field("green", &RGBAColor::green),
                         field("blue", &RGBAColor::blue), field("alpha", &RGBAColor::alpha)};
    }
};
static_assert(listsEveryMember<RGBAColor>);

inline constexpr RGBAColor RGBAColor::nearWhite = fromRgb(0xf4f1ea);
inline constexpr RGBAColor RGBAColor::amber = fromRgb(0xe0a134);
inline constexpr RGBAColor RGBAColor::warmAmber = fromRgb(0xc9872a);
inline constexpr RGBAColor RGBAColor::darkCanvas = fromRgb(0x090b10);
inline constexpr RGBAColor RGBAColor::deeperCanvas = fromRgb(0x05070b);
inline constexpr RGBAColor RGBAColor::charcoal = fromRgb(0x161b22);

} // namespace quenara
