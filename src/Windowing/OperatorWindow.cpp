#include "OperatorWindow.h"

#include "AlertBox.h"
#include "CommandActions.h"
#include "DocumentGuard.h"
#include "DropTarget.h"
#include "GoToSlideSheet.h"
#include "OperatorView.h"
#include "Recovery.h"
#include "RecoverySheet.h"
#include "ShortenedText.h"
#include "StartPanelView.h"
#include "TransferredData.h"
#include "WindowCoordinator.h"
#include "WindowPlace.h"
#include "WorkspaceStore.h"
#include "ZelvoCommands.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLayout>
#include <QMenuBar>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace quenara {

namespace {

constexpr QSize minimumContentSize(1180, 760);
constexpr QSize defaultSize(1480, 900);

/// \a sheet when it is centred over \a window and kept within the \a room of a screen.
QRect centered(QRect sheet, const QRect &window, const QRect &room)
{
    sheet.setSize(sheet.size().boundedTo(room.size()));
    sheet.moveCenter(window.center());
    sheet.moveRight(std::min(sheet.right(), room.right()));
    sheet.moveBottom(std::min(sheet.bottom(), room.bottom()));
    sheet.moveLeft(std::max(sheet.left(), room.left()));
    sheet.moveTop(std::max(sheet.top(), room.top()));
    return sheet;
}

} // namespace

OperatorWindow::OperatorWindow(WorkspaceStore &store, WindowCoordinator &windows,
                               DocumentGuard &guard, CommandActions &commands,
                               const ZelvoCommands &menus, RenderCaches &caches)
    : m_store(store), m_windows(windows), m_guard(guard), m_commands(commands),
      m_content(new OperatorView(store, commands, caches))
{
    setObjectName(QStringLiteral("operatorWindow"));
    m_windows.keepOff(*this);
    menus.fill(*menuBar());
    menus.addTo(*this);
    setCentralWidget(m_content);
    m_content->setFocus();
    followScreen();
    resize(sizeWithin(room().size(), defaultSize, usualFrame));

    connect(&store, &WorkspaceStore::projectChanged, this, &OperatorWindow::showTitle);
    connect(&store, &WorkspaceStore::isStartPanelPresentedChanged, this,
            &OperatorWindow::showStartPanel);
    connect(&store, &WorkspaceStore::isSongImportPresentedChanged, this,
            &OperatorWindow::showSongImport);
    connect(&store, &WorkspaceStore::errorMessageChanged, this, &OperatorWindow::showError);
    connect(&commands, &CommandActions::quitRequested, this, &QWidget::close);
    connect(&commands, &CommandActions::goToSlideRequested, this, &OperatorWindow::showGoToSlide);
    connect(&commands, &CommandActions::aboutRequested, this, &OperatorWindow::showAbout);
    m_screensSettled.setSingleShot(true);
    m_screensSettled.setInterval(screensSettleIn);
    connect(&m_screens, &ScreenWatch::changed, &m_screensSettled, qOverload<>(&QTimer::start));
    connect(&m_screensSettled, &QTimer::timeout, this, &OperatorWindow::comeWithinScreen);
    takeProjects(*this, nullptr);
    showTitle();
}

OperatorWindow::~OperatorWindow()
{
    // Hiding makes a field that is being typed into write its text while the window still exists.
    hide();
}

/// Where a screen lacks the room, the content may be as small as its parts allow: how much a
/// desktop's panels leave of it, not every desktop tells.
void OperatorWindow::followScreen()
{
    const QSize outside(0, menuBar()->sizeHint().height());
    const QSize available = room().size().shrunkBy(usualFrame) - outside;
    const auto kept = [](int length, int most) { return length <= most ? length : 0; };
    centralWidget()->setMinimumSize(kept(minimumContentSize.width(), available.width()),
                                    kept(minimumContentSize.height(), available.height()));
    layout()->activate(); // else the window would still not become smaller than before
}

/// What windows may cover of the screen with the window, or of the primary one once that is gone.
QRect OperatorWindow::room() const
{
    const QList<PlacedScreen> screens = m_screens.screens();
    // A screen that has moved away took the window along for Qt, but not where it lies.
    const auto index = isVisible() ? m_screens.indexUnder(*this) : std::nullopt;
    if (index)
        return screens.at(*index).room();
    const bool isThere =
        std::any_of(screens.cbegin(), screens.cend(),
                    [this](const PlacedScreen &candidate) { return candidate.screen == screen(); });
    return (isThere || screens.isEmpty()) ? roomOn(*screen()) : screens.constFirst().frame;
}

QRect OperatorWindow::roomOn(const QScreen &screen) const
{
    return m_screens.roomOn(screen);
}

