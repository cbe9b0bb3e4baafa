#pragma once

#include <QDateTime>
#include <QDialog>
#include <QList>
#include <QString>

#include <optional>

class QButtonGroup;
class QVBoxLayout;

namespace quenara {

/// What an unexpected end has left, as the operator is told of it.
struct LeftOverWork
{
    QString projectName;
    std::optional<QString> file; ///< its path
    QDateTime time; ///< of the last change
    bool hasUnsavedChanges = false;

    bool operator==(const LeftOverWork &) const = default;
};

/// The sheet that asks what becomes of it: one is chosen, and goes on or is discarded. Whatever is
/// still there when the sheet is dismissed is kept.
class RecoverySheet : public QDialog
{
    Q_OBJECT

public:
    RecoverySheet(const QList<LeftOverWork> &works, QWidget *parent);

    /// At least one. The first is chosen.
    void setWorks(const QList<LeftOverWork> &works);

signals:
    // With the index of the chosen one.

    void continued(qsizetype index);
    void discarded(qsizetype index);

private:
    QVBoxLayout *m_rows;
    QButtonGroup *m_choice;
};

} // namespace quenara
