#include "EmojiText.h"

#include "Fonts.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>

namespace quenara {

namespace {

struct Range
{
    char32_t first;
    char32_t last;
};

bool isIn(std::span<const Range> ranges, char32_t character)
{
    return std::any_of(ranges.begin(), ranges.end(), [character](const Range &range) {
        return range.first <= character && character <= range.last;
    });
}

/// What is shown in colour unless told otherwise; the symbols of plane 1 by their blocks.
constexpr std::array emoji = {
    Range{0x231a, 0x231b},   Range{0x23e9, 0x23ec},   Range{0x23f0, 0x23f0},
    Range{0x23f3, 0x23f3},   Range{0x25fd, 0x25fe},   Range{0x2614, 0x2615},
    Range{0x2648, 0x2653},   Range{0x267f, 0x267f},   Range{0x2693, 0x2693},
    Range{0x26a1, 0x26a1},   Range{0x26aa, 0x26ab},   Range{0x26bd, 0x26be},
    Range{0x26c4, 0x26c5},   Range{0x26ce, 0x26ce},   Range{0x26d4, 0x26d4},
    Range{0x26ea, 0x26ea},   Range{0x26f2, 0x26f3},   Range{0x26f5, 0x26f5},
    Range{0x26fa, 0x26fa},   Range{0x26fd, 0x26fd},   Range{0x2705, 0x2705},
    Range{0x270a, 0x270b},   Range{0x2728, 0x2728},   Range{0x274c, 0x274c},
    Range{0x274e, 0x274e},   Range{0x2753, 0x2755},   Range{0x2757, 0x2757},
    Range{0x2795, 0x2797},   Range{0x27b0, 0x27b0},   Range{0x27bf, 0x27bf},
    Range{0x2b1b, 0x2b1c},   Range{0x2b50, 0x2b50},   Range{0x2b55, 0x2b55},
    Range{0x1f004, 0x1f004}, Range{0x1f0cf, 0x1f0cf}, Range{0x1f18e, 0x1f19a},
    Range{0x1f1e6, 0x1f1ff}, Range{0x1f201, 0x1f265}, Range{0x1f300, 0x1f64f},
    Range{0x1f680, 0x1f6ff}, Range{0x1f7e0, 0x1f7f0}, Range{0x1f90c, 0x1f9ff},
    Range{0x1fa70, 0x1faff},
};

constexpr char32_t textSelector = 0xfe0e;
constexpr char32_t colourSelector = 0xfe0f;
constexpr char32_t joiner = 0x200d;
constexpr char32_t keycap = 0x20e3;

/// What belongs to the emoji before it: joiner, selector, keycap, tags.
constexpr std::array continuation = {
    Range{joiner, joiner},
    Range{colourSelector, colourSelector},
    Range{keycap, keycap},
    Range{0xe0020, 0xe007f},
};

/// What a colour selector can make an emoji of: signs, arrows and symbols, and the characters of
/// keycaps.
constexpr std::array changeable = {
    Range{U'#', U'#'},     Range{U'*', U'*'},     Range{U'0', U'9'},       Range{0xa9, 0xae},
    Range{0x203c, 0x2199}, Range{0x21a9, 0x3299}, Range{0x1f000, 0x1ffff},
};

/// Whether the character at \a index is part of an emoji, \a isInside telling it of the one before.
bool isPartOfEmoji(std::u32string_view text, std::size_t index, bool isInside)
{
    const char32_t character = text[index];
    const char32_t before = index > 0 ? text[index - 1] : U'\0';
    const char32_t after = index + 1 < text.size() ? text[index + 1] : U'\0';
    if (isInside && (before == joiner || isIn(continuation, character)))
        return true;
    if (after == textSelector)
        return false;
    return isIn(emoji, character)
        || (isIn(changeable, character) && (after == colourSelector || after == keycap));
}

QTextCharFormat colourFormat()
{
    QTextCharFormat format;
    format.setFontFamilies({emojiFontFamily()});
    format.setFontWeight(QFont::Normal);
    return format;
}

} // namespace

EmojiText::EmojiText(const QString &original)
{
    if (emojiFontFamily().isEmpty()) {
        text = original;
        return;
    }
    const std::u32string characters = original.toStdU32String();
    bool isInside = false;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        isInside = isPartOfEmoji(characters, i, isInside);
        if (isInside && characters[i] == colourSelector)
            continue;
        const int start = int(text.size());
        text += QStringView(QChar::fromUcs4(characters[i]));
        if (!isInside)
            continue;
        if (formats.isEmpty() || formats.constLast().start + formats.constLast().length != start)
            formats.append({start, 0, colourFormat()});
        formats.last().length = int(text.size()) - formats.constLast().start;
    }
}

} // namespace quenara
