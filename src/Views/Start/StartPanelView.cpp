#include "StartPanelView.h"

#include "ElidedLabel.h"
#include "RoleLabel.h"
#include "ShownPath.h"
#include "Symbols.h"
#include "ThemeColors.h"
#include "WorkspaceStore.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollArea>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace quenara {

namespace {

constexpr QSize panelSize{700, 430};
constexpr int startColumnWidth = 270;
constexpr int padding = 18;
constexpr int spacing = 12;
constexpr int recentTop = 6; ///< aligns the heading with the product's name

constexpr int startButtonHeight = 44;
constexpr int startIconSize = 18;
constexpr int startButtonMargin = 14;
constexpr int startTextLeft = 43;

constexpr int recentRowHeight = 56;
constexpr int recentRowMargin = 12;
constexpr int recentRowSpacing = 4;

struct StartDescription
{
    const char *title;
    const char *symbol;
    void (WorkspaceStore::*operation)();
};

constexpr auto starts = std::to_array<StartDescription>({
    {"New Blank Project", "doc.badge.plus", &WorkspaceStore::newBlankProject},
    {"New Sunday Service", "calendar.badge.plus", &WorkspaceStore::newSundayServiceProject},
    {"Open Demo Service", "play.square.stack", &WorkspaceStore::loadDemoProject},
    {"Open File...", "folder", &WorkspaceStore::openProjectWithPanel},
});

/// A title behind a symbol in the accent colour.
class StartButton : public QPushButton
{
public:
    explicit StartButton(const StartDescription &start)
        : QPushButton(QString::fromUtf8(start.title)), m_symbol(QString::fromUtf8(start.symbol))
    {
        setProperty("role", QStringLiteral("start"));
        setFixedHeight(startButtonHeight);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        painter.drawControl(QStyle::CE_PushButtonBevel, option);
        const QRect icon(startButtonMargin, (height() - startIconSize) / 2, startIconSize,
                         startIconSize);
        paintSymbol(painter, icon, m_symbol, themeOf(*this).accent);
        painter.setPen(themeOf(*this).primaryText);
        painter.drawText(rect().adjusted(startTextLeft, 0, 0, 0),
                         int(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextSingleLine, text());
    }

private:
    QString m_symbol;
};

/// The project's name over its path; fainter when there is no such file any more.
QPushButton *makeRecentRow(const RecentProject &project)
{
    const bool isMissing = !QFileInfo::exists(project.path);
    const QString path = shownPath(project.path);
    auto *row = new QPushButton;
    row->setProperty("role", QStringLiteral("recent"));
    row->setProperty("isMissing", isMissing);
    row->setFixedHeight(recentRowHeight);
    row->setAccessibleName(project.name.isEmpty() ? path : project.name);
    row->setAccessibleDescription(isMissing ? QStringLiteral("%1, file not found").arg(path)
                                            : path);
    auto *nameLabel = new ElidedLabel(QStringLiteral("rowTitle"));
    nameLabel->setText(project.name);
    auto *pathLabel = new ElidedLabel(QStringLiteral("path"));
    pathLabel->setText(path);
    pathLabel->setElideMode(Qt::ElideMiddle);
    auto *layout = new QVBoxLayout(row);
    layout->setContentsMargins(recentRowMargin, 0, recentRowMargin, 0);
    layout->setSpacing(recentRowSpacing);
    layout->addStretch();
    layout->addWidget(nameLabel);
    layout->addWidget(pathLabel);
    layout->addStretch();
    return row;
}

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
    layout->setSpacing(2 * spacing);
    layout->addWidget(makeStartColumn());
    layout->addWidget(separator);
    layout->addWidget(makeRecentColumn(), 1);

    // Queued, because the row whose click has changed the list is still handling that click.
    connect(&store, &WorkspaceStore::recentProjectsChanged, this,
            &StartPanelView::showRecentProjects, Qt::QueuedConnection);
    showRecentProjects();
}

void StartPanelView::choose(const Choice &choice)
{
    if (!m_mayReplaceDocument())
        return;
    // The sheet goes first, so that a panel or an alert of the choice stands on the window.
    accept();
    // The keyboard may have been with the sheet, or with a question that stood on it.
    if (parentWidget())
        parentWidget()->window()->activateWindow();
    choice(m_store);
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
    for (const StartDescription &start : starts) {
        auto *button = new StartButton(start);
        connect(button, &QPushButton::clicked, this,
                [this, operation = start.operation] { choose(operation); });
        layout->addWidget(button);
    }
    layout->addStretch();
    return column;
}

QWidget *StartPanelView::makeRecentColumn()
{
    m_recentProjects = new QScrollArea;
    m_recentProjects->setWidgetResizable(true);
    m_recentProjects->setFrameShape(QFrame::NoFrame);
    m_recentProjects->setFocusPolicy(Qt::NoFocus);
    m_recentProjects->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto *column = new QWidget;
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, recentTop, 0, 0);
    layout->setSpacing(spacing);
    layout->addWidget(makeRoleLabel(QStringLiteral("heading"), QStringLiteral("Recent")));
    layout->addWidget(m_recentProjects, 1);
    return column;
}

void StartPanelView::showRecentProjects()
{
    auto *rows = new QWidget;
    auto *layout = new QVBoxLayout(rows);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    const QList<RecentProject> recentProjects = m_store.recentProjects();
    if (recentProjects.isEmpty()) {
        layout->addWidget(
            makeRoleLabel(QStringLiteral("note"), QStringLiteral("No recent projects yet.")));
    }
    for (const RecentProject &project : recentProjects) {
        QPushButton *row = makeRecentRow(project);
        connect(row, &QPushButton::clicked, this, [this, url = project.url()] {
            choose([url](WorkspaceStore &store) { store.openProject(url); });
        });
        layout->addWidget(row);
    }
    layout->addStretch();
    m_recentProjects->setWidget(rows);
}

} // namespace quenara
