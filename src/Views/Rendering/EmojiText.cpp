#include "EmojiText.h"

#include "SlideFonts.h"

#include <algorithm>
#include <array>
#include <span>

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

constexpr char32_t colourSelector = 0xfe0f;

/// What belongs to the emoji before it: joiner, selector, keycap, tags.
constexpr std::array continuation = {
    Range{0x200d, 0x200d},
    Range{colourSelector, colourSelector},
    Range{0x20e3, 0x20e3},
    Range{0xe0020, 0xe007f},
};

} // namespace

QList<QTextLayout::FormatRange> emojiFormats(const QString &text)
{
    QList<QTextLayout::FormatRange> formats;
    const QList<uint> characters = text.toUcs4();
    int position = 0;
    bool isInside = false;
    for (qsizetype i = 0; i < characters.size(); ++i) {
        const char32_t character{characters.at(i)};
        const int length = QChar::requiresSurrogates(character) ? 2 : 1;
        const bool isTold = i + 1 < characters.size() && characters.at(i + 1) == colourSelector;
        isInside = isTold || isIn(emoji, character) || (isInside && isIn(continuation, character));
        if (isInside) {
            if (formats.isEmpty()
                || formats.constLast().start + formats.constLast().length != position)
                formats.append({position, 0, {}});
            formats.last().length += length;
        }
        position += length;
    }
    if (formats.isEmpty() || emojiFontFamily().isEmpty())
        return {};
    for (QTextLayout::FormatRange &range : formats) {
        range.format.setFontFamilies({emojiFontFamily()});
        range.format.setFontWeight(QFont::Normal);
    }
    return formats;
}

} // namespace quenara
