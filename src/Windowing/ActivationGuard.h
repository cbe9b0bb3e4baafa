#pragma once

#include <QObject>

namespace quenara {

/// Has the window to which the desktop gives the keyboard take it even if a list or a menu was open
/// just then, as the suggestions of a file dialog are when Return closes both: Qt heeds no window
/// meanwhile, and every key would be lost until another window is activated.
///
/// To be installed as an event filter on the application.
class ActivationGuard : public QObject
{
    Q_OBJECT

public:
    explicit ActivationGuard(QObject *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void checkSoon();
};

} // namespace quenara
