#pragma once

#include <QList>
#include <QRect>

#include <optional>

/// Lists of screens are their frames in the platform's order, the primary one first.
namespace quenara {

/// Where the audience display goes by command: over the second of \a screens, else over the main
/// screen, else to a window of its own size.
QRect displayFrame(const QList<QRect> &screens, const std::optional<QRect> &mainScreen);

/// The first of \a screens that the audience display can cover without covering what the operator
/// sees: neither the primary one nor one that shows the same.
std::optional<qsizetype> freeScreen(const QList<QRect> &screens);

/// The screen for an open audience display after the screens changed: \a current, the one it
/// covers, as long as there is one and it did not turn into a mirror of the primary one; else a
/// free one. Without any, the display is to close: it never goes to the operator's screen by
/// itself.
std::optional<qsizetype> screenToFollow(const QList<QRect> &screens,
                                        std::optional<qsizetype> current);

} // namespace quenara
