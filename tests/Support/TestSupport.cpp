#include "TestSupport.h"

#include "ProjectTemplates.h"

namespace quenara::test {

std::optional<QUrl> PreparedPanels::run(const FilePanel &panel)
{
    asked.append(panel);
    return answer;
}

QDateTime someTime()
{
    return QDateTime(QDate(2026, 3, 1), QTime(9, 30), Qt::UTC);
}

World::World() : World(ProjectTemplates::demoProject(someTime())) {}

World::World(const ZelvoProject &project) :
    store(project, {.preferences = preferences, .panels = panels, .now = [this] { return now; }})
{
}

QUrl World::fileUrl(const QString &name) const
{
    return QUrl::fromLocalFile(folder.filePath(name));
}

QString dataPath(const QString &name)
{
    return QStringLiteral(QUENARA_TEST_DATA "/") + name;
}

} // namespace quenara::test
