#pragma once

#include "ProjectModels.h"
#include "RawEnum.h"
#include "RecentProject.h"
#include "SongText.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <optional>

namespace quenara {

/// What the audience output shows.
enum class OutputMode { live, blackout, logo };
template<>
inline constexpr auto rawCases<OutputMode> = std::to_array<RawCase<OutputMode>>({
    {OutputMode::live, "live", "Live"},
    {OutputMode::blackout, "blackout", "Blackout"},
    {OutputMode::logo, "logo", "Logo"},
});
static_assert(casesStandAtTheirValues<OutputMode>);

/// What of the rundown or of a slide was selected last, by whatever way.
enum class SelectionKind { section, slide, layer };
template<>
inline constexpr auto rawCases<SelectionKind> = std::to_array<RawCase<SelectionKind>>({
    {SelectionKind::section, "section"},
    {SelectionKind::slide, "slide"},
    {SelectionKind::layer, "layer"},
});
static_assert(casesStandAtTheirValues<SelectionKind>);

// What the workspace publishes: FIELD(type, name, initial value) for each field, in the order in
// which changes are announced. The members of WorkspaceState and the properties, getters and
// signals of WorkspaceStore are all made of this one list.
#define QUENARA_PUBLISHED_FIELDS(FIELD)                                                            \
    FIELD(ZelvoProject, project, {})                                                               \
    FIELD(std::optional<QString>, selectedServiceItemID, {})                                       \
    /* The slide being edited. */                                                                  \
    FIELD(std::optional<QString>, selectedSlideID, {})                                             \
    /* The slide that going live will send. */                                                     \
    FIELD(std::optional<QString>, queuedSlideID, {})                                               \
    /* The slide on the audience output. */                                                        \
    FIELD(std::optional<QString>, liveSlideID, {})                                                 \
    /* The layer selected on the canvas. */                                                        \
    FIELD(std::optional<QString>, selectedElementID, {})                                           \
    /* What copying, cutting, duplicating and deleting work on. */                                 \
    FIELD(SelectionKind, lastSelected, SelectionKind::slide)                                       \
    FIELD(OutputMode, outputMode, OutputMode::live)                                                \
    /* Where the project was opened from or saved to. */                                           \
    FIELD(std::optional<QUrl>, currentFileURL, {})                                                 \
    FIELD(bool, hasUnsavedChanges, false)                                                          \
    /* Newest first. */                                                                            \
    FIELD(QList<RecentProject>, recentProjects, {})                                                \
    FIELD(bool, isStartPanelPresented, false)                                                      \
    FIELD(bool, isSongImportPresented, false)                                                      \
    /* What the sheet shows instead of what was typed into it before. */                           \
    FIELD(std::optional<SongText>, offeredSong, {})                                                \
    /* Shown as an alert while present. */                                                         \
    FIELD(std::optional<QString>, errorMessage, {})                                                \
    /* What the history allows. */                                                                 \
    FIELD(bool, canUndo, false)                                                                    \
    FIELD(bool, canRedo, false)

/// Everything the workspace publishes, as one value. An absent id means that nothing is chosen.
struct WorkspaceState
{
#define QUENARA_MEMBER(type, name, initial) type name = initial;
    QUENARA_PUBLISHED_FIELDS(QUENARA_MEMBER)
#undef QUENARA_MEMBER

    bool operator==(const WorkspaceState &) const = default;
    static constexpr auto fields()
    {
#define QUENARA_FIELD(type, name, initial) field(#name, &WorkspaceState::name),
        return FieldList{QUENARA_PUBLISHED_FIELDS(QUENARA_FIELD)};
#undef QUENARA_FIELD
    }
};
static_assert(listsEveryMember<WorkspaceState>);

} // namespace quenara
