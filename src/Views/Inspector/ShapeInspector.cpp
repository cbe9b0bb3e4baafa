#include "ShapeInspector.h"

#include "ColorWell.h"
#include "EnumPicker.h"
#include "InspectorRows.h"
#include "SelectionBindings.h"
#include "Stepper.h"

namespace quenara {

namespace {

constexpr Stepper::Range cornerRadii{.minimum = 0, .maximum = 80, .step = 2};

} // namespace

QWidget *makeShapeInspector(SelectionBindings &selection)
{
    // A document may lack the properties that belong to a layer's kind.
    const auto ofShape = [&](auto member) {
        return selection.ofLayer([member](SlideElement &layer) {
            return layer.shape ? &((*layer.shape).*member) : nullptr;
        });
    };
    using Shape = ShapeProperties;
    auto *radius = selection.bound(new Stepper(QStringLiteral("Radius"), cornerRadii),
                                   ofShape(&Shape::cornerRadius));
    radius->setTitleWidth(InspectorRows::titleWidth);

    auto *rows = new InspectorRows;
    rows->add(
        selection.bound(makeEnumPicker<ShapeKind>(QStringLiteral("Shape")), ofShape(&Shape::kind)));
    rows->addSmall(selection.bound(new ColorWell(QStringLiteral("Fill")), ofShape(&Shape::fill)));
    rows->addUntitled(radius);
    return rows;
}

} // namespace quenara
