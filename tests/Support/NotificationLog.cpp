#include "NotificationLog.h"

#include <utility>

namespace quenara::test {

const QList<Notification> &notifications()
{
    static const QList<Notification> all = {
        {QStringLiteral("project"), &WorkspaceStore::projectChanged},
        {QStringLiteral("selectedServiceItemID"), &WorkspaceStore::selectedServiceItemIDChanged},
        {QStringLiteral("selectedSlideID"), &WorkspaceStore::selectedSlideIDChanged},
        {QStringLiteral("queuedSlideID"), &WorkspaceStore::queuedSlideIDChanged},
        {QStringLiteral("liveSlideID"), &WorkspaceStore::liveSlideIDChanged},
        {QStringLiteral("selectedElementID"), &WorkspaceStore::selectedElementIDChanged},
        {QStringLiteral("outputMode"), &WorkspaceStore::outputModeChanged},
        {QStringLiteral("currentFileURL"), &WorkspaceStore::currentFileURLChanged},
        {QStringLiteral("hasUnsavedChanges"), &WorkspaceStore::hasUnsavedChangesChanged},
        {QStringLiteral("recentProjects"), &WorkspaceStore::recentProjectsChanged},
        {QStringLiteral("isStartPanelPresented"), &WorkspaceStore::isStartPanelPresentedChanged},
        {QStringLiteral("isSongImportPresented"), &WorkspaceStore::isSongImportPresentedChanged},
        {QStringLiteral("errorMessage"), &WorkspaceStore::errorMessageChanged},
        {QStringLiteral("canUndo"), &WorkspaceStore::canUndoChanged},
        {QStringLiteral("canRedo"), &WorkspaceStore::canRedoChanged},
    };
    return all;
}

NotificationLog::NotificationLog(const WorkspaceStore &store,
                                 std::function<void(const QString &)> onEach)
    : m_onEach(std::move(onEach))
{
    for (const auto &[property, signal] : notifications()) {
        QObject::connect(&store, signal, &m_context, [this, name = property] {
            m_properties.append(name);
            if (m_onEach)
                m_onEach(name);
        });
    }
    QObject::connect(&store, &WorkspaceStore::changed, &m_context, [this] {
        ++m_changedCount;
        if (m_onEach)
            m_onEach(QString());
    });
}

QStringList NotificationLog::takeProperties()
{
    return std::exchange(m_properties, {});
}

int NotificationLog::takeChangedCount()
{
    return std::exchange(m_changedCount, 0);
}

} // namespace quenara::test
