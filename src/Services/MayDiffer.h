#pragma once

#include "Record.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <algorithm>
#include <optional>

namespace quenara {

/// Whether \a after may differ from \a before, of which it is an edited copy. It does not where the
/// two share their storage, which is not looked into; lists that do not share it count as
/// different. So the cost is that of what was copied, not of what there is.
template<class T>
[[nodiscard]] bool mayDiffer(const T &before, const T &after)
{
    return !(before == after);
}

template<class T>
[[nodiscard]] bool mayDiffer(const QList<T> &before, const QList<T> &after)
{
    return before.constData() != after.constData() || before.size() != after.size();
}

[[nodiscard]] inline bool mayDiffer(const QString &before, const QString &after)
{
    return (before.constData() != after.constData() || before.size() != after.size())
        && before != after;
}

template<Record T>
[[nodiscard]] bool mayDiffer(const T &before, const T &after);

template<class T>
[[nodiscard]] bool mayDiffer(const std::optional<T> &before, const std::optional<T> &after)
{
    return before.has_value() != after.has_value() || (before && mayDiffer(*before, *after));
}

template<class T>
[[nodiscard]] bool mayDiffer(const SharedOptional<T> &before, const SharedOptional<T> &after)
{
    return !before.isSharedWith(after)
        && (before.has_value() != after.has_value() || mayDiffer(*before, *after));
}

template<Record T>
[[nodiscard]] bool mayDiffer(const T &before, const T &after)
{
    bool differs = false;
    forEachField<T>(
        [&](const auto &f) { differs = differs || mayDiffer(before.*f.member, after.*f.member); });
    return differs;
}

} // namespace quenara
