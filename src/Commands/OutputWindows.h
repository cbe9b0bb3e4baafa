#pragma once

#include <QObject>

namespace quenara {

/// The audience display and the stage monitor, as far as a command opens, closes and
/// enlarges them.
class OutputWindows : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual bool isDisplayWindowOpen() const = 0;
    /// Whether the display, which is closed, opens by itself once it has a screen.
    virtual bool isDisplayWaiting() const = 0;
    virtual bool isStageWindowOpen() const = 0;
    /// Whether the stage monitor fills the screen that it is on.
    virtual bool isStageFullScreen() const = 0;
    /// Not while it is closed, and not where it would hide the display.
    virtual bool canToggleStageFullScreen() const = 0;
    virtual void toggleDisplayWindow() = 0;
    virtual void toggleStageWindow() = 0;
    virtual void toggleStageFullScreen() = 0;

signals:
    /// A window was opened or closed, by whatever means, has begun or ceased to wait or to fill its
    /// screen, or can do so no longer or again.
    void changed();
};

} // namespace quenara
