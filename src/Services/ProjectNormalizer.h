#pragma once

#include "LegacyDocument.h"
#include "ProjectModels.h"

#include <QDateTime>

namespace quenara {

/// Brings any project into the shape the rest of the program relies on. Pure functions; nothing in
/// a project is repaired anywhere else.
struct ProjectNormalizer
{
    /// The schema version at least 2, order indexes by list position, every design with elements
    /// (an empty one becomes the default template of its item's type), bodies recomputed, a missing
    /// slide image taken from the design's background. Nothing else changes.
    [[nodiscard]] static ZelvoProject normalized(ZelvoProject project);

    /// normalized(), updated at \a now to the second, as a document holds it.
    [[nodiscard]] static ZelvoProject normalizedForSave(ZelvoProject project, const QDateTime &now);

    /// A current project out of a legacy one. \a now stands in for a missing time of update.
    [[nodiscard]] static ZelvoProject project(const LegacyQuenaraDocument &document,
                                              const QDateTime &now);

    /// A legacy slide at the 0-based position \a orderIndex as a current one.
    [[nodiscard]] static Slide slide(const LegacySlide &legacy, std::int64_t orderIndex);

    /// The plain text that agrees with the slide's design: the first text in drawing order among
    /// its visible elements, whatever their kind; a lower third that is blank counts as the empty
    /// text. Without any such element, the slide's body.
    [[nodiscard]] static QString compatibilityBody(const Slide &slide);

    /// The order indexes by list position. Writes only numbers that differ, so that what is in
    /// order already stays shared with its copies.
    [[nodiscard]] static ZelvoProject withMirroredOrder(ZelvoProject project);

    /// As every edit leaves it: the schema version at least 2 and the order mirrored.
    [[nodiscard]] static ZelvoProject inCurrentSchema(ZelvoProject project);
};

} // namespace quenara