/// Called once the screens have changed and the window manager has put the window wherever it
/// thinks best, which need not be in sight.
void OperatorWindow::comeWithinScreen()
{
    followScreen();
    if (!m_screens.areWindowsPlaced())
        return fillScreenForRoom();
    const QRect frame = frameGeometry();
    if (isMaximized() || isFullScreen() || room().contains(frame))
        return placeSheets();
    const WindowPlace fitting =
        broughtWithin(room(),
                      {.screen = {},
                       .corner = frame.topLeft(),
                       .size = size(),
                       .frame = windowHandle() ? windowHandle()->frameMargins() : usualFrame});
    resize(fitting.size);
    move(fitting.corner);
}

/// A window that neither knows nor chooses where it lies may reach over the audience's screen once
/// its own has become too small for it. The desktop puts a maximized one on its own screen alone.
/// It gets its size back when there is room for that.
void OperatorWindow::fillScreenForRoom()
{
    const QSize wanted = m_sizeWithRoom.value_or(size());
    const QMargins frame = windowHandle() ? windowHandle()->frameMargins() : usualFrame;
    const bool fits = sizeWithin(room().size(), wanted, frame) == wanted;
    if (!fits && !isMaximized() && !isFullScreen()) {
        setWindowState(windowState() | Qt::WindowMaximized);
        m_sizeWithRoom = wanted;
    } else if (fits && m_sizeWithRoom) {
        setWindowState(windowState() & ~Qt::WindowMaximized);
        resize(wanted);
    }
    placeSheets();
}

/// Before the style sheet was there, the window's parts asked for more room than they need. Where
/// it has the room it stays where it is: somebody may have moved it meanwhile.
void OperatorWindow::becomeNoLargerThanScreen()
{
    const QSize outer = frameGeometry().size();
    if (outer != outer.boundedTo(room().size()))
        comeWithinScreen();
}

bool OperatorWindow::event(QEvent *event)
{
    if (event->type() == QEvent::ScreenChangeInternal)
        followScreen();
    // From here on it is as large as somebody wants it.
    if (event->type() == QEvent::WindowStateChange && !isMaximized())
        m_sizeWithRoom.reset();
    if (event->type() == QEvent::Paint && !std::exchange(m_hasBeenPainted, true))
        QMetaObject::invokeMethod(this, &OperatorWindow::showSheets, Qt::QueuedConnection);
    return QMainWindow::event(event);
}

void OperatorWindow::closeEvent(QCloseEvent *event)
{
    if (!m_guard.mayQuit()) {
        event->ignore();
        return;
    }
    m_windows.closeDisplayWindow();
    m_windows.closeStageWindow();
    event->accept();
}

void OperatorWindow::moveEvent(QMoveEvent *event)
{
    QMainWindow::moveEvent(event);
    placeSheets();
}

void OperatorWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    placeSheets();
}

/// Puts the open sheets in the middle of the window, what finds slides in that of the rundown, and
/// wholly on its screen, since nothing goes
/// on before they are answered: where it lacks the room, they are smaller than they are meant to
/// be. Their frames are not known before they are shown: they are taken to be like the window's
/// own.
void OperatorWindow::placeSheets() const
{
    if (!m_hasBeenPainted)
        return;
    const QRect room = this->room().marginsRemoved(windowHandle()->frameMargins());
    for (QDialog *sheet : findChildren<QDialog *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!sheet->isVisible() || !sheet->isModal())
            continue;
        sheet->setMinimumSize(sheet->minimumSize().boundedTo(room.size()));
        QRect around = geometry();
        if (sheet == m_goToSlide)
            around.setWidth(m_content->rundownWidth());
        sheet->setGeometry(centered(sheet->geometry(), around, room));
    }
}

/// Called once the window has been painted: what is presented before waits for that, since the
/// place of a window that is not on its screen yet is not known.
void OperatorWindow::showSheets()
{
    QTimer::singleShot(screensSettleIn, this, &OperatorWindow::becomeNoLargerThanScreen);
    showRecovery();
    showStartPanel();
    showSongImport();
    showError();
    emit painted();
}

void OperatorWindow::whenPainted(const std::function<void()> &ask)
{
    if (m_hasBeenPainted)
        return ask();
    connect(this, &OperatorWindow::painted, this, ask, Qt::SingleShotConnection);
}

void OperatorWindow::showTitle()
{
    // QWidget replaces the mark, unless it is doubled, by a sign that the window is modified.
    const QString mark = QStringLiteral("[*]");
    constexpr qsizetype longestTitle = 1000; // no title bar has room for more
    QString name = shortened(m_store.project().name, longestTitle).simplified();
    // The desktop would read no further than to the first of these.
    name.remove(QChar::Null);
    if (name.isEmpty())
        name = QStringLiteral("Untitled");
    setWindowTitle(QStringLiteral("%1 \u2014 Quenara").arg(name.replace(mark, mark + mark)));
}

