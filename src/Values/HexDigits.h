#pragma once

#include <QStringView>

#include <cstdint>

namespace quenara {

/// Hexadecimal colour text as both colour parsers read it.
struct HexDigits
{
    /// The digits scanned from the start of the trimmed text up to its first other character; 0
    /// when there is none. More than 16 digits saturate.
    std::uint64_t value = 0;
    /// The number of characters (Unicode code points) of the trimmed text, scanned or not.
    qsizetype characterCount = 0;

    /// Trims every character that is neither letter nor digit from both ends of \a text.
    [[nodiscard]] static HexDigits scan(QStringView text);

    /// The \a count bits from bit \a shift up.
    [[nodiscard]] constexpr int bits(unsigned shift, unsigned count) const
    {
        return int((value >> shift) & ((1U << count) - 1U));
    }
};

} // namespace quenara
