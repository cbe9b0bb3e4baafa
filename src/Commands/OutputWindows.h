#pragma once

#include <QObject>

namespace quenara {

/// The audience display and the stage monitor, as far as a command opens and closes them.
class OutputWindows : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual bool isDisplayWindowOpen() const = 0;
    /// Whether the display, which is closed, opens by itself once it has a screen.
    virtual bool isDisplayWaiting() const = 0;
    virtual bool isStageWindowOpen() const = 0;
    virtual void toggleDisplayWindow() = 0;
    virtual void toggleStageWindow() = 0;

signals:
    /// A window was opened or closed, by whatever means, or has begun or ceased to wait.
    void changed();
};

} // namespace quenara
