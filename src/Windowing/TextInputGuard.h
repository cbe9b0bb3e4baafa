#pragma once

#include <QObject>

namespace quenara {

/// Keeps keys without modifiers that are typed into text from being taken as shortcuts. To be
/// installed as an event filter on the application.
class TextInputGuard : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace quenara
