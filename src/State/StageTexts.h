#pragma once

#include "WorkspaceState.h"

#include <QString>

namespace quenara {

/// What the stage monitor says in words.
struct StageTexts
{
    QString currentSectionTitle; ///< the title of the live slide's item
    QString slideCountText; ///< "3 / 12": the live slide's place, 0 for none, and all slides
    QString currentStageText; ///< the live slide's words, or why the audience does not see them
    QString nextStageText; ///< the words of the slide after the live one, in every output mode

    bool operator==(const StageTexts &) const = default;
};

/// Derived from the live slide's id, the output mode and the project, whose order indexes mirror
/// its lists.
[[nodiscard]] StageTexts stageTexts(const WorkspaceState &state);

} // namespace quenara
