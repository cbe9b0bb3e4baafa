#include "SlideInspector.h"

#include "InspectorRows.h"
#include "Picker.h"
#include "ProjectTemplates.h"
#include "RundownEdits.h"
#include "SelectionBindings.h"
#include "TextField.h"

#include <algorithm>

namespace quenara {

namespace {

Binding<QString> slideTitle(SelectionBindings &selection)
{
    return {[&selection]() -> std::optional<QString> {
                if (!selection.slide())
                    return std::nullopt;
                return selection.slide()->title;
            },
            [&selection](const QString &title) {
                selection.store().updateSelectedSlide(
                    [&](Slide &slide) { edits::retitle(slide, title); });
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
            return isKnown ? std::optional(*slide->design.themeId) : std::nullopt;
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
