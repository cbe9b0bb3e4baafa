#include "ProjectTemplates.h"

#include "Identifier.h"
#include "SlideRecipes.h"

#include <algorithm>

namespace quenara {

namespace {

QString string(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

/// A slide of a starting project as it stands in the tables below.
struct SlideRow
{
    const char *title;
    const char *body;
    const char *footer; ///< none when null
    const char *templateID;
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
            QString::fromUtf8(slide.templateID), optionalString(slide.footer)));
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

} // namespace

QList<SlideTemplate> ProjectTemplates::templates()
{
    QList<SlideTemplate> catalogue;
    for (const SlideRecipe &recipe : slideRecipes())
        catalogue.append({string(recipe.id), string(recipe.name), string(recipe.subtitle)});
    return catalogue;
}

SlideDesign ProjectTemplates::design(const QString &templateID, const QString &title,
                                     const QString &body, const std::optional<QString> &footer,
                                     const std::optional<SlideMedia> &image)
{
    const auto recipes = slideRecipes();
    const auto found = std::find_if(recipes.begin(), recipes.end(), [&](const SlideRecipe &recipe) {
        return string(recipe.id) == templateID;
    });
    const SlideRecipe &recipe = found == recipes.end() ? recipes.front() : *found;
    SlideDesign design = recipe.design({title, body, footer, image});
    design.themeId = string(recipe.id);
    return design;
}

QString ProjectTemplates::defaultTemplate(ServiceItemType type)
{
    switch (type) {
    case ServiceItemType::welcome:
        return QStringLiteral("welcome");
    case ServiceItemType::song:
        return QStringLiteral("centerLyric");
    case ServiceItemType::scripture:
        return QStringLiteral("scriptureReading");
    case ServiceItemType::message:
        return QStringLiteral("sermonTitle");
    case ServiceItemType::announcement:
        return QStringLiteral("announcement");
    case ServiceItemType::closing:
        return QStringLiteral("closing");
    case ServiceItemType::custom:
        break;
    }
    return QStringLiteral("minimalDark");
}

Slide ProjectTemplates::slide(const QString &title, const QString &body, std::int64_t orderIndex,
                              const QString &templateID, const std::optional<QString> &footer,
                              const std::optional<SlideMedia> &image)
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
             {{"Welcome", "We are glad you are here", nullptr, "welcome"},
              {"Connect", "Scan the QR code\nor visit the welcome table", nullptr,
               "announcement"}}},
            {"Worship",
             song,
             "Opening song",
             {{"Verse 1", "Your light breaks through the morning\nYour mercy wakes the room",
               nullptr, "centerLyric"},
              {"Chorus", "We lift our eyes\nWe lift our song", nullptr, "lowerLyric"}}},
            {"Scripture",
             scripture,
             "Reading",
             {{"Psalm 96:1-2",
               "Sing to the Lord a new song;\nsing to the Lord, all the earth.\n"
               "Sing to the Lord, praise his name.",
               "Psalm 96", "scriptureReading"}}},
            {"Message",
             message,
             "Teaching",
             {{"A People of Hope", "Week 3", nullptr, "sermonTitle"}}},
            {"Closing",
             closing,
             nullptr,
             {{"Go In Peace", "You are loved\nand sent with purpose", nullptr, "closing"}}},
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
             {{"Welcome", "Welcome to Mirrowen Church", nullptr, "welcome"},
              {"Today", "Worship\nScripture\nMessage\nPrayer", "Service begins at 10:30",
               "announcement"}}},
            {"Song - Great Is The Morning",
             song,
             "Band",
             {{"Verse 1", "Great is the morning\nBright with your mercy", nullptr, "centerLyric"},
              {"Chorus", "We rise and sing\nYou are faithful", nullptr, "lowerLyric"},
              {"Tag", "Faithful forever\nFaithful today", nullptr, "warmAmber"}}},
            {"Scripture Reading",
             scripture,
             "Romans 15",
             {{"Romans 15:13",
               "May the God of hope fill you with all joy and peace as you trust in him, so that "
               "you may overflow with hope.",
               "Romans 15:13", "scriptureReading"}}},
            {"Message",
             message,
             "Series bumper",
             {{"Rooted in Hope", "Part 2: Patience in the Waiting", nullptr, "sermonTitle"},
              {"Reflection", "Where do you need courage this week?", nullptr, "minimalDark"}}},
            {"Announcements",
             announcement,
             nullptr,
             {{"Community Lunch", "Today after service\nFellowship Hall", "All are welcome",
               "announcement"},
              {"Serve Team Night", "Wednesday 6:30 PM\nDinner provided", nullptr, "announcement"}}},
            {"Dismissal",
             closing,
             nullptr,
             {{"Blessing", "Grace and peace be with you", nullptr, "closing"}}},
        });
}

} // namespace quenara
