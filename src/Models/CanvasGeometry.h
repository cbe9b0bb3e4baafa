#pragma once

#include "Record.h"

#include <algorithm>

namespace quenara {

/// The size of a design canvas in canvas units.
struct CanvasSize
{
    double width = 1920;
    double height = 1080;

    bool operator==(const CanvasSize &) const = default;
    static constexpr auto fields()
    {
        return FieldList{field("width", &CanvasSize::width), field("height", &CanvasSize::height)};
    }
};
static_assert(listsEveryMember<CanvasSize>);

/// A rectangle on the design canvas: canvas units, origin at the top left.
struct CanvasFrame
{
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    /// The smallest size resizedBy() gives.
    static constexpr double minimumWidth = 80;
    static constexpr double minimumHeight = 48;

    [[nodiscard]] constexpr double midX() const { return x + width / 2; }
    [[nodiscard]] constexpr double midY() const { return y + height / 2; }

    [[nodiscard]] constexpr CanvasFrame offsetBy(double dx, double dy) const
    {
        return {x + dx, y + dy, width, height};
    }

    [[nodiscard]] constexpr CanvasFrame resizedBy(double dw, double dh) const
    {
        return {x, y, std::max(minimumWidth, width + dw), std::max(minimumHeight, height + dh)};
    }

    bool operator==(const CanvasFrame &) const = default;
    static constexpr auto fields()
    {
        return FieldList{field("x", &CanvasFrame::x), field("y", &CanvasFrame::y),
                         field("width", &CanvasFrame::width),
                         field("height", &CanvasFrame::height)};
    }
};
static_assert(listsEveryMember<CanvasFrame>);

} // namespace quenara
