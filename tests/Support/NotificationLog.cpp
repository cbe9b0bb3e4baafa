#include "NotificationLog.h"

#include <utility>

namespace quenara::test {

const QList<Notification> &notifications()
{
    static const QList<Notification> all = {
#define QUENARA_NOTIFICATION(type, name, initial)                                                  \
    {QStringLiteral(#name), &WorkspaceStore::name##Changed},
        QUENARA_PUBLISHED_FIELDS(QUENARA_NOTIFICATION)
#undef QUENARA_NOTIFICATION
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
