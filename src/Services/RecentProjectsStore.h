#pragma once

#include "RecentProject.h"

#include <QDateTime>
#include <QList>
#include <QUrl>

class QSettings;

namespace quenara {

/// The projects most recently opened or saved, kept in the user's preferences. Stateless: every
/// call reads or writes them. Reports no failures and never looks at the files themselves.
struct RecentProjectsStore
{
    static constexpr const char *preferencesKey = "QuenaraRecentProjects";
    static constexpr qsizetype limit = 10;
    static constexpr qsizetype longestName = 1000; ///< characters that are kept of a project's name

    /// The stored list, newest first; empty if there is none or it does not decode.
    [[nodiscard]] static QList<RecentProject> load(const QSettings &preferences);

    /// Records a project as used at \a now, in front of the others and in the place of an entry of
    /// exactly the same path. Reads the preferences again first. Returns the new list, which is
    /// written before the call returns unless something filters the preferences' update requests.
    static QList<RecentProject> add(QSettings &preferences, const QUrl &url,
                                    const QString &projectName, const QDateTime &now);
};

} // namespace quenara
