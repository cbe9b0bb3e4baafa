#pragma once

#include "AudienceWords.h"

#include <QObject>

namespace quenara {

class OutputWindows;
class WorkspaceStore;

/// Tells the users of assistive technologies each change of what the audience sees once, whatever
/// has brought it about: as a notification, which screen readers speak when it comes to be shown.
class AudienceAnnouncer : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the announcer.
    AudienceAnnouncer(const WorkspaceStore &store, const OutputWindows &outputs,
                      QObject *parent = nullptr);

    /// What was told last.
    const QString &words() const { return m_words; }

signals:
    void announced(const QString &words);

private:
    void tellShow();
    void tellDisplay();
    void announce(const QString &words);

    const WorkspaceStore &m_store;
    const OutputWindows &m_outputs;
    AudienceView m_view;
    bool m_isDisplayOpen;
    QString m_words;
};

} // namespace quenara
