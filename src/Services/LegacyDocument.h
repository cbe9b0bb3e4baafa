#pragma once

#include "ProjectModels.h"

#include <QTypeInfo>

#include <optional>

namespace quenara {

/// A slide of the older flat layout.
struct LegacySlide
{
    SharedOptional<QString> id;
    SharedOptional<QString> title;
    SharedOptional<QString> body;
    SharedOptional<QString> text;
    std::optional<std::int64_t> orderIndex;
    SharedOptional<QString> footer;
    SharedOptional<SlideMedia> image;
    SharedOptional<SlideMedia> audio;
    SharedOptional<QString> emoji;

    bool operator==(const LegacySlide &) const = default;
    static constexpr auto fields()
    {
        return FieldList{
            field("id", &LegacySlide::id),
            field("title", &LegacySlide::title),
            field("body", &LegacySlide::body),
            field("text", &LegacySlide::text),
            field("orderIndex", &LegacySlide::orderIndex),
            field("footer", &LegacySlide::footer),
            field("image", &LegacySlide::image),
            field("audio", &LegacySlide::audio),
            field("emoji", &LegacySlide::emoji),
        };
    }
};
static_assert(listsEveryMember<LegacySlide>);

} // namespace quenara

Q_DECLARE_TYPEINFO(quenara::LegacySlide, Q_RELOCATABLE_TYPE);

namespace quenara {

/// The older top-level object. It is read, never written.
struct LegacyQuenaraDocument
{
    std::optional<QString> id;
    std::optional<QString> name;
    std::optional<QString> title;
    std::optional<ProjectKind> kind;
    std::optional<QDateTime> updatedAt;
    std::optional<QList<ServiceItem>> serviceItems;
    std::optional<QList<LegacySlide>> slides;

    bool operator==(const LegacyQuenaraDocument &) const = default;
    static constexpr auto fields()
    {
        return FieldList{
            field("id", &LegacyQuenaraDocument::id),
            field("name", &LegacyQuenaraDocument::name),
            field("title", &LegacyQuenaraDocument::title),
            field("kind", &LegacyQuenaraDocument::kind),
            field("updatedAt", &LegacyQuenaraDocument::updatedAt),
            field("serviceItems", &LegacyQuenaraDocument::serviceItems),
            field("slides", &LegacyQuenaraDocument::slides),
        };
    }
};
static_assert(listsEveryMember<LegacyQuenaraDocument>);

} // namespace quenara
