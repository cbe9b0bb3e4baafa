#include "ProjectBar.h"

#include "ElidedLabel.h"
#include "OutputModeBadge.h"
#include "Panels.h"
#include "RoleLabel.h"
#include "SymbolButton.h"
#include "SymbolLabel.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>
#include <QKeyEvent>

namespace quenara {

namespace {

constexpr int nameMinimumWidth = 180;
constexpr int nameMaximumWidth = 320;
constexpr int symbolSize = 18;
constexpr int margin = 16;
constexpr int spacing = 12;
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
        setText(m_store.project().name);
    TextField::keyPressEvent(event);
}

void ProjectNameField::write()
{
    if (text() != m_store.project().name)
        m_store.updateProjectName(text());
}

void ProjectNameField::showName()
{
    const ZelvoProject &project = m_store.project();
    if ((hasFocus() && isModified() && m_projectID == project.id) || text() == project.name)
        return;
    m_projectID = project.id;
    setText(project.name);
    setCursorPosition(0);
}

ProjectBar::ProjectBar(WorkspaceStore &store, const std::function<bool()> &mayReplaceDocument,
                       QWidget *parent)
    : QWidget(parent), m_store(store),
      m_edited(makeRoleLabel(QStringLiteral("edited"), QStringLiteral("Edited"))),
      m_fileName(new ElidedLabel(QStringLiteral("fileName"))),
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
    layout->addStretch(1);
    const auto add = [&](const QString &symbol, const QString &title, auto action) {
        auto *button = new SymbolButton(symbol, title, SymbolButton::Look::labelled);
        connect(button, &SymbolButton::clicked, &store, action);
        layout->addWidget(button);
    };
    add(QStringLiteral("doc.badge.plus"), QStringLiteral("New"),
        [&store] { store.setStartPanelPresented(true); });
    add(QStringLiteral("folder"), QStringLiteral("Open"), [&store, mayReplaceDocument] {
        if (mayReplaceDocument())
            store.openProjectWithPanel();
    });
    add(QStringLiteral("square.and.arrow.down"), QStringLiteral("Save"),
        [&store] { store.saveProject(); });
    layout->addWidget(m_outputMode);

    connect(&store, &WorkspaceStore::changed, this, &ProjectBar::showState);
    showState();
}

void ProjectBar::showState()
{
    m_edited->setVisible(m_store.hasUnsavedChanges());
    const std::optional<QUrl> url = m_store.currentFileURL();
    m_fileName->setText(url ? url->fileName() : QStringLiteral("Unsaved project"));
    m_fileName->setToolTip(url ? url->toLocalFile() : QString());
    m_outputMode->setMode(m_store.outputMode());
}

} // namespace quenara
