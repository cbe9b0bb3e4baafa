#include "StartPanelView.h"

#include "RoleLabel.h"
#include "ShownPath.h"
#include "SymbolIcon.h"
#include "ThemeColors.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <utility>

namespace quenara {

namespace {

constexpr QSize panelSize{700, 430};
constexpr int startColumnWidth = 270;
constexpr int padding = 18;
constexpr int spacing = 12;
constexpr int startButtonHeight = 44;
constexpr QSize startIconSize{18, 18};

} // namespace

StartPanelView::StartPanelView(WorkspaceStore &store, MayReplaceDocument mayReplaceDocument,
                               QWidget *parent)
    : QDialog(parent), m_store(store), m_mayReplaceDocument(std::move(mayReplaceDocument))
{
    setObjectName(QStringLiteral("startPanel"));
    setWindowTitle(QStringLiteral("Quenara"));
    setFixedSize(panelSize);
    auto *separator = new QFrame;
    separator->setFrameShape(QFrame::VLine);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(spacing);
    layout->addWidget(makeStartColumn());
    layout->addWidget(separator);
    layout->addWidget(makeRecentColumn(), 1);
}

void StartPanelView::choose(const Choice &choice)
{
    if (!m_mayReplaceDocument())
        return;
    // The sheet goes first, so that a panel or an alert of the choice stands on the window.
    accept();
    // A question that stood on the sheet may have gone with it just now, and the keyboard with
    // both.
    if (parentWidget())
        parentWidget()->window()->activateWindow();
    choice(m_store);
}

QWidget *StartPanelView::makeStartButton(const QString &title, const QString &icon,
                                         const Choice &choice)
{
    auto *button = new QPushButton(symbolIcon(icon, themeOf(*this).accent), title);
    button->setProperty("role", QStringLiteral("start"));
    button->setIconSize(startIconSize);
    button->setFixedHeight(startButtonHeight);
    connect(button, &QPushButton::clicked, this, [this, choice] { choose(choice); });
    return button;
}

QWidget *StartPanelView::makeStartColumn()
{
    auto *column = new QWidget;
    column->setFixedWidth(startColumnWidth);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    layout->addWidget(makeRoleLabel(QStringLiteral("title"), QStringLiteral("Quenara")));
    layout->addWidget(makeRoleLabel(QStringLiteral("caption"), QStringLiteral("Projects")));
    layout->addWidget(makeStartButton(QStringLiteral("New Blank Project"),
                                      QStringLiteral("doc.badge.plus"),
                                      &WorkspaceStore::newBlankProject));
    layout->addWidget(makeStartButton(QStringLiteral("New Sunday Service"),
                                      QStringLiteral("calendar.badge.plus"),
                                      &WorkspaceStore::newSundayServiceProject));
    layout->addWidget(makeStartButton(QStringLiteral("Open Demo Service"),
                                      QStringLiteral("play.square.stack"),
                                      &WorkspaceStore::loadDemoProject));
    layout->addWidget(makeStartButton(QStringLiteral("Open File..."), QStringLiteral("folder"),
                                      &WorkspaceStore::openProjectWithPanel));
    layout->addStretch();
    return column;
}

QWidget *StartPanelView::makeRecentColumn()
{
    auto *rows = new QWidget;
    auto *rowsLayout = new QVBoxLayout(rows);
    rowsLayout->setContentsMargins(0, 0, 0, 0);
    rowsLayout->setSpacing(spacing);
    const QList<RecentProject> recentProjects = m_store.recentProjects();
    if (recentProjects.isEmpty()) {
        rowsLayout->addWidget(
            makeRoleLabel(QStringLiteral("hint"), QStringLiteral("No recent projects yet.")));
    }
    for (const RecentProject &project : recentProjects) {
        auto *row = new QPushButton;
        row->setProperty("role", QStringLiteral("recent"));
        row->setAccessibleName(project.name);
        row->setAccessibleDescription(project.path);
        auto *rowLayout = new QVBoxLayout(row);
        rowLayout->addWidget(makeRoleLabel(QStringLiteral("rowTitle"), project.name));
        rowLayout->addWidget(makeRoleLabel(QStringLiteral("muted"), shownPath(project.path)));
        row->setFixedHeight(rowLayout->sizeHint().height());
        connect(row, &QPushButton::clicked, this, [this, url = project.url()] {
            choose([url](WorkspaceStore &store) { store.openProject(url); });
        });
        rowsLayout->addWidget(row);
    }
    rowsLayout->addStretch();

    auto *scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(rows);

    auto *column = new QWidget;
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(spacing, 0, 0, 0);
    layout->setSpacing(spacing);
    layout->addWidget(makeRoleLabel(QStringLiteral("heading"), QStringLiteral("Recent")));
    layout->addWidget(scroll, 1);
    return column;
}

} // namespace quenara
