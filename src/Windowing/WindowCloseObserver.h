#pragma once

#include <QObject>

#include <functional>

namespace quenara {

/// Tells when its window is about to close.
class WindowCloseObserver : public QObject
{
    Q_OBJECT

public:
    /// Watches \a window. \a onClose must not be empty.
    WindowCloseObserver(QObject *window, std::function<void()> onClose);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<void()> m_onClose;
};

} // namespace quenara
