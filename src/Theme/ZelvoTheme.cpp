#include "ZelvoTheme.h"

#include "HexDigits.h"
#include "RGBAColor.h"

#include <QPalette>

#include <algorithm>
#include <cmath>

namespace quenara {

namespace {

QColor withOpacity(QColor color, float opacity)
{
    color.setAlphaF(opacity);
    return color;
}

/// Relative luminance, 0 to 1.
double luminance(const QColor &color)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}

} // namespace

ColorScheme colorSchemeOf(const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Window).lightnessF()
        < palette.color(QPalette::WindowText).lightnessF();
    return isDark ? ColorScheme::dark : ColorScheme::light;
}

QColor colorFromHex(QStringView hex)
{
    const HexDigits digits = HexDigits::scan(hex);
    switch (digits.characterCount) {
    case 3:
        return {digits.bits(8, 4) * 17, digits.bits(4, 4) * 17, digits.bits(0, 4) * 17};
    case 6:
        return {digits.bits(16, 8), digits.bits(8, 8), digits.bits(0, 8)};
    case 8:
        return {digits.bits(24, 8), digits.bits(16, 8), digits.bits(8, 8), digits.bits(0, 8)};
    default:
        return {0, 0, 0};
    }
}

double contrast(const QColor &a, const QColor &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readableOn(const QColor &fill)
{
    const QColor white(Qt::white);
    const QColor dark = ZelvoTheme::dark().canvasBackground;
    return contrast(white, fill) >= contrast(dark, fill) ? white : dark;
}

const ZelvoTheme &ZelvoTheme::dark()
{
    static const QColor accentHover = colorFromHex(u"#f0b84a");
    static const ZelvoTheme theme{
        .appBackground = colorFromHex(u"#080b10"),
        .panelBackground = colorFromHex(u"#0d1119"),
        .panelSecondaryBackground = colorFromHex(u"#111723"),
        .panelHeaderBackground = colorFromHex(u"#151c29"),
        .canvasBackground = colorFromHex(u"#05070a"),
        .border = colorFromHex(u"#263143"),
        .separator = colorFromHex(u"#1b2433"),
        .primaryText = colorFromHex(u"#f3f6fb"),
        .secondaryText = colorFromHex(u"#b6c0ce"),
        .mutedText = colorFromHex(u"#758195"),
        .accent = RGBAColor::amber.toColor(),
        .accentHover = accentHover,
        .live = colorFromHex(u"#45c46b"),
        .blackout = colorFromHex(u"#e34d4d"),
        .warning = colorFromHex(u"#f2c94c"),
        .selection = withOpacity(accentHover, 0.32F),
        .controlBackground = colorFromHex(u"#151c29"),
        .inputBackground = colorFromHex(u"#0a0f17"),
    };
    return theme;
}

const ZelvoTheme &ZelvoTheme::light()
{
    static const QColor accentHover = colorFromHex(u"#d28d1d");
    static const ZelvoTheme theme{
        .appBackground = colorFromHex(u"#eceef2"),
        .panelBackground = colorFromHex(u"#f7f7f5"),
        .panelSecondaryBackground = colorFromHex(u"#eeeeea"),
        .panelHeaderBackground = colorFromHex(u"#e4e6ea"),
        .canvasBackground = colorFromHex(u"#d8dbe1"),
        .border = colorFromHex(u"#c5c9d0"),
        .separator = colorFromHex(u"#d7d9dd"),
        .primaryText = colorFromHex(u"#20242b"),
        .secondaryText = colorFromHex(u"#525a66"),
        .mutedText = colorFromHex(u"#777f8c"),
        .accent = colorFromHex(u"#b87812"),
        .accentHover = accentHover,
        .live = colorFromHex(u"#168743"),
        .blackout = colorFromHex(u"#bd3131"),
        .warning = colorFromHex(u"#9a6a10"),
        .selection = withOpacity(accentHover, 0.24F),
        .controlBackground = colorFromHex(u"#ffffff"),
        .inputBackground = colorFromHex(u"#fbfbfa"),
    };
    return theme;
}

const ZelvoTheme &ZelvoTheme::current(ColorScheme scheme)
{
    return scheme == ColorScheme::dark ? dark() : light();
}

QColor accentMark(const ZelvoTheme &theme)
{
    return withOpacity(theme.accent, 0.22F);
}

} // namespace quenara
