#include "AudienceWords.h"

#include "Show.h"

namespace quenara {

AudienceView audienceView(const WorkspaceState &state)
{
    return {.mode = state.outputMode,
            .liveSlideID = state.outputMode == OutputMode::live ? state.liveSlideID : std::nullopt};
}

QString audienceWords(const WorkspaceState &state)
{
    if (state.outputMode != OutputMode::live)
        return title(state.outputMode);
    const auto live = positionOf(state.project, state.liveSlideID);
    if (!live)
        return QStringLiteral("Nothing live");
    const QString slideTitle = slideAt(state.project, *live).title;
    return QStringLiteral("Live: %1, %2 of %3")
        .arg(slideTitle.isEmpty() ? QStringLiteral("Untitled") : slideTitle,
             QString::number(live->absolute + 1), QString::number(slideCount(state.project)));
}

} // namespace quenara
