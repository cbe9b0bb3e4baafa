#pragma once

#include "ProjectModels.h"
#include "WorkspaceState.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace quenara {

/// Where the audience display is. One that waits for its screen counts as beside the operator.
enum class DisplayPlace { closed, besideOperator, overOperator };
template<>
inline constexpr auto rawCases<DisplayPlace> = std::to_array<RawCase<DisplayPlace>>({
    {DisplayPlace::closed, "closed"},
    {DisplayPlace::besideOperator, "besideOperator"},
    {DisplayPlace::overOperator, "overOperator"},
});
static_assert(casesStandAtTheirValues<DisplayPlace>);

/// The output windows, as far as they are opened again after an unexpected end.
struct SessionWindows
{
    DisplayPlace display = DisplayPlace::closed;
    bool isStageOpen = false;

    bool operator==(const SessionWindows &) const = default;
    static constexpr auto fields()
    {
        return FieldList{field("display", &SessionWindows::display),
                         field("isStageOpen", &SessionWindows::isStageOpen)};
    }
};
static_assert(listsEveryMember<SessionWindows>);

/// Where slides stand in the show of a file, 0-based, for files that have no identifiers for them:
/// each reading then gives them new ones.
struct FilePlaces
{
    std::optional<std::int64_t> selected;
    std::optional<std::int64_t> queued;
    std::optional<std::int64_t> live;

    bool operator==(const FilePlaces &) const = default;
    static constexpr auto fields()
    {
        return FieldList{field("selected", &FilePlaces::selected),
                         field("queued", &FilePlaces::queued), field("live", &FilePlaces::live)};
    }
};
static_assert(listsEveryMember<FilePlaces>);

/// What is brought back after an unexpected end: the work, and the show as it stood.
struct Session
{
    QString projectName;
    std::optional<QString> file; ///< the path that the project was opened from or saved to
    std::optional<QString> fileVersion; ///< which of the file's states was read or saved
    bool hasUnsavedChanges = false;
    std::optional<ZelvoProject> project; ///< absent while the file holds it
    std::optional<FilePlaces> filePlaces; ///< present while the file holds it
    std::optional<QString> selectedServiceItemID;
    std::optional<QString> selectedSlideID;
    std::optional<QString> queuedSlideID;
    std::optional<QString> liveSlideID;
    std::optional<QString> selectedElementID;
    OutputMode outputMode = OutputMode::live;
    SessionWindows windows;

    bool operator==(const Session &) const = default;
    static constexpr auto fields()
    {
        return FieldList{
            field("projectName", &Session::projectName),
            field("file", &Session::file),
            field("fileVersion", &Session::fileVersion),
            field("hasUnsavedChanges", &Session::hasUnsavedChanges),
            field("project", &Session::project),
            field("filePlaces", &Session::filePlaces),
            field("selectedServiceItemID", &Session::selectedServiceItemID),
            field("selectedSlideID", &Session::selectedSlideID),
            field("queuedSlideID", &Session::queuedSlideID),
            field("liveSlideID", &Session::liveSlideID),
            field("selectedElementID", &Session::selectedElementID),
            field("outputMode", &Session::outputMode),
            field("windows", &Session::windows),
        };
    }
};
static_assert(listsEveryMember<Session>);

} // namespace quenara
