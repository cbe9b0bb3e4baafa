#pragma once

#include <QColor>
#include <QStringView>

#include <array>
#include <string_view>
#include <utility>

class QPalette;

namespace quenara {

enum class ColorScheme { light, dark };

/// The scheme that \a palette was made for: dark where its windows are darker than their text.
[[nodiscard]] ColorScheme colorSchemeOf(const QPalette &palette);

/// Colour of the interface, in sRGB, from hex text: trimmed of what is not alphanumeric, then three
/// digits (each doubled), six, or eight with alpha last; opaque black for any other length.
[[nodiscard]] QColor colorFromHex(QStringView hex);

/// Contrast of two opaque colours, 1 to 21, by the formula of the Web Content Accessibility
/// Guidelines 2.
[[nodiscard]] double contrast(const QColor &a, const QColor &b);

/// The colour of text on \a fill: white, or the darkest colour of the themes where that contrasts
/// more.
[[nodiscard]] QColor readableOn(const QColor &fill);

/// The palette of the operator interface (not of slides): eighteen colour roles.
struct ZelvoTheme
{
    QColor appBackground; ///< window background
    QColor panelBackground; ///< side panels
    QColor panelSecondaryBackground; ///< nested panel areas, cards
    QColor panelHeaderBackground; ///< panel title bars
    QColor canvasBackground; ///< area around the slide on the design canvas
    QColor border; ///< outlines of panels and controls
    QColor separator; ///< divider lines
    QColor primaryText; ///< main text
    QColor secondaryText; ///< labels
    QColor mutedText; ///< hints, empty states
    QColor accent; ///< accent colour, selection marks
    QColor accentHover; ///< accent under the pointer
    QColor live; ///< live state
    QColor blackout; ///< blackout state
    QColor warning; ///< warnings
    QColor selection; ///< selected-row fill
    QColor controlBackground; ///< buttons and similar controls
    QColor inputBackground; ///< text fields and editors

    [[nodiscard]] static const ZelvoTheme &dark();
    [[nodiscard]] static const ZelvoTheme &light();

    /// The dark theme for the dark scheme, the light one for any other.
    [[nodiscard]] static const ZelvoTheme &current(ColorScheme scheme);

    bool operator==(const ZelvoTheme &) const = default;
};

/// The faint accent behind the chosen one of several symbols.
[[nodiscard]] QColor accentMark(const ZelvoTheme &theme);

/// The eighteen roles in the order of the record, with the names that the style sheet has for them.
inline constexpr auto themeRoles =
    std::to_array<std::pair<std::string_view, QColor ZelvoTheme::*>>({
        {"appBackground", &ZelvoTheme::appBackground},
        {"panelBackground", &ZelvoTheme::panelBackground},
        {"panelSecondaryBackground", &ZelvoTheme::panelSecondaryBackground},
        {"panelHeaderBackground", &ZelvoTheme::panelHeaderBackground},
        {"canvasBackground", &ZelvoTheme::canvasBackground},
        {"border", &ZelvoTheme::border},
        {"separator", &ZelvoTheme::separator},
        {"primaryText", &ZelvoTheme::primaryText},
        {"secondaryText", &ZelvoTheme::secondaryText},
        {"mutedText", &ZelvoTheme::mutedText},
        {"accent", &ZelvoTheme::accent},
        {"accentHover", &ZelvoTheme::accentHover},
        {"live", &ZelvoTheme::live},
        {"blackout", &ZelvoTheme::blackout},
        {"warning", &ZelvoTheme::warning},
        {"selection", &ZelvoTheme::selection},
        {"controlBackground", &ZelvoTheme::controlBackground},
        {"inputBackground", &ZelvoTheme::inputBackground},
    });

} // namespace quenara
