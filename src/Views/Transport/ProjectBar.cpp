#include "ProjectBar.h"

#include "CommandActions.h"
#include "CommandButton.h"
#include "ElidedLabel.h"
#include "ElidedText.h"
#include "OutputModeBadge.h"
#include "Panels.h"
#include "PlainToolTip.h"
#include "RoleLabel.h"
#include "SymbolLabel.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QStyleOptionFrame>
#include <QStylePainter>

namespace quenara {

namespace {

constexpr int nameMinimumWidth = 180;
constexpr int nameMaximumWidth = 320;
constexpr int symbolSize = 18;
constexpr int margin = 16;
constexpr int spacing = 12;
constexpr int lineEditMargin = 2; ///< that Qt leaves to either side of a field's text
constexpr BadgeLook badgeLook{.pixelSize = 10, .horizontalPadding = 8, .verticalPadding = 5};

} // namespace

ProjectNameField::ProjectNameField(WorkspaceStore &store, QWidget *parent)
    : TextField(QStringLiteral("Project Name"), parent), m_store(store)
{
    setObjectName(QStringLiteral("projectName"));
    setPlaceholderText(QStringLiteral("Project Name"));
    setMinimumWidth(nameMinimumWidth);
    setMaximumWidth(nameMaximumWidth);
    connect(this, &QLineEdit::editingFinished, this, &ProjectNameField::write);
    connect(&store, &WorkspaceStore::projectChanged, this, &ProjectNameField::showName);
    showName();
}

ProjectNameField::~ProjectNameField()
{
    // A field that is deleted while it has the focus still says that its editing has finished.
    disconnect(this, &QLineEdit::editingFinished, this, &ProjectNameField::write);
}

void ProjectNameField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        showText(m_store.project().name);
    TextField::keyPressEvent(event);
}

/// The name as far as there is room for it beside the field's margins.
QString ProjectNameField::elidedName() const
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect room = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
    return elidedText(text(), QFontMetricsF(font()), Qt::ElideRight,
                      room.width() - 2 * lineEditMargin);
}

bool ProjectNameField::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const bool isCut = elidedName() != text().simplified();
        setToolTip(isCut ? plainToolTip(text()) : QString());
    }
    return TextField::event(event);
}

void ProjectNameField::paintEvent(QPaintEvent *event)
{
    const QString elided = elidedName();
    if (hasFocus() || text().isEmpty() || elided == text().simplified())
        return TextField::paintEvent(event);
    QStylePainter painter(this);
    QStyleOptionFrame option;
    initStyleOption(&option);
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
    const QRect room = style()
                           ->subElementRect(QStyle::SE_LineEditContents, &option, this)
                           .adjusted(lineEditMargin, 0, -lineEditMargin, 0);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(room, int(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextSingleLine, elided);
}

void ProjectNameField::write()
{
    if (!isReadOnly() && text() != m_store.project().name)
        m_store.updateProjectName(text());
}

void ProjectNameField::showName()
{
    const ZelvoProject &project = m_store.project();
    if ((hasFocus() && isModified() && m_projectID == project.id) || text() == project.name)
        return;
    m_projectID = project.id;
    showText(project.name);
}

ProjectBar::ProjectBar(WorkspaceStore &store, const CommandActions &commands, QWidget *parent)
    : QWidget(parent), m_store(store),
      m_edited(makeRoleLabel(QStringLiteral("edited"), QStringLiteral("Edited"))),
      m_fileName(new ElidedLabel(QStringLiteral("fileName"))),
      m_noRecovery(new ElidedLabel(QStringLiteral("noRecovery"))),
      m_outputMode(new OutputModeBadge(badgeLook))
{
    setPanelName(*this, QStringLiteral("projectBar"));
    setFixedHeight(barHeight);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(margin, 0, margin, 0);
    layout->setSpacing(spacing);
    layout->addWidget(new SymbolLabel(QStringLiteral("play.rectangle.on.rectangle"), symbolSize,
                                      &ZelvoTheme::accent));
    layout->addWidget(new ProjectNameField(store), 1);
    layout->addWidget(m_edited);
    layout->addWidget(m_fileName);
    layout->addWidget(m_noRecovery);
    layout->addStretch(1);
    for (const Command command : {Command::newProject, Command::open, Command::save}) {
        layout->addWidget(
            new CommandButton(*commands.action(command), SymbolButton::Look::labelled));
    }
    layout->addWidget(m_outputMode);

    m_noRecovery->setText(QStringLiteral("No crash recovery"));
    m_noRecovery->setToolTip(plainToolTip(
        QStringLiteral("Unsaved changes cannot be kept for a crash at the moment. Save often.")));
    showWhetherKept(true);

    connect(&store, &WorkspaceStore::changed, this, &ProjectBar::showState);
    showState();
}

void ProjectBar::showWhetherKept(bool isKept)
{
    m_noRecovery->setVisible(!isKept);
}

void ProjectBar::showState()
{
    m_edited->setVisible(m_store.hasUnsavedChanges());
    const std::optional<QUrl> url = m_store.currentFileURL();
    m_fileName->setText(url ? url->fileName() : QStringLiteral("Unsaved project"));
    m_fileName->setToolTip(url ? plainToolTip(url->toLocalFile()) : QString());
    m_outputMode->setMode(m_store.outputMode());
}

} // namespace quenara
