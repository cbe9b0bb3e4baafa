#pragma once

#include "Identifier.h"
#include "RawEnum.h"
#include "Record.h"
#include "SlideDesignModels.h"
#include "SlideMedia.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QTypeInfo>

#include <cstdint>
#include <optional>

namespace quenara {

enum class ProjectKind { blank, service, event, songSet, demo, custom };
template<>
inline constexpr auto rawCases<ProjectKind> = std::to_array<RawCase<ProjectKind>>({
    {ProjectKind::blank, "blank"},
    {ProjectKind::service, "service"},
    {ProjectKind::event, "event"},
    {ProjectKind::songSet, "songSet"},
    {ProjectKind::demo, "demo"},
    {ProjectKind::custom, "custom"},
});
static_assert(casesStandAtTheirValues<ProjectKind>);

enum class ServiceItemType { welcome, song, scripture, message, announcement, closing, custom };
template<>
inline constexpr auto rawCases<ServiceItemType> = std::to_array<RawCase<ServiceItemType>>({
    {ServiceItemType::welcome, "welcome", "Welcome"},
    {ServiceItemType::song, "song", "Song"},
    {ServiceItemType::scripture, "scripture", "Scripture"},
    {ServiceItemType::message, "message", "Message"},
    {ServiceItemType::announcement, "announcement", "Announcement"},
    {ServiceItemType::closing, "closing", "Closing"},
    {ServiceItemType::custom, "custom", "Custom"},
});
static_assert(casesStandAtTheirValues<ServiceItemType>);

/// A document may lack any of the fields.
struct Slide
{
    QString id;
    QString title; ///< the operator's label
    QString body; ///< the main text, kept in step with the design's
    std::int64_t orderIndex = 0; ///< mirrors the position in the item's list, 0-based
    SharedOptional<QString> footer;
    SharedOptional<SlideMedia> image;
    SharedOptional<SlideMedia> audio;
    SlideDesign design = SlideDesign::centeredLyric(body);

    bool operator==(const Slide &) const = default;
    static constexpr auto fields()
    {
        return FieldList{
            field("id", &Slide::id, newIdentifier),
            field("title", &Slide::title, [] { return QStringLiteral("Slide"); }),
            field("body", &Slide::body, [] { return QString(); }),
            field("orderIndex", &Slide::orderIndex, 0),
            field("footer", &Slide::footer),
            field("image", &Slide::image),
            field("audio", &Slide::audio),
            field("design", &Slide::design,
                  [](const Slide &slide) { return SlideDesign::centeredLyric(slide.body); }),
        };
    }
};
static_assert(listsEveryMember<Slide>);

} // namespace quenara

/// A list of slides that grows takes no second copy of them.
Q_DECLARE_TYPEINFO(quenara::Slide, Q_RELOCATABLE_TYPE);

namespace quenara {

struct ServiceItem
{
    QString id;
    QString title;
    ServiceItemType type = ServiceItemType::custom;
    std::int64_t orderIndex = 0; ///< mirrors the position in the rundown, 0-based
    std::optional<QString> subtitle;
    QList<Slide> slides;

    bool operator==(const ServiceItem &) const = default;
    static constexpr auto fields()
    {
        return FieldList{
            field("id", &ServiceItem::id),
            field("title", &ServiceItem::title),
            field("type", &ServiceItem::type),
            field("orderIndex", &ServiceItem::orderIndex),
            field("subtitle", &ServiceItem::subtitle),
            field("slides", &ServiceItem::slides),
        };
    }
};
static_assert(listsEveryMember<ServiceItem>);

/// The document: a named rundown. Copies share storage until one is changed.
struct ZelvoProject
{
    /// The format version of every project built or migrated by this program.
    static constexpr std::int64_t currentSchemaVersion = 2;

    QString id;
    QString name;
    std::int64_t schemaVersion = currentSchemaVersion;
    ProjectKind kind = ProjectKind::blank;
    QDateTime updatedAt; ///< UTC
    QList<ServiceItem> serviceItems;

    bool operator==(const ZelvoProject &) const = default;
    static constexpr auto fields()
    {
        return FieldList{
            field("id", &ZelvoProject::id),
            field("name", &ZelvoProject::name),
            field("schemaVersion", &ZelvoProject::schemaVersion),
            field("kind", &ZelvoProject::kind),
            field("updatedAt", &ZelvoProject::updatedAt),
            field("serviceItems", &ZelvoProject::serviceItems),
        };
    }
};
static_assert(listsEveryMember<ZelvoProject>);

/// A slide with its place in the show: every slide of every item as one sequence. Not stored.
struct FlattenedSlide
{
    QString serviceItemID;
    QString serviceItemTitle;
    ServiceItemType serviceItemType = ServiceItemType::custom;
    Slide slide;
    std::int64_t absoluteIndex = 0; ///< 0-based, counting through all items in order

    [[nodiscard]] QString id() const { return slide.id; }

    bool operator==(const FlattenedSlide &) const = default;
    static constexpr auto fields()
    {
        return FieldList{
            field("serviceItemID", &FlattenedSlide::serviceItemID),
            field("serviceItemTitle", &FlattenedSlide::serviceItemTitle),
            field("serviceItemType", &FlattenedSlide::serviceItemType),
            field("slide", &FlattenedSlide::slide),
            field("absoluteIndex", &FlattenedSlide::absoluteIndex),
        };
    }
};
static_assert(listsEveryMember<FlattenedSlide>);

} // namespace quenara
