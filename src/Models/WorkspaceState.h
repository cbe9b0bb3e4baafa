#pragma once

#include "ProjectModels.h"
#include "RawEnum.h"
#include "RecentProject.h"

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

/// Everything the workspace publishes, as one value. An absent id means that nothing is chosen.
struct WorkspaceState
{
    ZelvoProject project;
    std::optional<QString> selectedServiceItemID;
    std::optional<QString> selectedSlideID; ///< the slide being edited
    std::optional<QString> queuedSlideID; ///< the slide that going live will send
    std::optional<QString> liveSlideID; ///< the slide on the audience output
    std::optional<QString> selectedElementID; ///< the layer selected on the canvas
    OutputMode outputMode = OutputMode::live;
    std::optional<QUrl> currentFileURL; ///< where the project was opened from or saved to
    bool hasUnsavedChanges = false;
    QList<RecentProject> recentProjects; ///< newest first
    bool isStartPanelPresented = false;
    bool isSongImportPresented = false;
    std::optional<QString> errorMessage; ///< shown as an alert while present

    bool operator==(const WorkspaceState &) const = default;
    static constexpr auto fields()
    {
        return std::tuple{
            field("project", &WorkspaceState::project),
            field("selectedServiceItemID", &WorkspaceState::selectedServiceItemID),
            field("selectedSlideID", &WorkspaceState::selectedSlideID),
            field("queuedSlideID", &WorkspaceState::queuedSlideID),
            field("liveSlideID", &WorkspaceState::liveSlideID),
            field("selectedElementID", &WorkspaceState::selectedElementID),
            field("outputMode", &WorkspaceState::outputMode),
            field("currentFileURL", &WorkspaceState::currentFileURL),
            field("hasUnsavedChanges", &WorkspaceState::hasUnsavedChanges),
            field("recentProjects", &WorkspaceState::recentProjects),
            field("isStartPanelPresented", &WorkspaceState::isStartPanelPresented),
            field("isSongImportPresented", &WorkspaceState::isSongImportPresented),
            field("errorMessage", &WorkspaceState::errorMessage),
        };
    }
};
static_assert(listsEveryMember<WorkspaceState>);

} // namespace quenara
