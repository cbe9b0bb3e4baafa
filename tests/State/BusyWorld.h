#pragma once

#include "ChildProcess.h"
#include "ProjectFileError.h"
#include "TestSupport.h"
#include "WorkedOn.h"

#include <QDir>
#include <QFile>

#include <functional>

namespace quenara::test {

inline QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline QStringList entriesOf(const QString &path)
{
    return QDir(path).entryList(QDir::AllEntries | QDir::System | QDir::Hidden
                                | QDir::NoDotAndDotDot);
}

/// Everything that a failure must leave alone, the preferences' bytes included.
struct Everything : Snapshot
{
    QByteArray preferences;

    bool operator==(const Everything &) const = default;
};

inline Everything everythingOf(World &world)
{
    world.preferences.sync();
    return {snapshotOf(world.store), bytesOf(world.preferences.fileName())};
}

/// A world in the midst of work: a saved document with edits since, both stacks filled, an output
/// that is not at rest.
struct BusyWorld : World
{
    QUrl saved = fileUrl(QStringLiteral("saved/show.quenara"));

    BusyWorld() : World(showOf({2, 1}))
    {
        QDir(folder.path()).mkpath(QStringLiteral("saved"));
        panels.answer = saved;
        store.saveProject();
        workOn(store);
        panels.asked.clear();
    }
};

/// Opens \a url, which cannot be read, in a child process that is \a prepared for it: 0 if nothing
/// but the message changed there.
inline int statusOfOpening(World &world, const QUrl &url, const std::function<bool()> &prepared)
{
    Snapshot expected = snapshotOf(world.store);
    expected.state.errorMessage = ProjectFileError(ProjectFileError::unableToRead).description();
    return statusOfProcess([&] {
        if (!prepared())
            return 1;
        world.store.openProject(url);
        return snapshotOf(world.store) == expected ? 0 : 2;
    });
}

} // namespace quenara::test
