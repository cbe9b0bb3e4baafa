#include "BackgroundInspector.h"

#include "ColorWell.h"
#include "DropTarget.h"
#include "EnumPicker.h"
#include "InspectorRows.h"
#include "SelectionBindings.h"
#include "Slider.h"
#include "SymbolButton.h"
#include "TransferredData.h"

namespace quenara {

namespace {

constexpr double mostDimming = 0.8;

SlideBackground &backgroundOf(Slide &slide)
{
    return slide.design.background;
}

/// The gradient of the slide's background. A background without one is given the default's, so that
/// there are colours to show and to change.
GradientBackground &gradientOf(Slide &slide)
{
    SlideBackground &background = backgroundOf(slide);
    if (!background.gradient)
        background.gradient = SlideBackground::defaultDark().gradient;
    return *background.gradient;
}

} // namespace

QWidget *makeBackgroundInspector(SelectionBindings &selection)
{
    const auto ofBackground = [&](auto member) {
        return selection.ofSlide([member](Slide &slide) { return &(backgroundOf(slide).*member); });
    };
    const auto ofGradient = [&](auto member) {
        return selection.ofSlide([member](Slide &slide) { return &(gradientOf(slide).*member); });
    };
    auto *image = new SymbolButton(QStringLiteral("photo"), QStringLiteral("Choose Image..."),
                                   SymbolButton::Look::labelled);
    QObject::connect(image, &SymbolButton::clicked, &selection.store(),
                     &WorkspaceStore::setBackgroundImageWithPanel);

    auto *rows = new InspectorRows;
    rows->add(selection.bound(makeEnumPicker<SlideBackgroundKind>(QStringLiteral("Type")),
                              ofBackground(&SlideBackground::kind)));
    rows->addSmall(selection.bound(new ColorWell(QStringLiteral("Solid")),
                                   ofBackground(&SlideBackground::solidColor)));
    rows->addSmall(QStringLiteral("Gradient"),
                   {selection.bound(new ColorWell(QStringLiteral("Gradient Start")),
                                    ofGradient(&GradientBackground::startColor)),
                    selection.bound(new ColorWell(QStringLiteral("Gradient End")),
                                    ofGradient(&GradientBackground::endColor))});
    rows->add(selection.bound(makeEnumPicker<GradientDirection>(QStringLiteral("Direction")),
                              ofGradient(&GradientBackground::direction)));
    rows->addSmall(QStringLiteral("Image"), {image});
    rows->add(selection.bound(new Slider(QStringLiteral("Dim"), 0, mostDimming),
                              ofBackground(&SlideBackground::dimAmount)));
    return rows;
}

void takeBackgroundImages(QWidget &section, SelectionBindings &selection)
{
    constexpr int markOutset = 4; // the rows begin at the section's very edge
    new DropTarget(section,
                   {.accepts =
                        [&selection](const QMimeData &data) {
                            return selection.slide().has_value() && mayHoldImage(data);
                        },
                    .take =
                        [&selection](const QMimeData &data, const QPointF & /*point*/) {
                            if (const std::optional<SlideMedia> image = imageIn(data))
                                selection.store().setBackgroundImage(*image);
                        },
                    .markOutset = markOutset});
}

} // namespace quenara
