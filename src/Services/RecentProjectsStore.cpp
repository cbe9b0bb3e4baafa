#include "RecentProjectsStore.h"

#include "JsonDates.h"
#include "ProjectCodec.h"
#include "ShortenedText.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSettings>

#include <algorithm>

namespace quenara {

QList<RecentProject> RecentProjectsStore::load(const QSettings &preferences)
{
    const QByteArray stored = preferences.value(QLatin1String(preferencesKey)).toString().toUtf8();
    QList<RecentProject> projects =
        ProjectCodec::decodeRecentProjects(stored).value_or(QList<RecentProject>());
    std::stable_sort(
        projects.begin(), projects.end(),
        [](const RecentProject &a, const RecentProject &b) { return a.lastOpened > b.lastOpened; });
    return projects;
}

QList<RecentProject> RecentProjectsStore::add(QSettings &preferences, const QUrl &url,
                                              const QString &projectName, const QDateTime &now)
{
    // Another running program may have added to the list since it was read.
    preferences.sync();
    const QString path = url.toLocalFile();
    QList<RecentProject> projects = load(preferences);
    projects.removeIf([&path](const RecentProject &project) { return project.path == path; });
    projects.prepend({.name = shortened(projectName, longestName),
                      .path = path,
                      .lastOpened = json::referenceSeconds(now)});
    projects = projects.first(std::min(projects.size(), limit));
    preferences.setValue(QLatin1String(preferencesKey),
                         QString::fromUtf8(ProjectCodec::encode(projects)));
    // Written now, before another program reads the list. The preferences have asked themselves by
    // this event to be written; whoever holds it back, as during the start, still can.
    QCoreApplication::sendPostedEvents(&preferences, QEvent::UpdateRequest);
    return projects;
}

} // namespace quenara
