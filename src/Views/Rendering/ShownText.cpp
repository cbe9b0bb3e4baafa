#include "ShownText.h"

#include "Fonts.h"

#include <algorithm>
#include <array>
#include <span>
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

/// Characters that are shown in colour unless a selector says otherwise. Those of plane 1 are
/// listed as whole blocks.
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

/// Characters that belong to the emoji right before them.
constexpr std::array continuation = {
    Range{joiner, joiner},
    Range{colourSelector, colourSelector},
    Range{keycap, keycap},
    Range{0xe0020, 0xe007f},
};

/// Characters that a colour selector or a keycap can turn into an emoji.
constexpr std::array changeable = {
    Range{U'#', U'#'},     Range{U'*', U'*'},     Range{U'0', U'9'},       Range{0xa9, 0xae},
    Range{0x203c, 0x2199}, Range{0x21a9, 0x3299}, Range{0x1f000, 0x1ffff},
};

/// A character that is shown.
struct Character
{
    char32_t value;
    // Offsets in the stored text of what it stands for.
    qsizetype start;
    qsizetype end;
};

bool isBreak(char32_t character)
{
    return std::u32string_view(U"\n\v\f\r\u0085\u2028\u2029").find(character)
        != std::u32string_view::npos;
}

bool isSpacing(char32_t character)
{
    return character == U' ' || character == U'\t';
}

/// Spacing at the end of a right-to-left line would push the letters out of their box.
void dropSpacingAtTheEnd(QList<Character> &characters)
{
    while (!characters.isEmpty() && isSpacing(characters.constLast().value))
        characters.removeLast();
}

/// The code points of the text, or of its first \a most characters, in capitals, if it is shown in
/// such, with one kind of line break.
QList<Character> charactersOf(const TextElementProperties &properties, qsizetype most)
{
    QStringView stored = properties.text;
    if (stored.size() > most)
        stored = stored.first(stored.at(most - 1).isHighSurrogate() ? most - 1 : most);
    QList<Character> characters;
    characters.reserve(stored.size());
    qsizetype end = 0;
    for (qsizetype start = 0; start < stored.size(); start = end) {
        const QChar first = stored.at(start);
        const QChar second = start + 1 < stored.size() ? stored.at(start + 1) : QChar();
        end = start + (first.isHighSurrogate() && second.isLowSurrogate() ? 2 : 1);
        if (first == u'\r' && second == u'\n')
            continue;
        if (isBreak(first.unicode())) {
            dropSpacingAtTheEnd(characters);
            characters.append({QChar::LineSeparator, start, end});
            continue;
        }
        const QString character = stored.sliced(start, end - start).toString();
        for (const uint value : (properties.uppercase ? character.toUpper() : character).toUcs4())
            characters.append({value, start, end});
    }
    dropSpacingAtTheEnd(characters);
    return characters;
}

/// Whether the character at \a index is part of an emoji. \a isInside says the same of the one
/// before.
bool isPartOfEmoji(const QList<Character> &text, qsizetype index, bool isInside)
{
    const char32_t character = text.at(index).value;
    const char32_t before = index > 0 ? text.at(index - 1).value : U'\0';
    const char32_t after = index + 1 < text.size() ? text.at(index + 1).value : U'\0';
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

/// Makes the last \a count characters of \a shown a part of an emoji.
void appendColour(ShownText &shown, int count)
{
    const int start = int(shown.text.size()) - count;
    QList<QTextLayout::FormatRange> &formats = shown.formats;
    if (formats.isEmpty() || formats.constLast().start + formats.constLast().length != start)
        formats.append({start, 0, colourFormat()});
    formats.last().length += count;
}

} // namespace

ShownText shownText(const TextElementProperties &properties, qsizetype most)
{
    const bool hasColour = !emojiFontFamily().isEmpty();
    const QList<Character> characters = charactersOf(properties, most);
    ShownText shown;
    shown.text.reserve(characters.size());
    bool isInside = false;
    for (qsizetype i = 0; i < characters.size(); ++i) {
        const Character &character = characters.at(i);
        isInside = hasColour && isPartOfEmoji(characters, i, isInside);
        if (isInside && character.value == colourSelector)
            continue;
        const auto units = QChar::fromUcs4(character.value);
        const QStringView piece(units);
        shown.text += piece;
        shown.offsets.append(piece.size(), character.start, character.end);
        if (isInside)
            appendColour(shown, int(piece.size()));
    }
    shown.offsets.setStoredLength(properties.text.size());
    return shown;
}

ShownText truncated(const ShownText &shown, qsizetype length)
{
    // Spacing right before the ellipsis counts as left out, so that the caret moves over it as at
    // the end of a line.
    qsizetype next = length;
    while (next < shown.text.size() && isSpacing(shown.text.at(next).unicode()))
        ++next;
    ShownText result{.text = shown.text.first(length) + ellipsis,
                     .formats = shown.formats,
                     .offsets = shown.offsets.truncated(length, next)};
    result.formats.removeIf([&](const auto &range) { return range.start >= length; });
    for (QTextLayout::FormatRange &range : result.formats)
        range.length = std::min(range.length, int(length) - range.start);
    return result;
}

} // namespace quenara
