#include "CanvasKeys.h"

#include <QKeyEvent>

#include <algorithm>

namespace quenara {

namespace {

constexpr double smallStep = 1;
constexpr double largeStep = 10;

/// \a modifiers are those that the arrow is pressed with, Shift apart.
std::optional<QPointF> arrowStep(const QKeyEvent &event, Qt::KeyboardModifiers modifiers)
{
    constexpr Qt::KeyboardModifiers others = Qt::ShiftModifier | Qt::KeypadModifier;
    if ((event.modifiers() & ~others) != modifiers)
        return std::nullopt;
    const double by = event.modifiers().testFlag(Qt::ShiftModifier) ? largeStep : smallStep;
    switch (event.key()) {
    case Qt::Key_Left:
        return QPointF(-by, 0);
    case Qt::Key_Right:
        return QPointF(by, 0);
    case Qt::Key_Up:
        return QPointF(0, -by);
    case Qt::Key_Down:
        return QPointF(0, by);
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<QPointF> moveOf(const QKeyEvent &event)
{
    return arrowStep(event, Qt::ControlModifier);
}

std::optional<QPointF> growthOf(const QKeyEvent &event)
{
    return arrowStep(event, Qt::ControlModifier | Qt::AltModifier);
}

bool pressesByKey(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Space && event.modifiers() == Qt::ControlModifier;
}

bool editsByKey(const QKeyEvent &event)
{
    return event.key() == Qt::Key_F2 && event.modifiers() == Qt::NoModifier;
}

std::vector<const SlideElement *> layersFromTop(const SlideDesign &design)
{
    std::vector<const SlideElement *> layers;
    for (const SlideElement &element : design.elements)
        layers.push_back(&element);
    std::stable_sort(layers.begin(), layers.end(),
                     [](const auto *a, const auto *b) { return a->zIndex > b->zIndex; });
    return layers;
}

std::optional<QString> layerAfter(const SlideDesign &design, const std::optional<QString> &id,
                                  bool downwards)
{
    std::vector<const SlideElement *> layers = layersFromTop(design);
    if (!downwards)
        std::reverse(layers.begin(), layers.end());
    auto next = layers.begin();
    if (id) {
        next = std::find_if(layers.begin(), layers.end(),
                            [&](const auto *layer) { return layer->id == *id; });
        if (next != layers.end())
            ++next;
    }
    return next == layers.end() ? std::nullopt : std::optional((*next)->id);
}

} // namespace quenara
