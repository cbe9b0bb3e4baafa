#pragma once

#include "FilePanels.h"
#include "WorkspaceStore.h"

#include <QList>
#include <QSettings>
#include <QString>
#include <QTemporaryDir>

#include <optional>

namespace quenara::test {

/// Answers file panels as a test has prepared and keeps what was asked.
class PreparedPanels : public FilePanelRunner
{
public:
    std::optional<QUrl> answer; ///< absent: the operator cancels
    QList<FilePanel> asked;

    std::optional<QUrl> run(const FilePanel &panel) override;
};

/// A moment without a meaning, for what must not depend on the clock.
QDateTime someTime();

/// A fresh world around one store: its own preferences, prepared panels, a clock that stands.
struct World
{
    QTemporaryDir folder;
    QSettings preferences{folder.filePath(QStringLiteral("preferences.ini")),
                          QSettings::IniFormat};
    PreparedPanels panels;
    QDateTime now = someTime();
    WorkspaceStore store;

    World();
    explicit World(const ZelvoProject &project);

    QUrl fileUrl(const QString &name) const;
};

/// The path of a file in tests/data.
QString dataPath(const QString &name);

} // namespace quenara::test
