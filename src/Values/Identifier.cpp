#include "Identifier.h"

#include <QRandomGenerator>
#include <QUuid>

#include <algorithm>
#include <array>
#include <cstddef>

namespace quenara {

namespace {

/// A random UUID. Qt makes its own from the processor's random numbers, of which one takes as long
/// as reading a slide does; these have to be different, not unforeseeable.
QUuid randomUuid()
{
    std::array<quint32, 4> random{};
    QRandomGenerator::global()->fillRange(random.data(), qsizetype(random.size()));
    const auto byte = [&random](std::size_t word, unsigned index) {
        return uchar(random.at(word) >> (8 * index));
    };
    constexpr ushort version = 0x4000; // and variant: what tells random UUIDs from others
    constexpr uchar variant = 0x80;
    return {random[0],
            ushort(random[1]),
            ushort((random[1] >> 16U & 0x0fffU) | version),
            uchar((byte(2, 0) & 0x3fU) | variant),
            byte(2, 1),
            byte(2, 2),
            byte(2, 3),
            byte(3, 0),
            byte(3, 1),
            byte(3, 2),
            byte(3, 3)};
}

} // namespace

QString newIdentifier()
{
    QString identifier = randomUuid().toString(QUuid::WithoutBraces);
    std::transform(identifier.begin(), identifier.end(), identifier.begin(), [](QChar digit) {
        return digit >= QLatin1Char('a') ? QChar(digit.unicode() - 'a' + 'A') : digit;
    });
    return identifier;
}

} // namespace quenara
