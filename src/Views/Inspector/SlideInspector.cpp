#include "SlideInspector.h"

#include "InspectorRows.h"
#include "Picker.h"
#include "ProjectTemplates.h"
#include "SelectionBindings.h"
#include "TextField.h"

#include <algorithm>
#include <utility>

namespace quenara {

namespace {

/// A template's title layer follows the title of its slide.
void setTitle(Slide &slide, const QString &title)
{
    slide.title = title;
    const QList<SlideElement> &layers = std::as_const(slide.design.elements);
    const auto titleLayer =
        std::find_if(layers.begin(), layers.end(), [](const SlideElement &layer) {
            return layer.text && layer.name.toLower().contains(QLatin1String("title"));
        });
    if (titleLayer != layers.end())
        slide.design.elements[titleLayer - layers.begin()].text->text = title;
}

Binding<QString> slideTitle(SelectionBindings &selection)
{
    return {selection.ofSlide([](Slide &slide) { return &slide.title; }).read,
            [&selection](const QString &title) {
                selection.store().updateSelectedSlide(
                    [&](Slide &slide) { setTitle(slide, title); });
            }};
}

/// Reads nothing for a design that no template of the catalogue has made.
Binding<QString> slideTemplate(SelectionBindings &selection)
{
    return {
        [&selection]() -> std::optional<QString> {
            const QList<SlideTemplate> templates = ProjectTemplates::templates();
            const std::optional<Slide> &slide = selection.slide();
            const bool isKnown =
                slide && std::any_of(templates.begin(), templates.end(), [&](const auto &known) {
                    return known.id == slide->design.themeId;
                });
            return isKnown ? slide->design.themeId : std::nullopt;
        },
        [&selection](const QString &id) { selection.store().applyTemplateToSelectedSlide(id); }};
}

Picker *makeTemplatePicker()
{
    auto *picker = new Picker(QStringLiteral("Template"));
    for (const SlideTemplate &choice : ProjectTemplates::templates())
        picker->addItem(choice.name, choice.id);
    return picker;
}

} // namespace

QWidget *makeSlideInspector(SelectionBindings &selection)
{
    auto *rows = new InspectorRows;
    rows->add(selection.bound(new TextField(QStringLiteral("Title")), slideTitle(selection)));
    rows->add(selection.bound(makeTemplatePicker(), slideTemplate(selection)));
    return rows;
}

} // namespace quenara
