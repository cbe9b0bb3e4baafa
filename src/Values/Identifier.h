#pragma once

#include <QString>

#include <cstring>

namespace quenara {

/// A fresh identifier: the upper-case canonical text of a random UUID (8-4-4-4-12 hexadecimal
/// digits with hyphens). Nothing parses identifiers.
[[nodiscard]] QString newIdentifier();

/// a == b, for walks over long lists: inlined, and mostly decided by the address, the length or the
/// first character.
[[nodiscard]] inline bool isSameIdentifier(const QString &a, const QString &b)
{
    // Even an empty string has a first character, its terminator.
    return &a == &b
        || (a.size() == b.size() && *a.constData() == *b.constData()
            && std::memcmp(a.constData(), b.constData(), std::size_t(a.size()) * sizeof(QChar))
                == 0);
}

} // namespace quenara
