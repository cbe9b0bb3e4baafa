#include "SlideElementRenderView.h"

#include "ImageElementRenderView.h"
#include "LowerThirdElementRenderView.h"
#include "ShapeElementRenderView.h"
#include "TextElementRenderView.h"

#include <algorithm>
#include <cmath>

namespace quenara {

void SlideElementRenderView::paint(QPainter &painter, const QRectF &box) const
{
    switch (element.kind) {
    case SlideElementKind::text:
    case SlideElementKind::scriptureText:
    case SlideElementKind::songLyricText:
        if (element.text)
            TextElementRenderView{*element.text, scale}.paint(painter, box);
        break;
    case SlideElementKind::image:
        ImageElementRenderView{element.image, pictures}.paint(painter, box);
        break;
    case SlideElementKind::shape:
        ShapeElementRenderView{element.shape}.paint(painter, box);
        break;
    case SlideElementKind::lowerThird:
        LowerThirdElementRenderView{element.lowerThird, scale}.paint(painter, box);
        break;
    }
}

double SlideElementRenderView::overhang() const
{
    double overhang = element.shape ? std::max(0.0, element.shape->strokeWidth) : 0;
    // A blur of radius r is spent after three standard deviations of r / 2.
    constexpr double reach = 1.5;
    if (element.text && element.text->shadow) {
        const TextShadow &shadow = *element.text->shadow;
        const double offset = std::hypot(shadow.x, shadow.y);
        overhang = std::max(overhang, (reach * shadow.radius + offset) * scale);
    }
    if (element.text && element.text->outline)
        overhang = std::max(overhang, reach * element.text->outline->width * scale);
    return overhang;
}

} // namespace quenara
