#include "AudienceAnnouncer.h"

#include "OutputWindows.h"
#include "WorkspaceStore.h"

#include <QAccessibleObject>
#include <QCoreApplication>

#include <utility>

namespace quenara {

namespace {

class NotificationInterface : public QAccessibleObject
{
public:
    explicit NotificationInterface(AudienceAnnouncer &announcer)
        : QAccessibleObject(&announcer), m_announcer(announcer)
    {}

    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(qApp);
    }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Notification; }
    QAccessible::State state() const override { return {}; }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_announcer.words() : QString();
    }

private:
    const AudienceAnnouncer &m_announcer;
};

QAccessibleInterface *accessibleNotification(const QString & /*className*/, QObject *object)
{
    auto *announcer = qobject_cast<AudienceAnnouncer *>(object);
    return announcer ? new NotificationInterface(*announcer) : nullptr;
}

} // namespace

AudienceAnnouncer::AudienceAnnouncer(const WorkspaceStore &store, const OutputWindows &outputs,
                                     QObject *parent)
    : QObject(parent), m_store(store), m_outputs(outputs), m_view(audienceView(store.state())),
      m_isDisplayOpen(outputs.isDisplayWindowOpen())
{
    QAccessible::installFactory(accessibleNotification);
    connect(&store, &WorkspaceStore::changed, this, &AudienceAnnouncer::tellShow);
    connect(&outputs, &OutputWindows::changed, this, &AudienceAnnouncer::tellDisplay);
}

void AudienceAnnouncer::tellShow()
{
    const AudienceView before = std::exchange(m_view, audienceView(m_store.state()));
    if (m_view != before)
        announce(audienceWords(m_store.state()));
}

void AudienceAnnouncer::tellDisplay()
{
    const bool wasOpen = std::exchange(m_isDisplayOpen, m_outputs.isDisplayWindowOpen());
    if (m_isDisplayOpen != wasOpen) {
        announce(m_isDisplayOpen ? QStringLiteral("Display opened")
                                 : QStringLiteral("Display closed"));
    }
}

/// Qt 6.4 cannot announce words as such.
void AudienceAnnouncer::announce(const QString &words)
{
    m_words = words;
    for (const QAccessible::Event kind : {QAccessible::NameChanged, QAccessible::ObjectShow}) {
        QAccessibleEvent event(this, kind);
        QAccessible::updateAccessibility(&event);
    }
    emit announced(words);
}

} // namespace quenara
