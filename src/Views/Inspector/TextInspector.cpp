#include "TextInspector.h"

#include "ColorWell.h"
#include "EnumPicker.h"
#include "InspectorRows.h"
#include "SelectionBindings.h"
#include "Slider.h"
#include "Stepper.h"
#include "Switch.h"
#include "SymbolPicker.h"

namespace quenara {

namespace {

constexpr Stepper::Range fontSizes{.minimum = 12, .maximum = 180, .step = 2};

Picker *makeFontPicker()
{
    auto *picker = new Picker(QStringLiteral("Font"));
    for (const QString &family :
         {QStringLiteral("Avenir Next"), QStringLiteral("Helvetica Neue"),
          QStringLiteral("SF Pro Display"), QStringLiteral("Georgia"), QStringLiteral("Menlo")}) {
        picker->addItem(family, family);
    }
    return picker;
}

SymbolPicker *makeAlignmentPicker()
{
    return new SymbolPicker(QStringLiteral("Alignment"),
                            {{QStringLiteral("text.alignleft"), QStringLiteral("Align Left"),
                              rawValue(TextAlignmentValue::left)},
                             {QStringLiteral("text.aligncenter"), QStringLiteral("Align Center"),
                              rawValue(TextAlignmentValue::center)},
                             {QStringLiteral("text.alignright"), QStringLiteral("Align Right"),
                              rawValue(TextAlignmentValue::right)}});
}

Binding<bool> textShadow(SelectionBindings &selection)
{
    return {[&selection]() -> std::optional<bool> {
                const std::optional<SlideElement> &layer = selection.layer();
                return layer && layer->text ? std::optional(layer->text->shadow.has_value())
                                            : std::nullopt;
            },
            [&selection](bool isOn) {
                selection.store().updateSelectedElement([isOn](SlideElement &layer) {
                    if (layer.text)
                        layer.text->shadow = isOn ? std::optional(TextShadow::soft) : std::nullopt;
                });
            }};
}

} // namespace

QWidget *makeTextInspector(SelectionBindings &selection)
{
    // A document may lack the properties that belong to a layer's kind.
    const auto ofText = [&](auto member) {
        return selection.ofLayer([member](SlideElement &layer) {
            return layer.text ? &((*layer.text).*member) : nullptr;
        });
    };
    using Text = TextElementProperties;
    auto *size =
        selection.bound(new Stepper(QStringLiteral("Size"), fontSizes), ofText(&Text::fontSize));
    size->setTitleWidth(InspectorRows::titleWidth);

    auto *rows = new InspectorRows;
    rows->add(selection.bound(makeFontPicker(), ofText(&Text::fontFamily)));
    rows->add(selection.bound(makeEnumPicker<TextFontWeight>(QStringLiteral("Weight")),
                              ofText(&Text::weight)));
    rows->addUntitled(size);
    rows->addSmall(
        selection.bound(new ColorWell(QStringLiteral("Text Color")), ofText(&Text::textColor)));
    rows->add(selection.bound(makeAlignmentPicker(), ofText(&Text::alignment)));
    rows->add(
        selection.bound(new Slider(QStringLiteral("Line"), 0.85, 1.8), ofText(&Text::lineHeight)));
    rows->add(selection.bound(new Slider(QStringLiteral("Tracking"), -3, 12),
                              ofText(&Text::characterSpacing)));
    rows->addPair(
        selection.bound(new Switch(QStringLiteral("Uppercase")), ofText(&Text::uppercase)),
        selection.bound(new Switch(QStringLiteral("Shadow")), textShadow(selection)));
    return rows;
}

} // namespace quenara
