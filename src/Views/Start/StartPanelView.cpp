#include "StartPanelView.h"

#include "CommandActions.h"
#include "CommandButton.h"
#include "ElidedLabel.h"
#include "PlainToolTip.h"
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

constexpr auto starts = std::to_array<Command>({
    Command::newBlankProject,
    Command::newSundayService,
    Command::openDemoService,
    Command::open,
});

/// A file is named here, where the others are projects to begin with.
QString startTitle(const CommandActions &commands, Command command)
{
    return command == Command::open ? QStringLiteral("Open File...")
                                    : commands.action(command)->text();
}

/// A title behind a symbol in the accent colour.
class StartButton : public QPushButton
{
public:
    StartButton(const QString &title, const QString &symbol) : QPushButton(title), m_symbol(symbol)
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
    row->setToolTip(plainToolTip(project.path));
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

StartPanelView::StartPanelView(WorkspaceStore &store, CommandActions &commands, QWidget *parent)
    : QDialog(parent), m_store(store), m_commands(commands)
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

    connect(&commands, &CommandActions::documentReleased, this, &StartPanelView::dismiss);
    // Queued, because the row whose click has changed the list is still handling that click.
    connect(&store, &WorkspaceStore::recentProjectsChanged, this,
            &StartPanelView::showRecentProjects, Qt::QueuedConnection);
    showRecentProjects();
}

/// Called before the choice is carried out, so that its panel or alert stands on the window.
void StartPanelView::dismiss()
{
    accept();
    // The keyboard may have been with the sheet, or with a question that stood on it.
    if (parentWidget())
        parentWidget()->window()->activateWindow();
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
    for (const Command command : starts) {
        auto *button =
            new StartButton(startTitle(m_commands, command), symbolOf(*m_commands.action(command)));
        button->setToolTip(m_commands.action(command)->toolTip());
        connect(button, &QPushButton::clicked, this,
                [this, command] { m_commands.perform(command, this); });
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
        connect(row, &QPushButton::clicked, this,
                [this, url = project.url()] { m_commands.openProject(url, this); });
        layout->addWidget(row);
    }
    layout->addStretch();
    m_recentProjects->setWidget(rows);
}

} // namespace quenara
