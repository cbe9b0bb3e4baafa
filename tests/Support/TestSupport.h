#pragma once

#include "FilePanels.h"
#include "TestFailure.h"
#include "WorkspaceStore.h"

#include <QList>
#include <QSettings>
#include <QString>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <optional>

/// Lets a failed comparison of identifiers print them.
template<>
inline char *QTest::toString(const std::optional<QString> &text)
{
    return text ? toString(*text) : qstrdup("(absent)");
}

namespace quenara::test {

struct NamedEdit;

/// Answers file panels as a test has prepared and keeps what was asked.
class PreparedPanels : public FilePanelRunner
{
public:
    std::optional<QUrl> answer; ///< absent: the operator cancels
    QList<FilePanel> asked;
    std::function<void()> whileOpen = [] {}; ///< what happens until the operator answers

    std::optional<QUrl> run(const FilePanel &panel) override;
};

/// A moment without a meaning, for what must not depend on the clock.
QDateTime someTime();

/// A show with as many slides an item as \a slideCounts says and names that tell the place: the
/// items are "A", "B", ..., their slides "A1", "A2", ..., each with the layers "A1.lyric" (a text)
/// and "A1.line" (a shape) of the centred lyric design.
ZelvoProject showOf(const QList<int> &slideCounts);

/// A fresh world around one store: its own preferences, prepared panels, a clock that stands.
struct World
{
    QTemporaryDir folder;
    QSettings preferences{folder.filePath(QStringLiteral("preferences.ini")), QSettings::IniFormat};
    PreparedPanels panels;
    QDateTime now = someTime();
    /// What the operator answers when a file was changed by another program, and the names of
    /// those.
    WorkspaceStore::ChangedFileAnswer changedFileAnswer = WorkspaceStore::ChangedFileAnswer::cancel;
    QStringList changedFiles;
    WorkspaceStore store;

    World();
    explicit World(const ZelvoProject &project);

    QUrl fileUrl(const QString &name) const;
    /// fileUrl() of a file that is made to hold \a bytes.
    QUrl written(const QString &name, const QByteArray &bytes,
                 const Caller &caller = Caller::current()) const;

    /// Makes the operator choose an image in every file panel from now on.
    void offerImage(const Caller &caller = Caller::current());
    /// Runs \a edit with an image to choose.
    void run(const NamedEdit &edit, const Caller &caller = Caller::current());

    /// The selected slide, which there has to be.
    Slide slide(const Caller &caller = Caller::current()) const;
    /// The layer of that id on the selected slide, which there has to be.
    SlideElement layer(const QString &id, const Caller &caller = Caller::current()) const;
    qsizetype undoSteps() const { return store.undoStore().undoStack().size(); }
};

/// The ids of a store that point into its project, as one comparable value.
struct Selection
{
    std::optional<QString> item;
    std::optional<QString> slide;
    std::optional<QString> queued;
    std::optional<QString> live;
    std::optional<QString> element;

    bool operator==(const Selection &) const = default;
};
Selection selectionOf(const WorkspaceState &state);

/// The document with its history and what points into it: what an operation that does nothing
/// leaves alone.
struct Snapshot
{
    WorkspaceState state;
    QList<ZelvoProject> undoStack;
    QList<ZelvoProject> redoStack;

    bool operator==(const Snapshot &) const = default;
};
Snapshot snapshotOf(const WorkspaceStore &store);

/// The ids of all slides of the show in order, read off the stored lists.
QStringList slideIDs(const ZelvoProject &project);

/// The path of a file in tests/data.
QString dataPath(const QString &name);
/// Its bytes.
QByteArray dataBytes(const QString &name);

} // namespace quenara::test

template<>
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the template's name is t
inline char *QTest::toString(const quenara::test::Selection &selection)
{
    const auto text = [](const std::optional<QString> &id) {
        return id.value_or(QStringLiteral("-"));
    };
    return toString(QStringLiteral("item %1, slide %2, queued %3, live %4, layer %5")
                        .arg(text(selection.item), text(selection.slide), text(selection.queued),
                             text(selection.live), text(selection.element)));
}
