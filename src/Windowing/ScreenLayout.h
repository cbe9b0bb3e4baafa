#pragma once

#include <QList>
#include <QRect>

#include <optional>

namespace quenara {

/// Where the audience display goes: over the second of \a screens (frames in the platform's order,
/// the primary one first), else over the main screen, else to a window of its own size.
QRect displayFrame(const QList<QRect> &screens, const std::optional<QRect> &mainScreen);

} // namespace quenara
