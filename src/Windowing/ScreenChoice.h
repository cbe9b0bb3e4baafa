#pragma once

#include <QList>
#include <QRect>

#include <optional>

/// Lists of screens are their frames in the platform's order, the primary one first.
namespace quenara {

/// Where the audience display goes by command: over the second of \a screens, else over the main
/// screen, else to a window of its own size.
[[nodiscard]] QRect displayFrame(const QList<QRect> &screens,
                                 const std::optional<QRect> &mainScreen);

/// Whether a display on \a screen covers nothing of what the operator sees: neither the primary one
/// of \a screens nor \a operatorScreen, the one with the operator's window.
[[nodiscard]] bool isApart(const QRect &screen, const QList<QRect> &screens,
                           const QRect &operatorScreen);

/// The first of \a screens that the audience display can cover by itself without covering what the
/// operator sees: neither the primary one, nor one that shows the same, nor \a operatorScreen, the
/// one with the operator's window.
[[nodiscard]] std::optional<qsizetype> freeScreen(const QList<QRect> &screens,
                                                  const QRect &operatorScreen);

/// The screen for an open audience display after the screens changed: \a current, the one it
/// covers, as long as there is one and it did not turn into a mirror of the primary one; else a
/// free one. Without any, the display is to close. A display that covers the primary screen was
/// sent there, or its screen is the only one left: it stays.
[[nodiscard]] std::optional<qsizetype> screenToFollow(const QList<QRect> &screens,
                                                      std::optional<qsizetype> current,
                                                      const QRect &operatorScreen);

} // namespace quenara
