#include "SelectionMarks.h"

#include "DevicePixels.h"
#include "PointerGeometry.h"
#include "ZelvoTheme.h"

#include <cmath>

namespace quenara {

namespace {

// Points
constexpr double outlineWidth = 1.5;
constexpr double outlineMiterLimit = 10;
constexpr double handleOutlineWidth = 1;
constexpr double handleCornerRadius = 2;
constexpr double guideWidth = 1;
constexpr float guideOpacity = 0.72F;

} // namespace

void paintSelectionMarks(QPainter &painter, const QRectF &box, const ZelvoTheme &theme)
{
    QPen outline(theme.accent, outlineWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    outline.setMiterLimit(outlineMiterLimit);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(outline);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box);
    const double inset = handleOutlineWidth / 2;
    painter.setPen(QPen(theme.primaryText, handleOutlineWidth));
    painter.setBrush(theme.accent);
    painter.drawRoundedRect(resizeHandle(box).adjusted(inset, inset, -inset, -inset),
                            handleCornerRadius, handleCornerRadius);
}

QRect selectionMarksRect(const QRectF &box)
{
    return reachableRect((box.normalized() | resizeHandle(box))
                             .adjusted(-outlineWidth, -outlineWidth, outlineWidth, outlineWidth));
}

QRectF verticalCenterGuide(const QRectF &slide)
{
    return {std::round(slide.center().x() - guideWidth / 2), slide.top(), guideWidth,
            slide.height()};
}

QRectF horizontalCenterGuide(const QRectF &slide)
{
    return {slide.left(), std::round(slide.center().y() - guideWidth / 2), slide.width(),
            guideWidth};
}

QColor centerGuideColor(const ZelvoTheme &theme)
{
    QColor color = theme.accent;
    color.setAlphaF(guideOpacity);
    return color;
}

} // namespace quenara
