#include "ProjectTemplates.h"

#include "Identifier.h"
#include "SlideRecipes.h"

#include <string_view>

namespace quenara {

namespace {

using Template = SlideTemplateID;

/// A slide of a starting project as it stands in the tables below.
struct SlideRow
{
    const char *title;
    const char *body;
    const char *footer; ///< none when null
    SlideTemplateID templateID;
};

/// A service item of a starting project.
struct ItemRow
{
    const char *title;
    ServiceItemType type;
    const char *subtitle; ///< none when null
    std::initializer_list<SlideRow> slides;
};

std::optional<QString> optionalString(const char *text)
{
    return text ? std::optional(QString::fromUtf8(text)) : std::nullopt;
}

ServiceItem item(const ItemRow &row, std::int64_t orderIndex)
{
    QList<Slide> slides;
    for (const SlideRow &slide : row.slides) {
        slides.append(ProjectTemplates::slide(
            QString::fromUtf8(slide.title), QString::fromUtf8(slide.body), slides.size(),
            rawValue(slide.templateID), optionalString(slide.footer)));
    }
    return {.id = newIdentifier(),
            .title = QString::fromUtf8(row.title),
            .type = row.type,
            .orderIndex = orderIndex,
            .subtitle = optionalString(row.subtitle),
            .slides = slides};
}

ZelvoProject project(const QString &name, ProjectKind kind, const QDateTime &now,
                     std::initializer_list<ItemRow> rows = {})
{
    QList<ServiceItem> items;
    for (const ItemRow &row : rows)
        items.append(item(row, items.size()));
    return {.id = newIdentifier(),
            .name = name,
            .schemaVersion = ZelvoProject::currentSchemaVersion,
            .kind = kind,
            .updatedAt = now,
            .serviceItems = items};
}

SlideTemplateID defaultTemplateID(ServiceItemType type)
{
    switch (type) {
    case ServiceItemType::welcome:
        return SlideTemplateID::welcome;
    case ServiceItemType::song:
        return SlideTemplateID::centerLyric;
    case ServiceItemType::scripture:
        return SlideTemplateID::scriptureReading;
    case ServiceItemType::message:
        return SlideTemplateID::sermonTitle;
    case ServiceItemType::announcement:
        return SlideTemplateID::announcement;
    case ServiceItemType::closing:
        return SlideTemplateID::closing;
    case ServiceItemType::custom:
        break;
    }
    return SlideTemplateID::minimalDark;
}

} // namespace

QList<SlideTemplate> ProjectTemplates::templates()
{
    QList<SlideTemplate> catalogue;
    for (const SlideTemplateID id : allCases<SlideTemplateID>()) {
        const std::string_view subtitle = slideRecipe(id).subtitle;
        catalogue.append({rawValue(id), title(id),
                          QString::fromUtf8(subtitle.data(), qsizetype(subtitle.size()))});
    }
    return catalogue;
}

SlideDesign ProjectTemplates::design(const QString &templateID, const QString &title,
                                     const QString &body, const SharedOptional<QString> &footer,
                                     const SharedOptional<SlideMedia> &image)
{
    const SlideTemplateID id =
        fromRawValue<SlideTemplateID>(templateID).value_or(SlideTemplateID::centerLyric);
    SlideDesign design = slideRecipe(id).design({title, body, footer, image});
    design.themeId = rawValue(id);
    return design;
}

QString ProjectTemplates::defaultTemplate(ServiceItemType type)
{
    return rawValue(defaultTemplateID(type));
}

Slide ProjectTemplates::slide(const QString &title, const QString &body, std::int64_t orderIndex,
                              const QString &templateID, const SharedOptional<QString> &footer,
                              const SharedOptional<SlideMedia> &image)
{
    return {.id = newIdentifier(),
            .title = title,
            .body = body,
            .orderIndex = orderIndex,
            .footer = footer,
            .image = image,
            .audio = std::nullopt,
            .design = design(templateID, title, body, footer, image)};
}

ZelvoProject ProjectTemplates::blankProject(const QDateTime &now)
{
    return project(QStringLiteral("Untitled Quenara"), ProjectKind::blank, now);
}

ZelvoProject ProjectTemplates::newSundayServiceProject(const QDateTime &now)
{
    using enum ServiceItemType;
    return project(
        QStringLiteral("Sunday Service"), ProjectKind::service, now,
        {
            {"Welcome",
             welcome,
             "Doors and gathering",
             {{"Welcome", "We are glad you are here", nullptr, Template::welcome},
              {"Connect", "Scan the QR code\nor visit the welcome table", nullptr,
               Template::announcement}}},
            {"Worship",
             song,
             "Opening song",
             {{"Verse 1", "Your light breaks through the morning\nYour mercy wakes the room",
               nullptr, Template::centerLyric},
              {"Chorus", "We lift our eyes\nWe lift our song", nullptr, Template::lowerLyric}}},
            {"Scripture",
             scripture,
             "Reading",
             {{"Psalm 96:1-2",
               "Sing to the Lord a new song;\nsing to the Lord, all the earth.\n"
               "Sing to the Lord, praise his name.",
               "Psalm 96", Template::scriptureReading}}},
            {"Message",
             message,
             "Teaching",
             {{"A People of Hope", "Week 3", nullptr, Template::sermonTitle}}},
            {"Closing",
             closing,
             nullptr,
             {{"Go In Peace", "You are loved\nand sent with purpose", nullptr, Template::closing}}},
        });
}

ZelvoProject ProjectTemplates::demoProject(const QDateTime &now)
{
    using enum ServiceItemType;
    return project(
        QStringLiteral("Quenara Demo Service"), ProjectKind::demo, now,
        {
            {"Pre-Service",
             welcome,
             "House open",
             {{"Welcome", "Welcome to Mirrowen Church", nullptr, Template::welcome},
              {"Today", "Worship\nScripture\nMessage\nPrayer", "Service begins at 10:30",
               Template::announcement}}},
            {"Song - Great Is The Morning",
             song,
             "Band",
             {{"Verse 1", "Great is the morning\nBright with your mercy", nullptr,
               Template::centerLyric},
              {"Chorus", "We rise and sing\nYou are faithful", nullptr, Template::lowerLyric},
              {"Tag", "Faithful forever\nFaithful today", nullptr, Template::warmAmber}}},
            {"Scripture Reading",
             scripture,
             "Romans 15",
             {{"Romans 15:13",
               "May the God of hope fill you with all joy and peace as you trust in him, so that "
               "you may overflow with hope.",
               "Romans 15:13", Template::scriptureReading}}},
            {"Message",
             message,
             "Series bumper",
             {{"Rooted in Hope", "Part 2: Patience in the Waiting", nullptr, Template::sermonTitle},
              {"Reflection", "Where do you need courage this week?", nullptr,
               Template::minimalDark}}},
            {"Announcements",
             announcement,
             nullptr,
             {{"Community Lunch", "Today after service\nFellowship Hall", "All are welcome",
               Template::announcement},
              {"Serve Team Night", "Wednesday 6:30 PM\nDinner provided", nullptr,
               Template::announcement}}},
            {"Dismissal",
             closing,
             nullptr,
             {{"Blessing", "Grace and peace be with you", nullptr, Template::closing}}},
        });
}

} // namespace quenara
