#pragma once

#include <QButtonGroup>
#include <QFrame>
#include <QKeySequence>
#include <QList>
#include <QStringList>

namespace quenara {

/// One of a few choices, all of which are seen side by side. Shows the one that setCurrentIndex()
/// gives.
class SegmentedPicker : public QFrame
{
    Q_OBJECT

public:
    SegmentedPicker(const QString &title, const QStringList &segments, QWidget *parent = nullptr);

    /// -1 while none is chosen.
    int currentIndex() const { return m_segments.checkedId(); }
    void setCurrentIndex(int index);

    /// A key for each segment, which its tooltip tells.
    void setShortcuts(const QList<QKeySequence> &shortcuts);

signals:
    void activated(int index);

private:
    QButtonGroup m_segments;
};

} // namespace quenara
