#include "SlideElementRenderView.h"

#include "ImageElementRenderView.h"
#include "LowerThirdElementRenderView.h"
#include "ShapeElementRenderView.h"
#include "TextElementRenderView.h"

#include <algorithm>
#include <cmath>

namespace quenara {

namespace {

/// How far \a text may reach beyond its box, in canvas units.
double overhangOf(const TextElementProperties &text)
{
    // A text that cannot be shrunk to fit keeps one line, which may be higher than the box.
    constexpr double lineOverhang = 0.5;
    // A blur of radius r has a standard deviation of r / 2 and is not seen beyond three of those.
    constexpr double reach = 1.5;
    double glow = text.outline ? reach * text.outline->width : 0;
    if (text.shadow) {
        const double blur = reach * std::max(0.0, text.shadow->radius);
        glow = std::max(glow, blur + std::hypot(text.shadow->x, text.shadow->y));
    }
    return std::max(0.0, glow) + std::max(0.0, -text.padding)
        + lineOverhang * std::max(0.0, text.fontSize);
}

} // namespace

void SlideElementRenderView::paint(QPainter &painter, const QRectF &box, RenderCaches &caches) const
{
    switch (element.kind) {
    case SlideElementKind::text:
    case SlideElementKind::scriptureText:
    case SlideElementKind::songLyricText:
        if (element.text)
            TextElementRenderView{*element.text, scale}.paint(painter, box, caches);
        break;
    case SlideElementKind::image:
        ImageElementRenderView{element.image, slide}.paint(painter, box, caches);
        break;
    case SlideElementKind::shape:
        ShapeElementRenderView{element.shape}.paint(painter, box);
        break;
    case SlideElementKind::lowerThird:
        LowerThirdElementRenderView{element.lowerThird, scale}.paint(painter, box, caches);
        break;
    }
}

bool SlideElementRenderView::isOnePiece() const
{
    return element.kind == SlideElementKind::shape
        && !ShapeElementRenderView{element.shape}.isStroked();
}

double SlideElementRenderView::overhang() const
{
    switch (element.kind) {
    case SlideElementKind::text:
    case SlideElementKind::scriptureText:
    case SlideElementKind::songLyricText:
        return element.text ? overhangOf(*element.text) * scale : 0;
    case SlideElementKind::shape:
        return element.shape ? std::max(0.0, element.shape->strokeWidth) : 0;
    case SlideElementKind::image:
    case SlideElementKind::lowerThird:
        break;
    }
    return 0;
}

} // namespace quenara
