#pragma once

#include "WorkspaceStore.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

namespace quenara::test {

/// A published property of the store and the signal that announces it.
struct Notification
{
    QString property;
    void (WorkspaceStore::*signal)();
};

/// Every property that the store publishes.
const QList<Notification> &notifications();

/// Listens to every signal of a store.
class NotificationLog
{
public:
    /// \a onEach is called inside each signal, with the property's name ("" for changed()).
    explicit NotificationLog(const WorkspaceStore &store,
                             std::function<void(const QString &)> onEach = {});

    /// The properties announced since the last call, in order.
    QStringList takeProperties();
    /// How often changed() was emitted since the last call.
    int takeChangedCount();

private:
    QObject m_context;
    std::function<void(const QString &)> m_onEach;
    QStringList m_properties;
    int m_changedCount = 0;
};

} // namespace quenara::test
