#pragma once

#include <QObject>

namespace quenara {

/// Keeps keys from being lost where Qt and the desktop do not agree on the window that has them.
///
/// A window to which the desktop gives the keyboard takes it even if a list or a menu was open just
/// then, as the suggestions of a file dialog are when Return closes both: Qt heeds no window
/// meanwhile. One that a dialog blocks hands it on to the dialog in front. The windows that the
/// audience sees are behind none.
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
