#pragma once

#include "WorkspaceState.h"

namespace quenara {

/// What the audience is sent, as far as a change of it is worth telling.
struct AudienceView
{
    OutputMode mode = OutputMode::live;
    std::optional<QString> liveSlideID; ///< only while the mode is live

    bool operator==(const AudienceView &) const = default;
};

[[nodiscard]] AudienceView audienceView(const WorkspaceState &state);

/// The same in words to be spoken: "Live: Verse 1, 3 of 25", "Nothing live", "Blackout", "Logo".
[[nodiscard]] QString audienceWords(const WorkspaceState &state);

} // namespace quenara
