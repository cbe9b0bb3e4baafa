#pragma once

#include "ScreenWatch.h"
#include "SongImportSheet.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <optional>

namespace quenara {

class AlertBox;
class CommandActions;
class DocumentGuard;
class GoToSlideSheet;
class OperatorView;
class Recovery;
class RecoverySheet;
struct RenderCaches;
class StartPanelView;
class WindowCoordinator;
class WorkspaceStore;
class ZelvoCommands;

/// The main window: menus, the operator view; recovery, start panel, song import and Go to Slide as
/// its sheets, errors as alerts. When its screen becomes smaller or goes, it comes within what is
/// left. Closing it ends the program, the output windows with it, once the guard agrees.
class OperatorWindow : public QMainWindow
{
    Q_OBJECT

public:
    OperatorWindow(WorkspaceStore &store, WindowCoordinator &windows, DocumentGuard &guard,
                   CommandActions &commands, const ZelvoCommands &menus, RenderCaches &caches);
    ~OperatorWindow() override;

    OperatorWindow(const OperatorWindow &) = delete;
    OperatorWindow &operator=(const OperatorWindow &) = delete;

    /// Asks what becomes of left-over work, before any other sheet is to open.
    void askAbout(Recovery &recovery);

    /// Tells, without a question, whether unsaved changes come back after a crash.
    void showWhetherKept(bool isKept);

    /// Calls \a ask once the window is painted, before which no dialog finds its place on it.
    void whenPainted(const std::function<void()> &ask);

    /// Has the content keep its minimum size where the window's screen has room for that.
    void followScreen();

    /// What windows may cover of \a screen.
    QRect roomOn(const QScreen &screen) const;

    /// The size that it is to have again, while it is maximized for want of room alone.
    std::optional<QSize> sizeWithRoom() const { return m_sizeWithRoom; }

signals:
    void painted(); ///< for the first time

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QRect room() const;
    void comeWithinScreen();
    void fillScreenForRoom();
    void becomeNoLargerThanScreen();
    void placeSheets() const;
    void showSheets();
    template<class Sheet>
    void showSheet(bool isPresented, QPointer<Sheet> &sheet, const std::function<Sheet *()> &made,
                   const std::function<void()> &dismissed);
    void takeProjects(QWidget &widget, const QWidget *sheet);
    void showTitle();
    void showRecovery();
    void showStartPanel();
    void showSongImport();
    void showGoToSlide();
    void showError();
    void showAbout();

    WorkspaceStore &m_store;
    WindowCoordinator &m_windows;
    DocumentGuard &m_guard;
    CommandActions &m_commands;
    OperatorView *m_content;
    ScreenWatch m_screens;
    QTimer m_screensSettled;
    std::optional<QSize> m_sizeWithRoom;
    bool m_hasBeenPainted = false;
    SongImportDraft m_songImportDraft;
    SongImportDraft m_offeredDraft; ///< of a song that comes while the other holds one
    QPointer<Recovery> m_recovery;
    QPointer<RecoverySheet> m_recoverySheet;
    QPointer<StartPanelView> m_startPanel;
    QPointer<SongImportSheet> m_songImport;
    QPointer<GoToSlideSheet> m_goToSlide;
    QPointer<AlertBox> m_alert;
};

} // namespace quenara
