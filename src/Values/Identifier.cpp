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

/// Identifiers that share one block of memory, which goes with the last of them: by itself, each
/// would take half as much again, and a long list of records holds little else.
class Batch
{
public:
    Batch() : m_block(count * stride, QChar::Null) {}

    [[nodiscard]] bool isUsedUp() const { return m_made == count; }

    QString next()
    {
        QString::DataPointer &block = m_block.data_ptr();
        char16_t *text = block.data() + m_made++ * stride;
        writeUpperCase(randomUuid(), text);
        block.ref();
        return QString(QString::DataPointer(block.d_ptr(), text, length));
    }

private:
    static constexpr qsizetype count = 64;
    static constexpr qsizetype length = 36;
    static constexpr qsizetype stride = length + 1; // with the end that QString wants behind a text

    static void writeUpperCase(const QUuid &uuid, char16_t *text)
    {
        const QByteArray digits = uuid.toByteArray(QUuid::WithoutBraces);
        std::transform(digits.begin(), digits.end(), text, [](char digit) {
            return char16_t(digit >= 'a' ? digit - 'a' + 'A' : digit);
        });
    }

    QString m_block;
    qsizetype m_made = 0;
};

} // namespace

QString newIdentifier()
{
    thread_local Batch batch;
    if (batch.isUsedUp())
        batch = Batch();
    return batch.next();
}

} // namespace quenara
