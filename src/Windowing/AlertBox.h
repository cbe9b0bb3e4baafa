#pragma once

#include <QMessageBox>

namespace quenara {

/// A message box of the program over one of the operator's windows, which alone it blocks: the
/// audience window keeps its keys.
class AlertBox : public QMessageBox
{
    Q_OBJECT

public:
    AlertBox(const QString &text, const QString &detail, StandardButtons buttons, QWidget *parent);
};

} // namespace quenara
