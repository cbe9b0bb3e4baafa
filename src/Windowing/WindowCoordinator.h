#pragma once

#include "ApplicationAppearance.h"
#include "DisplayPlacement.h"
#include "OutputWindow.h"
#include "Session.h"
#include "StagePlacement.h"
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
/// closing it by command ends the waiting. So does the stage monitor once it was put on a screen of
/// its own, except that it waits for that one screen. A display that covers the operator's window
/// is left by Escape, pressed there twice within a second.
///
/// The stage monitor fills the screen that it is on, all of it larger, when it is double-clicked or
/// by command, and is a window again likewise or by Escape. It never does where the display is.
class WindowCoordinator : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isDisplayWindowOpen READ isDisplayWindowOpen NOTIFY isDisplayWindowOpenChanged)
    Q_PROPERTY(bool isStageWindowOpen READ isStageWindowOpen NOTIFY isStageWindowOpenChanged)

public:
    WindowCoordinator(const SystemColorScheme &systemScheme, RenderCaches &caches,
                      QObject *parent = nullptr);
    ~WindowCoordinator() override;

    /// No window goes to the screen with \a operatorWindow by itself.
    void keepOff(QWidget &operatorWindow);

    /// Covers the second screen, else the main one. An open window is only raised.
    void openDisplayWindow(const WorkspaceStore &store, AppAppearance appearance);
    void closeDisplayWindow();
    void openStageWindow(const WorkspaceStore &store, AppAppearance appearance);
    void closeStageWindow();

    void toggleStageFullScreen();

    /// What a later start is to reopen().
    SessionWindows sessionWindows() const;
    /// Opens windows as they were at an unexpected end. A display that lay beside the operator
    /// waits for a screen of its own.
    void reopen(const WorkspaceStore &store, AppAppearance appearance,
                const SessionWindows &windows);

    /// From here on the application follows \a appearance, and the desktop's scheme while that is
    /// the choice.
    void updateAppearance(AppAppearance appearance);

    bool isDisplayWindowOpen() const { return m_display.isOpen; }
    bool isStageWindowOpen() const { return m_stage.isOpen; }
    bool isStageFullScreen() const { return m_stage.window && m_stage.window->isFullScreen(); }
    /// Whether toggleStageFullScreen() would do something.
    bool canToggleStageFullScreen() const;
    /// Whether the display, which is closed, opens by itself once it has a screen.
    bool isDisplayWaiting() const { return m_isDisplayWaiting; }

    /// Null while closed.
    OutputWindow *displayWindow() const { return m_display.window.get(); }
    OutputWindow *stageWindow() const { return m_stage.window.get(); }

signals:
    /// Tells of each new window, also of one that takes the place of another.
    void windowMade(OutputWindow *window);
    void isDisplayWindowOpenChanged();
    void isStageWindowOpenChanged();
    /// The stage monitor fills its screen or is a window again, or is on another screen.
    void isStageFullScreenChanged();
    void isDisplayWaitingChanged();

private:
    /// Deletes a window later, since it is closed from within its own event.
    struct DeleteLater
    {
        void operator()(QObject *object) const { object->deleteLater(); }
    };

    /// An output window with what belongs to it; the three change together.
    struct Output
    {
        void (WindowCoordinator::*openChanged)();
        std::unique_ptr<OutputWindow, DeleteLater> window = nullptr;
        std::unique_ptr<WindowCloseObserver, DeleteLater> closeObserver = nullptr;
        bool isOpen = false;
    };

    /// Whether the operator has given the window the keyboard, by opening it or before it moved.
    enum class Opening { asked, unasked };

    void openDisplay(const WorkspaceStore &store, AppAppearance appearance,
                     const PlacedScreen &screen, Opening opening);
    OutputWindow *makeStageWindow(const WorkspaceStore &store, AppAppearance appearance);
    void showStage(OutputWindow *window);
    void adopt(Output &output, OutputWindow *window);
    void release(Output &output);
    void close(Output &output);
    void setDisplayWaiting(bool isWaiting);
    void followScreens();
    void followWithDisplay();
    void leaveWrongScreen();
    void fetchDisplayBack();
    void awaitDisplayScreen();
    void reopenWaiting();
    void reopenDisplay();
    void reopenStage();
    void leaveDisplay();
    void toggleStageFullScreen(Opening opening);
    void leaveStageFullScreen() const;
    void keepStageOffDisplay();

    RenderCaches &m_caches;
    ApplicationAppearance m_appearance;
    DisplayPlacement m_placement;
    StagePlacement m_stagePlacement{m_placement};
    Output m_display{.openChanged = &WindowCoordinator::isDisplayWindowOpenChanged};
    Output m_stage{.openChanged = &WindowCoordinator::isStageWindowOpenChanged};
    QPointer<QScreen> m_displayScreen; ///< the one the display covers; null without screens
    QPointer<const WorkspaceStore> m_displayStore; ///< what it shows or last showed
    QPointer<const WorkspaceStore> m_stageStore; ///< likewise
    bool m_isDisplayWaiting = false;
    bool m_hasDisplayFollowed = false; ///< to another screen, since the screens last settled
    int m_fetchesLeft = 0; ///< of the display, until it waits for the screens to change
    bool m_isStageWaiting = false; ///< whether it is closed and opens once its screen is back
    QTimer m_screensSettled;
};

} // namespace quenara
