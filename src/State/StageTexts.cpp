#include "StageTexts.h"

#include "Show.h"

namespace quenara {

namespace {

QString wordsOf(const ZelvoProject &project, const std::optional<SlidePosition> &position,
                const QString &without)
{
    if (!position)
        return without;
    const Slide &slide = slideAt(project, *position);
    return slide.body.isEmpty() ? slide.title : slide.body;
}

QString currentWords(const WorkspaceState &state, const std::optional<SlidePosition> &live)
{
    switch (state.outputMode) {
    case OutputMode::blackout:
        return QStringLiteral("BLACKOUT");
    case OutputMode::logo:
        return QStringLiteral("LOGO / HOLDING");
    case OutputMode::live:
        break;
    }
    return wordsOf(state.project, live, QStringLiteral("No live slide"));
}

} // namespace

StageTexts stageTexts(const WorkspaceState &state)
{
    const ZelvoProject &project = state.project;
    const auto live = positionOf(project, state.liveSlideID);
    return {
        .currentSectionTitle =
            live ? project.serviceItems.at(live->item).title : QStringLiteral("No Section"),
        .slideCountText =
            QStringLiteral("%1 / %2").arg(live ? live->absolute + 1 : 0).arg(slideCount(project)),
        .currentStageText = currentWords(state, live),
        .nextStageText =
            wordsOf(project, positionAfter(project, live), QStringLiteral("No next slide"))};
}

} // namespace quenara
