#include "FileReading.h"
#include "ProjectFileService.h"
#include "ProjectNormalizer.h"
#include "ProjectTemplates.h"
#include "RecentProjectsStore.h"
#include "SelectionEdits.h"
#include "WorkspaceStore.h"

#include <QFileInfo>
#include <QStringDecoder>

#include <utility>

namespace quenara {

/// The one way a whole document is installed.
void WorkspaceStore::load(ZelvoProject project, const std::optional<QUrl> &fileURL,
                          const QString &fileVersion)
{
    WorkspaceState next = m_state;
    next.project = ProjectNormalizer::withMirroredOrder(std::move(project));
    next.currentFileURL = fileURL;
    next.hasUnsavedChanges = false;
    next.outputMode = OutputMode::live;
    next.isStartPanelPresented = false;
    if (fileURL) {
        next.recentProjects = RecentProjectsStore::add(m_environment.preferences, *fileURL,
                                                       next.project.name, m_environment.now());
    }
    m_gesture.reset();
    m_fileVersion = fileVersion;
    publish(edits::startAtFirstSlide(std::move(next)), UndoRedoStore());
}

void WorkspaceStore::fail(const QString &message)
{
    WorkspaceState next = m_state;
    next.errorMessage = message;
    publish(std::move(next));
}

void WorkspaceStore::newBlankProject()
{
    load(ProjectTemplates::blankProject(m_environment.now()), std::nullopt);
}

void WorkspaceStore::newSundayServiceProject()
{
    load(ProjectTemplates::newSundayServiceProject(m_environment.now()), std::nullopt);
}

void WorkspaceStore::loadDemoProject()
{
    load(ProjectTemplates::demoProject(m_environment.now()), std::nullopt);
}

void WorkspaceStore::openProjectWithPanel()
{
    if (const std::optional<QUrl> url = m_environment.panels.run(zelvoProjectOpenPanel()))
        openProject(*url);
}

void WorkspaceStore::openProject(const QUrl &url)
{
    if (!m_environment.mayOpen(url))
        return;
    try {
        // Taken first: a file that changes while it is read counts as changed.
        const QString version = quenara::fileVersion(url);
        load(ProjectFileService::load(url, m_environment.now()), url, version);
    } catch (const ProjectFileError &error) {
        fail(error.description());
    }
}

bool WorkspaceStore::continueSession(const Session &session)
{
    const auto url =
        session.file ? std::optional(QUrl::fromLocalFile(*session.file)) : std::nullopt;
    ZelvoProject project = session.project.value_or(ZelvoProject());
    // Before it is read: a file that changes meanwhile counts as another one.
    const QString version = url ? quenara::fileVersion(*url) : QString();
    try {
        if (!session.project && url)
            project = ProjectFileService::load(*url, m_environment.now());
    } catch (const ProjectFileError &error) {
        fail(error.description());
        return false;
    }
    WorkspaceState next = m_state;
    next.project = ProjectNormalizer::withMirroredOrder(std::move(project));
    next.currentFileURL = url;
    next.hasUnsavedChanges = session.hasUnsavedChanges;
    next.isStartPanelPresented = false;
    if (url) {
        next.recentProjects = RecentProjectsStore::add(m_environment.preferences, *url,
                                                       next.project.name, m_environment.now());
    }
    m_gesture.reset();
    m_fileVersion = session.hasUnsavedChanges ? session.fileVersion.value_or(QString()) : version;
    publish(edits::continueShow(std::move(next), session, version), UndoRedoStore());
    return true;
}

void WorkspaceStore::saveProject()
{
    if (!m_state.currentFileURL) {
        saveProjectAs();
        return;
    }
    const QUrl url = *m_state.currentFileURL;
    const QString version = quenara::fileVersion(url);
    const bool isChanged = !version.isEmpty() && version != m_fileVersion;
    switch (isChanged ? m_environment.askAboutChangedFile(url.fileName())
                      : ChangedFileAnswer::saveAnyway) {
    case ChangedFileAnswer::saveAnyway:
        return save(url);
    case ChangedFileAnswer::saveAs:
        return saveProjectAs();
    case ChangedFileAnswer::cancel:
        return;
    }
}

/// The document moves to \a url only when it is written there.
void WorkspaceStore::save(const QUrl &url)
{
    const QDateTime now = m_environment.now();
    WorkspaceState next = m_state;
    QString version;
    try {
        next.project = ProjectFileService::save(std::move(next.project), url, now, &version);
    } catch (const ProjectFileError &error) {
        return fail(error.description());
    } catch (const ProjectEncodingError &) {
        return fail(ProjectEncodingError::description());
    }
    next.currentFileURL = url;
    next.hasUnsavedChanges = false;
    next.recentProjects =
        RecentProjectsStore::add(m_environment.preferences, url, next.project.name, now);
    m_gesture.reset();
    m_fileVersion = version;
    publish(std::move(next));
}

void WorkspaceStore::saveProjectAs()
{
    const FilePanel panel = zelvoProjectSavePanel(proposedName(m_state.project.name));
    if (const std::optional<QUrl> url = m_environment.panels.run(panel))
        save(*url);
}

void WorkspaceStore::showStartPanel()
{
    setStartPanelPresented(true);
}

void WorkspaceStore::setStartPanelPresented(bool presented)
{
    WorkspaceState next = m_state;
    next.isStartPanelPresented = presented;
    publish(std::move(next));
}

void WorkspaceStore::setSongImportPresented(bool presented)
{
    WorkspaceState next = m_state;
    next.isSongImportPresented = presented;
    if (!presented)
        next.offeredSong.reset();
    publish(std::move(next));
}

void WorkspaceStore::offerSong(const SongText &song)
{
    WorkspaceState next = m_state;
    next.isSongImportPresented = true;
    next.offeredSong = song;
    publish(std::move(next));
}

void WorkspaceStore::offerSongFile(const QUrl &url)
{
    constexpr qint64 longestSong = qint64(1) << 20U;
    const std::optional<QByteArray> bytes = wholeFile(url, longestSong);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString lyrics = decoder(bytes.value_or(QByteArray()));
    if (!bytes)
        return fail(QStringLiteral("That file cannot be read, or is too long for a song."));
    if (decoder.hasError() || lyrics.contains(QChar::Null))
        return fail(QStringLiteral("That file is not a text in UTF-8."));
    offerSong({.title = QFileInfo(url.toLocalFile()).completeBaseName(), .lyrics = lyrics});
}

void WorkspaceStore::dismissError()
{
    WorkspaceState next = m_state;
    next.errorMessage.reset();
    publish(std::move(next));
}

} // namespace quenara
