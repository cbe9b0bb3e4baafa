#include "OperatorWindow.h"

#include "AlertBox.h"
#include "DocumentGuard.h"
#include "OperatorView.h"
#include "StartPanelView.h"
#include "WindowCoordinator.h"
#include "WorkspaceStore.h"
#include "ZelvoCommands.h"

#include <QCloseEvent>
#include <QMenuBar>

namespace quenara {

namespace {

constexpr QSize minimumContentSize(1180, 760);
constexpr QSize defaultSize(1480, 900);

} // namespace

OperatorWindow::OperatorWindow(WorkspaceStore &store, WindowCoordinator &windows,
                               OutputSwitches &outputs, DocumentGuard &guard,
                               ZelvoCommands &commands, PictureCache &pictures)
    : m_store(store), m_windows(windows), m_guard(guard)
{
    setObjectName(QStringLiteral("operatorWindow"));
    m_windows.keepOff(*this);
    commands.fill(*menuBar());
    auto *content =
        new OperatorView(store, outputs, pictures, [this] { return m_guard.mayReplaceDocument(); });
    content->setMinimumSize(minimumContentSize);
    setCentralWidget(content);
    content->setFocus();
    resize(defaultSize);

    connect(&store, &WorkspaceStore::projectChanged, this, &OperatorWindow::showTitle);
    connect(&store, &WorkspaceStore::isStartPanelPresentedChanged, this,
            &OperatorWindow::showStartPanel);
    connect(&store, &WorkspaceStore::errorMessageChanged, this, &OperatorWindow::showError);
    connect(&commands, &ZelvoCommands::quitRequested, this, &QWidget::close);
    showTitle();
    showError();
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

void OperatorWindow::showTitle()
{
    // Alone, this mark would stand for whether the window is modified.
    const QString mark = QStringLiteral("[*]");
    QString name = m_store.project().name.simplified();
    setWindowTitle(QStringLiteral("%1 \u2014 Quenara").arg(name.replace(mark, mark + mark)));
}

void OperatorWindow::showStartPanel()
{
    if (!m_store.isStartPanelPresented()) {
        if (m_startPanel)
            m_startPanel->close();
        return;
    }
    auto *panel = new StartPanelView(
        m_store, [this] { return m_guard.mayReplaceDocument(); }, this);
    panel->setAttribute(Qt::WA_DeleteOnClose);
    connect(panel, &QDialog::finished, this, [this] {
        m_startPanel.clear();
        m_store.setStartPanelPresented(false);
    });
    m_startPanel = panel;
    panel->open();
}

void OperatorWindow::showError()
{
    const std::optional<QString> message = m_store.errorMessage();
    if (!message) {
        if (m_alert)
            m_alert->close();
        return;
    }
    if (m_alert) {
        m_alert->setText(*message);
        return;
    }
    auto *alert = new AlertBox(*message, QString(), AlertBox::Ok, this);
    alert->setAttribute(Qt::WA_DeleteOnClose);
    connect(alert, &QDialog::finished, this, [this] {
        m_alert.clear();
        m_store.dismissError();
    });
    m_alert = alert;
    alert->open();
}

} // namespace quenara
