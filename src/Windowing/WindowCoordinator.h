#pragma once

#include "OutputWindow.h"
#include "ScreenWatch.h"
#include "WindowCloseObserver.h"

#include <QObject>
#include <QPointer>
#include <QScreen>
#include <QTimer>

#include <memory>

namespace quenara {

struct RenderCaches;
class SystemColorScheme;
class WorkspaceStore;

/// Opens, raises and closes the two output windows, says whether they are open, and applies the
/// appearance to them and to the whole application. A closed window is released; opening again
/// makes a new one and chooses its screen afresh.
///
/// The display follows the screens: it goes on covering its screen when that changes, moves to
/// another when it disappears, and closes when there is none but the operator's. It then waits:
/// when a screen of its own comes back, it opens there without taking the keyboard. Opening or
/// closing it by command ends the waiting.
class WindowCoordinator : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isDisplayWindowOpen READ isDisplayWindowOpen NOTIFY isDisplayWindowOpenChanged)
    Q_PROPERTY(bool isStageWindowOpen READ isStageWindowOpen NOTIFY isStageWindowOpenChanged)

public:
    WindowCoordinator(const SystemColorScheme &systemScheme, RenderCaches &caches,
                      QObject *parent = nullptr);
    ~WindowCoordinator() override;

    /// The display never goes to the screen with \a window by itself.
    void keepOff(const QWidget &window) { m_operatorWindow = &window; }

    /// Covers the second screen, else the main one. An open window is only raised.
    void openDisplayWindow(const WorkspaceStore &store, AppAppearance appearance);
    void closeDisplayWindow();
    void openStageWindow(const WorkspaceStore &store, AppAppearance appearance);
    void closeStageWindow();

    /// From here on the application follows \a appearance, and the desktop's scheme while that is
    /// the choice.
    void updateAppearance(AppAppearance appearance);

    bool isDisplayWindowOpen() const { return m_display.isOpen; }
    bool isStageWindowOpen() const { return m_stage.isOpen; }

    /// Null while closed.
    OutputWindow *displayWindow() const { return m_display.window.get(); }
    OutputWindow *stageWindow() const { return m_stage.window.get(); }

signals:
    void isDisplayWindowOpenChanged();
    void isStageWindowOpenChanged();

private:
    /// Closing happens inside the window's own event.
    struct DeleteLater
    {
        void operator()(QObject *object) const { object->deleteLater(); }
    };

    /// An output window with what belongs to it; the three change together.
    struct Output
    {
        std::unique_ptr<OutputWindow, DeleteLater> window;
        std::unique_ptr<WindowCloseObserver, DeleteLater> closeObserver;
        bool isOpen = false;
    };

    using Signal = void (WindowCoordinator::*)();

    void openDisplay(const WorkspaceStore &store, AppAppearance appearance,
                     const PlacedScreen &screen);
    void adopt(Output &output, OutputWindow *window, Signal changed);
    void release(Output &output, Signal changed);
    PlacedScreen displayScreen() const;
    bool goesUnmanaged(const QRect &frame) const;
    void cover(QWidget &window, const PlacedScreen &target) const;
    void moveDisplay(const PlacedScreen &target);
    void followScreens();
    void comeBack();
    QRect operatorScreen(const QList<QRect> &screens) const;
    void applyScheme();

    const SystemColorScheme &m_systemScheme;
    RenderCaches &m_caches;
    ScreenWatch m_screens;
    AppAppearance m_appearance = AppAppearance::system;
    QPointer<const QWidget> m_operatorWindow;
    Output m_display;
    QPointer<QScreen> m_displayScreen; ///< the one the display covers; null without screens
    QPointer<const WorkspaceStore> m_displayStore; ///< what it shows or last showed
    bool m_isDisplayWaiting = false;
    QTimer m_screensSettled;
    Output m_stage;
};

} // namespace quenara
