#pragma once

#include <QByteArray>
#include <QMargins>
#include <QRect>
#include <QString>

#include <optional>

namespace quenara {

/// What a window manager is taken to add to a window before it tells, in points: a title bar and
/// narrow edges.
inline constexpr QMargins usualFrame(2, 40, 2, 2);

/// Where the operator's window was on the desktop. All lengths are in points.
struct WindowPlace
{
    QString screen; ///< the platform's name of the screen
    QPoint corner; ///< the top left of the frame, as seen from that of the screen
    QSize size; ///< without the frame
    QMargins frame = usualFrame;
    bool isMaximized = false; ///< `corner` and `size` are then those of the window when it is not

    bool operator==(const WindowPlace &) const = default;
};

/// The largest window no more than \a size that, with \a frame around it, fits into \a room.
[[nodiscard]] QSize sizeWithin(const QSize &room, const QSize &size, const QMargins &frame);

/// \a place with its window made so small and moved so far that the whole frame lies in
/// \a available, which is seen from the top left of the screen, too.
[[nodiscard]] WindowPlace broughtWithin(const QRect &available, WindowPlace place);

/// Whether two places on the same screen are alike but for rounding: none of their lengths differs
/// by more than a point. Frames are left out, since they come from the desktop.
[[nodiscard]] bool isBeside(const WindowPlace &one, const WindowPlace &other);

/// As it is stored: a JSON object.
[[nodiscard]] QByteArray encode(const WindowPlace &place);

/// Nothing unless \a json is an object with all that encode() writes, of the same types and with
/// numbers that a window can have.
[[nodiscard]] std::optional<WindowPlace> decodeWindowPlace(const QByteArray &json);

} // namespace quenara
