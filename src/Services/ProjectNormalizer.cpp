#include "ProjectNormalizer.h"

#include "Identifier.h"
#include "ProjectTemplates.h"
#include "SharedParts.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace quenara {

namespace {

/// True when normalizing would leave the slide as it is, whatever its item.
bool isNormalized(const Slide &slide)
{
    return !slide.design.elements.isEmpty()
        && slide.body == ProjectNormalizer::compatibilityBody(slide)
        && (slide.image || !slide.design.background.image);
}

void normalize(Slide &slide, ServiceItemType type)
{
    if (slide.design.elements.isEmpty()) {
        slide.design = ProjectTemplates::design(ProjectTemplates::defaultTemplate(type),
                                                slide.title, slide.body, slide.footer, slide.image);
    }
    slide.body = ProjectNormalizer::compatibilityBody(slide);
    if (!slide.image)
        slide.image = slide.design.background.image;
}

/// What an element adds to the body: nothing, or a text that may be empty.
std::optional<QString> bodyEntry(const SlideElement &element)
{
    if (element.text) {
        const QString trimmed = element.text->text.trimmed();
        if (!trimmed.isEmpty())
            return trimmed;
    }
    if (!element.lowerThird)
        return std::nullopt;
    QStringList lines;
    for (const QString &line : {element.lowerThird->title, element.lowerThird->subtitle}) {
        if (!line.trimmed().isEmpty())
            lines.append(line);
    }
    return lines.join(QLatin1Char('\n'));
}

ServiceItem importedItem(const LegacyQuenaraDocument &document)
{
    QList<Slide> slides;
    for (const LegacySlide &legacy : document.slides.value_or(QList<LegacySlide>())) {
        Slide slide = ProjectNormalizer::slide(legacy, slides.size());
        if (!slides.isEmpty())
            sharePartsWith(slide, slides.constLast());
        slides.append(std::move(slide));
    }
    if (slides.isEmpty()) {
        slides.append(ProjectTemplates::slide(QStringLiteral("Imported Slide"), QString(), 0,
                                              rawValue(SlideTemplateID::centerLyric)));
    }
    const QString title = document.title
        ? *document.title
        : document.name.value_or(QStringLiteral("Imported Slides"));
    return {.id = newIdentifier(),
            .title = title,
            .type = ServiceItemType::custom,
            .orderIndex = 0,
            .subtitle = std::nullopt,
            .slides = slides};
}

} // namespace

ZelvoProject ProjectNormalizer::withMirroredOrder(ZelvoProject project)
{
    for (qsizetype i = 0; i < project.serviceItems.size(); ++i) {
        if (project.serviceItems.at(i).orderIndex != i)
            project.serviceItems[i].orderIndex = i;
        for (qsizetype j = 0; j < project.serviceItems.at(i).slides.size(); ++j) {
            if (project.serviceItems.at(i).slides.at(j).orderIndex != j)
                project.serviceItems[i].slides[j].orderIndex = j;
        }
    }
    return project;
}

ZelvoProject ProjectNormalizer::inCurrentSchema(ZelvoProject project)
{
    project = withMirroredOrder(std::move(project));
    project.schemaVersion = std::max(project.schemaVersion, ZelvoProject::currentSchemaVersion);
    return project;
}

ZelvoProject ProjectNormalizer::normalized(ZelvoProject project)
{
    project = inCurrentSchema(std::move(project));
    for (qsizetype i = 0; i < project.serviceItems.size(); ++i) {
        const ServiceItemType type = project.serviceItems.at(i).type;
        for (qsizetype j = 0; j < project.serviceItems.at(i).slides.size(); ++j) {
            if (!isNormalized(project.serviceItems.at(i).slides.at(j)))
                normalize(project.serviceItems[i].slides[j], type);
        }
    }
    return project;
}

ZelvoProject ProjectNormalizer::normalizedForSave(ZelvoProject project, const QDateTime &now)
{
    project = normalized(std::move(project));
    project.updatedAt = now.addMSecs(-now.time().msec());
    return project;
}

ZelvoProject ProjectNormalizer::project(const LegacyQuenaraDocument &document, const QDateTime &now)
{
    const bool hasItems = document.serviceItems && !document.serviceItems->isEmpty();
    const QString name = document.name
        ? *document.name
        : document.title.value_or(QStringLiteral("Imported Quenara"));
    return normalized({
        .id = document.id ? *document.id : newIdentifier(),
        .name = name,
        .schemaVersion = ZelvoProject::currentSchemaVersion,
        .kind = document.kind.value_or(ProjectKind::custom),
        .updatedAt = document.updatedAt.value_or(now),
        .serviceItems = hasItems ? *document.serviceItems : QList{importedItem(document)},
    });
}

Slide ProjectNormalizer::slide(const LegacySlide &legacy, std::int64_t orderIndex)
{
    const QString body = legacy.body ? *legacy.body : legacy.text.value_or(QString());
    const QString numbered = QStringLiteral("Slide %1").arg(orderIndex + 1);
    const QString label = legacy.emoji ? *legacy.emoji + QLatin1Char(' ') + numbered : numbered;
    const QString templateID = rawValue(legacy.image ? SlideTemplateID::imageBackgroundLyric
                                                     : SlideTemplateID::centerLyric);
    return {
        .id = legacy.id ? *legacy.id : newIdentifier(),
        .title = legacy.title.value_or(label),
        .body = body,
        .orderIndex = legacy.orderIndex.value_or(orderIndex),
        .footer = legacy.footer,
        .image = legacy.image,
        .audio = legacy.audio,
        .design = ProjectTemplates::design(templateID, legacy.title.value_or(numbered), body,
                                           legacy.footer, legacy.image),
    };
}

QString ProjectNormalizer::compatibilityBody(const Slide &slide)
{
    std::optional<QString> lowest;
    std::int64_t lowestZIndex = 0;
    for (const SlideElement &element : slide.design.elements) {
        if (!element.visible || (lowest && element.zIndex >= lowestZIndex))
            continue;
        if (std::optional<QString> entry = bodyEntry(element)) {
            lowest = std::move(entry);
            lowestZIndex = element.zIndex;
        }
    }
    return lowest.value_or(slide.body);
}

} // namespace quenara
