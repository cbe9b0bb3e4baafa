#pragma once

#include <QObject>

namespace quenara {

/// Has Shift+F10 open the context menu of what has the keyboard, as the Menu key does, which many
/// keyboards have not. To be installed on the application as an event filter.
class ContextMenuKey : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace quenara