/// Opens or closes a sheet, to which \a sheet points while it is open. However it is closed,
/// \a dismissed is called then.
template<class Sheet>
void OperatorWindow::showSheet(bool isPresented, QPointer<Sheet> &sheet,
                               const std::function<Sheet *()> &made,
                               const std::function<void()> &dismissed)
{
    if (!isPresented && sheet)
        sheet->close();
    if (!isPresented || sheet || !m_hasBeenPainted)
        return;
    sheet = made();
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &QDialog::finished, this, [&sheet, dismissed] {
        sheet.clear();
        dismissed();
    });
    sheet->open();
    placeSheets();
}

/// Has projects that are dropped anywhere on \a widget open. \a sheet is the dialog that it is.
void OperatorWindow::takeProjects(QWidget &widget, const QWidget *sheet)
{
    new DropTarget(
        widget,
        {.accepts = [](const QMimeData &dragged) { return projectFileIn(dragged).has_value(); },
         .take =
             [this, sheet = QPointer(sheet)](const QMimeData &dragged, const QPointF & /*point*/) {
                 // After the drop is over, for which the other program waits.
                 QMetaObject::invokeMethod(
                     this,
                     [this, sheet, file = projectFileIn(dragged)] {
                         m_commands.openProject(*file, sheet);
                     },
                     Qt::QueuedConnection);
             }},
        DropTarget::Reach::everythingWithin);
}

void OperatorWindow::showWhetherKept(bool isKept)
{
    m_content->showWhetherKept(isKept);
}

void OperatorWindow::askAbout(Recovery &recovery)
{
    m_recovery = &recovery;
    connect(&recovery, &Recovery::worksChanged, this, &OperatorWindow::showRecovery);
    showRecovery();
}

void OperatorWindow::showRecovery()
{
    const bool isAsking = m_recovery && m_recovery->isAsking();
    if (isAsking && m_recoverySheet)
        m_recoverySheet->setWorks(m_recovery->works());
    showSheet<RecoverySheet>(
        isAsking, m_recoverySheet,
        [this] {
            auto *sheet = new RecoverySheet(m_recovery->works(), this);
            connect(sheet, &RecoverySheet::continued, m_recovery, &Recovery::continueWith);
            connect(sheet, &RecoverySheet::discarded, m_recovery, &Recovery::discard);
            return sheet;
        },
        [this] {
            if (m_recovery)
                m_recovery->leave();
        });
}

void OperatorWindow::showStartPanel()
{
    showSheet<StartPanelView>(
        m_store.isStartPanelPresented(), m_startPanel,
        [this] {
            auto *panel = new StartPanelView(m_store, m_commands, this);
            takeProjects(*panel, panel);
            return panel;
        },
        [this] { m_store.setStartPanelPresented(false); });
}

void OperatorWindow::showSongImport()
{
    showSheet<SongImportSheet>(
        m_store.isSongImportPresented(), m_songImport,
        [this] {
            SongImportDraft *draft = &m_songImportDraft;
            if (const std::optional<SongText> song = m_store.offeredSong()) {
                // What was typed before stays for the next time.
                if (!draft->isUntouched())
                    draft = &m_offeredDraft;
                *draft = {.songTitle = song->title, .pastedLyrics = song->lyrics};
            }
            return new SongImportSheet(m_store, *draft, this);
        },
        [this] { m_store.setSongImportPresented(false); });
}

void OperatorWindow::showGoToSlide()
{
    showSheet<GoToSlideSheet>(
        true, m_goToSlide, [this] { return new GoToSlideSheet(m_store, this); }, [] {});
}

void OperatorWindow::showError()
{
    const std::optional<QString> message = m_store.errorMessage();
    if (message && m_alert)
        m_alert->setText(*message);
    showSheet<AlertBox>(
        message.has_value(), m_alert,
        [this, &message] { return new AlertBox(*message, QString(), AlertBox::Ok, this); },
        [this] { m_store.dismissError(); });
}

void OperatorWindow::showAbout()
{
    auto *box = new AlertBox(
        QStringLiteral("Quenara %1").arg(QApplication::applicationVersion()),
        QStringLiteral("Presents live church services: a rundown for the operator, a display for "
                       "the audience, a monitor for the people on stage.\n\n"
                       "Built with Qt 6 (GNU LGPL 3). The typefaces are Inter and Lato (SIL Open "
                       "Font License 1.1), the symbols Bootstrap Icons (MIT License)."),
        AlertBox::Ok, this);
    box->setWindowTitle(QStringLiteral("About Quenara"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace quenara
