#pragma once

#include <QString>

#include <cstring>

namespace quenara {

/// A fresh identifier: the upper-case canonical text of a random UUID (8-4-4-4-12 hexadecimal
/// digits with hyphens). Nothing parses identifiers.
QString newIdentifier();

/// Equality for those who walk long lists: it looks at no more of an identifier than it must, which
/// is nothing where a list is shared, and does so where it is called.
inline bool isSameIdentifier(const QString &a, const QString &b)
{
    // The first characters, which even empty strings have, tell most apart without a call.
    return &a == &b
        || (a.size() == b.size() && *a.constData() == *b.constData()
            && std::memcmp(a.constData(), b.constData(), std::size_t(a.size()) * sizeof(QChar))
                == 0);
}

} // namespace quenara
