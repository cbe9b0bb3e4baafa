#include "ShownText.h"

#include "Fonts.h"
#include "ScriptFonts.h"
#include "SlideFonts.h"

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

/// Signs between letters, or within emoji, that change their shape.
constexpr std::array joining = {Range{0x200c, 0x200d}, Range{0xe0020, 0xe007f}};

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
    QList<QTextLayout::FormatRange> &formats = shown.emoji;
    if (formats.isEmpty() || formats.constLast().start + formats.constLast().length != start)
        formats.append({start, 0, colourFormat()});
    formats.last().length += count;
}

/// Those of \a formats that begin before \a end; one that goes on there ends \a more characters
/// after it.
QList<QTextLayout::FormatRange> beginning(QList<QTextLayout::FormatRange> formats, qsizetype end,
                                          int more)
{
    formats.removeIf([&](const auto &range) { return range.start >= end; });
    for (QTextLayout::FormatRange &range : formats) {
        if (range.start + range.length >= end)
            range.length = int(end) + more - range.start;
    }
    return formats;
}

/// Whether a sign is not seen, and does not join its neighbours either.
bool isInvisible(char32_t sign)
{
    return QChar::category(sign) == QChar::Other_Format && !isIn(joining, sign)
        && QChar::script(sign) <= QChar::Script_Common; // others are seen, as those around numbers
}

/// The script at each place of a text: of marks, spaces and signs, which have none of their own,
/// the one before them.
class Scripts
{
public:
    Scripts(const QString &text, const QString &family)
        : m_text(text), m_family(family), m_forms(hanForms(text))
    {}

    QList<QTextLayout::FormatRange> formats()
    {
        for (qsizetype i = 0; i < m_text.size(); ++i) {
            const bool isPair = m_text.at(i).isHighSurrogate() && i + 1 < m_text.size();
            const char32_t letter = isPair ? QChar::surrogateToUcs4(m_text.at(i), m_text.at(i + 1))
                                           : m_text.at(i).unicode();
            take(i, QChar::script(letter));
            if (isInvisible(letter) && familyNow().isEmpty())
                addInvisible(i, isPair ? 2 : 1);
            i += isPair ? 1 : 0;
        }
        end(m_text.size());
        return m_formats;
    }

private:
    void take(qsizetype place, QChar::Script script)
    {
        if (script == m_script || script == QChar::Script_Common
            || script == QChar::Script_Inherited)
            return;
        end(place);
        m_script = script;
        m_start = place;
    }

    void end(qsizetype place)
    {
        const QString family = familyNow();
        if (family.isEmpty())
            return;
        QTextCharFormat format;
        // A face that the document does not name may have the marks of a script without its
        // letters.
        format.setFontFamilies(isFamilyBundled(m_family) ? QStringList{family, m_family}
                                                         : QStringList{m_family, family});
        m_formats.append({int(m_start), int(place - m_start), format});
    }

    /// The family for the script that a place belongs to; empty if the text's own does.
    QString familyNow() const { return scriptFamily(m_script, m_forms); }

    /// A sign that is not seen is not looked for in other faces, whose lines may be higher.
    void addInvisible(qsizetype place, int length)
    {
        if (m_invisibleEnd == place) {
            m_formats.last().length += length;
        } else {
            QTextCharFormat format;
            format.setFontStyleStrategy(QFont::NoFontMerging);
            m_formats.append({int(place), length, format});
        }
        m_invisibleEnd = place + length;
    }

    const QString &m_text;
    const QString m_family;
    const HanForms m_forms;
    QChar::Script m_script = QChar::Script_Common;
    qsizetype m_start = 0;
    qsizetype m_invisibleEnd = -1; ///< of the last signs that are not seen
    QList<QTextLayout::FormatRange> m_formats;
};

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
    shown.scripts = Scripts(shown.text, slideFamily(properties.fontFamily)).formats();
    return shown;
}

ShownText truncated(const ShownText &shown, qsizetype length)
{
    // Spacing right before the ellipsis counts as left out, so that the caret moves over it as at
    // the end of a line.
    qsizetype next = length;
    while (next < shown.text.size() && isSpacing(shown.text.at(next).unicode()))
        ++next;
    // The ellipsis stands in the face of the letters before it.
    return {.text = shown.text.first(length) + ellipsis,
            .emoji = beginning(shown.emoji, length, 0),
            .scripts = beginning(shown.scripts, length, 1),
            .offsets = shown.offsets.truncated(length, next)};
}

} // namespace quenara
