#include "OperatorWindow.h"

#include "AlertBox.h"
#include "CommandActions.h"
#include "DocumentGuard.h"
#include "OperatorView.h"
#include "StartPanelView.h"
#include "WindowCoordinator.h"
#include "WindowPlace.h"
#include "WorkspaceStore.h"
#include "ZelvoCommands.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>

#include <algorithm>
#include <functional>

namespace quenara {

namespace {

constexpr QSize minimumContentSize(1180, 760);
constexpr QSize defaultSize(1480, 900);

void dismiss(QDialog *sheet)
{
    if (sheet)
        sheet->close();
}

/// The top left of \a frame when it is centred over \a window and kept within the \a room of a
/// screen.
QPoint centered(QRect frame, const QRect &window, const QRect &room)
{
    frame.moveCenter(window.center());
    frame.moveRight(std::min(frame.right(), room.right()));
    frame.moveBottom(std::min(frame.bottom(), room.bottom()));
    frame.moveLeft(std::max(frame.left(), room.left()));
    frame.moveTop(std::max(frame.top(), room.top()));
    return frame.topLeft();
}

/// Opens a sheet, to which \a sheet points until it is closed. Then \a dismissed is called, however
/// the sheet was closed.
template<class Sheet>
void openSheet(QPointer<Sheet> &sheet, Sheet *opened, const std::function<void()> &dismissed)
{
    sheet = opened;
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(opened, &QDialog::finished, opened->parentWidget(), [&sheet, dismissed] {
        sheet.clear();
        dismissed();
    });
    opened->open();
}

} // namespace

OperatorWindow::OperatorWindow(WorkspaceStore &store, WindowCoordinator &windows,
                               DocumentGuard &guard, CommandActions &commands,
                               const ZelvoCommands &menus, RenderCaches &caches)
    : m_store(store), m_windows(windows), m_guard(guard), m_commands(commands)
{
    setObjectName(QStringLiteral("operatorWindow"));
    m_windows.keepOff(*this);
    menus.fill(*menuBar());
    auto *content = new OperatorView(store, commands, caches);
    setCentralWidget(content);
    content->setFocus();
    followScreen();
    resize(sizeWithin(screen()->availableSize(), defaultSize, usualFrame));

    connect(&store, &WorkspaceStore::projectChanged, this, &OperatorWindow::showTitle);
    connect(&store, &WorkspaceStore::isStartPanelPresentedChanged, this,
            &OperatorWindow::showStartPanel);
    connect(&store, &WorkspaceStore::isSongImportPresentedChanged, this,
            &OperatorWindow::showSongImport);
    connect(&store, &WorkspaceStore::errorMessageChanged, this, &OperatorWindow::showError);
    connect(&commands, &CommandActions::quitRequested, this, &QWidget::close);
    connect(&commands, &CommandActions::aboutRequested, this, &OperatorWindow::showAbout);
    showTitle();
    showError();
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
    const QSize room = screen()->availableSize().shrunkBy(usualFrame) - outside;
    const auto kept = [](int length, int available) { return length <= available ? length : 0; };
    centralWidget()->setMinimumSize(kept(minimumContentSize.width(), room.width()),
                                    kept(minimumContentSize.height(), room.height()));
}

bool OperatorWindow::event(QEvent *event)
{
    if (event->type() == QEvent::ScreenChangeInternal)
        followScreen();
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

/// Puts the open sheets in the middle of the window, where window managers put only those that are
/// open at the start, and wholly on its screen, since nothing goes on before they are answered.
void OperatorWindow::placeSheets() const
{
    const QRect window = frameGeometry();
    // A window that moves belongs to the screen that it comes from until it has moved.
    const QScreen *below = QGuiApplication::screenAt(window.center());
    const QRect room = (below ? below : screen())->availableGeometry();
    for (QDialog *sheet : findChildren<QDialog *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (sheet->isVisible() && sheet->isModal())
            sheet->move(centered(sheet->frameGeometry(), window, room));
    }
}

void OperatorWindow::showTitle()
{
    // QWidget replaces the mark, unless it is doubled, by a sign that the window is modified.
    const QString mark = QStringLiteral("[*]");
    QString name = m_store.project().name.simplified();
    if (name.isEmpty())
        name = QStringLiteral("Untitled");
    setWindowTitle(QStringLiteral("%1 \u2014 Quenara").arg(name.replace(mark, mark + mark)));
}

void OperatorWindow::showStartPanel()
{
    if (!m_store.isStartPanelPresented())
        return dismiss(m_startPanel);
    openSheet(m_startPanel, new StartPanelView(m_store, m_commands, this),
              [this] { m_store.setStartPanelPresented(false); });
}

void OperatorWindow::showSongImport()
{
    if (!m_store.isSongImportPresented())
        return dismiss(m_songImport);
    openSheet(m_songImport, new SongImportSheet(m_store, m_songImportDraft, this),
              [this] { m_store.setSongImportPresented(false); });
}

void OperatorWindow::showError()
{
    const std::optional<QString> message = m_store.errorMessage();
    if (!message)
        return dismiss(m_alert);
    if (m_alert)
        return m_alert->setText(*message);
    openSheet(m_alert, new AlertBox(*message, QString(), AlertBox::Ok, this),
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
