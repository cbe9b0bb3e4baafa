#pragma once

#include <QMessageBox>

namespace quenara {

/// A message box over one of the operator's windows. It blocks that window alone, so that the
/// audience window keeps its keys.
class AlertBox : public QMessageBox
{
    Q_OBJECT

public:
    AlertBox(const QString &text, const QString &detail, StandardButtons buttons, QWidget *parent);

protected:
    void showEvent(QShowEvent *event) override;
};

} // namespace quenara
