#include "HexDigits.h"

#include <QList>
#include <QString>

#include <algorithm>
#include <limits>
#include <optional>

namespace quenara {

namespace {

std::optional<unsigned> hexDigit(char32_t character)
{
    if (character >= U'0' && character <= U'9')
        return character - U'0';
    if (character >= U'a' && character <= U'f')
        return character - U'a' + 10;
    if (character >= U'A' && character <= U'F')
        return character - U'A' + 10;
    return std::nullopt;
}

bool isAlphanumeric(char32_t character)
{
    return QChar::isLetterOrNumber(character) || QChar::isMark(character);
}

} // namespace

HexDigits HexDigits::scan(QStringView text)
{
    const QList<uint> characters = text.toUcs4();
    const auto first = std::find_if(characters.begin(), characters.end(), isAlphanumeric);
    const auto last =
        std::find_if(characters.rbegin(), std::reverse_iterator(first), isAlphanumeric).base();

    HexDigits digits;
    digits.characterCount = last - first;
    for (auto it = first; it != last; ++it) {
        const std::optional<unsigned> digit = hexDigit(*it);
        if (!digit)
            break;
        if (digits.value > std::numeric_limits<std::uint64_t>::max() >> 4U) {
            digits.value = std::numeric_limits<std::uint64_t>::max();
        } else {
            digits.value = (digits.value << 4U) | *digit;
        }
    }
    return digits;
}

} // namespace quenara
