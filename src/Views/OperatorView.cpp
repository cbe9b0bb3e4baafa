#include "OperatorView.h"

#include "RoleLabel.h"
#include "ShowListModel.h"
#include "ShowRowDelegate.h"
#include "SlideView.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QStyle>
#include <QVBoxLayout>

namespace quenara {

namespace {

constexpr int projectBarHeight = 52;
constexpr int nameMinimumWidth = 180;
constexpr int nameMaximumWidth = 320;
constexpr int showListWidth = 286;
constexpr int barMargin = 16;
constexpr int barSpacing = 12;
constexpr int previewMargin = 24;
constexpr int captionSpacing = 8;

/// Makes the style sheet look at a changed property.
void setStyleProperty(QWidget *widget, const char *name, const QString &value)
{
    if (widget->property(name).toString() == value)
        return;
    widget->setProperty(name, value);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

} // namespace

OperatorView::OperatorView(WorkspaceStore &store, PictureCache &pictures, QWidget *parent)
    : QWidget(parent), m_store(store), m_pictures(pictures)
{
    auto *workArea = new QHBoxLayout;
    workArea->setSpacing(0);
    workArea->addWidget(makeShowList());
    workArea->addWidget(makeLivePreview(), 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeProjectBar());
    layout->addLayout(workArea, 1);

    connect(&store, &WorkspaceStore::changed, this, &OperatorView::showStore);
    connect(&store, &WorkspaceStore::selectedSlideIDChanged, this, &OperatorView::showSelection);
    showStore();
    showSelection();
    setFocusPolicy(Qt::StrongFocus);
}

OperatorView::~OperatorView()
{
    // A field that is deleted while it has the focus still says that its editing has finished.
    m_projectName->disconnect(this);
}

QWidget *OperatorView::makeProjectBar()
{
    m_projectName = new QLineEdit;
    m_projectName->setObjectName(QStringLiteral("projectName"));
    m_projectName->setAccessibleName(QStringLiteral("Project Name"));
    m_projectName->setPlaceholderText(QStringLiteral("Project Name"));
    m_projectName->setMinimumWidth(nameMinimumWidth);
    m_projectName->setMaximumWidth(nameMaximumWidth);
    m_projectName->installEventFilter(this);
    connect(m_projectName, &QLineEdit::editingFinished, this, &OperatorView::commitProjectName);
    connect(m_projectName, &QLineEdit::returnPressed, this, [this] { setFocus(); });

    m_edited = makeRoleLabel(QStringLiteral("edited"), QStringLiteral("Edited"));
    m_fileName = makeRoleLabel(QStringLiteral("muted"));
    m_outputState = makeRoleLabel(QStringLiteral("badge"));

    auto *bar = new QWidget;
    bar->setObjectName(QStringLiteral("projectBar"));
    bar->setAttribute(Qt::WA_StyledBackground);
    bar->setFixedHeight(projectBarHeight);
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(barMargin, 0, barMargin, 0);
    layout->setSpacing(barSpacing);
    layout->addWidget(m_projectName, 1);
    layout->addWidget(m_edited);
    layout->addWidget(m_fileName);
    layout->addStretch(1);
    layout->addWidget(m_outputState, 0, Qt::AlignVCenter);
    return bar;
}

QWidget *OperatorView::makeShowList()
{
    m_showModel = new ShowListModel(m_store, this);
    m_showList = new QListView;
    m_showList->setObjectName(QStringLiteral("showList"));
    m_showList->setAccessibleName(QStringLiteral("Show"));
    m_showList->setFixedWidth(showListWidth);
    // Keys are the transport's: the list would move a cursor of its own by them.
    m_showList->setFocusPolicy(Qt::NoFocus);
    m_showList->setModel(m_showModel);
    m_showList->setItemDelegate(new ShowRowDelegate(m_showList));
    m_showList->setSelectionMode(QAbstractItemView::NoSelection);
    m_showList->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_showList->setUniformItemSizes(true);
    m_showList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(m_showList, &QListView::clicked, this, [this](const QModelIndex &index) {
        const QVariant id = index.data(ShowListModel::slideIDRole);
        if (!id.isNull())
            m_store.selectSlide(id.toString(), true);
    });
    return m_showList;
}

QWidget *OperatorView::makeLivePreview()
{
    m_liveCaption = makeRoleLabel(QStringLiteral("liveCaption"));
    m_liveTitle = makeRoleLabel(QStringLiteral("heading"));
    m_livePreview = new SlideView(m_pictures);
    m_livePreview->setAccessibleName(QStringLiteral("Live preview"));

    auto *caption = new QHBoxLayout;
    caption->setSpacing(captionSpacing);
    caption->addWidget(m_liveCaption);
    caption->addWidget(m_liveTitle, 1);

    auto *area = new QWidget;
    area->setObjectName(QStringLiteral("previewArea"));
    area->setAttribute(Qt::WA_StyledBackground);
    auto *layout = new QVBoxLayout(area);
    layout->setContentsMargins(previewMargin, previewMargin, previewMargin, previewMargin);
    layout->setSpacing(barSpacing);
    layout->addLayout(caption);
    layout->addWidget(m_livePreview, 1);
    return area;
}

bool OperatorView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_projectName && event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        m_projectName->setText(m_store.project().name);
        setFocus();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void OperatorView::commitProjectName()
{
    if (m_projectName->text() != m_store.project().name)
        m_store.updateProjectName(m_projectName->text());
}

void OperatorView::showStore()
{
    const bool isBeingTyped = m_projectName->hasFocus() && m_projectName->isModified()
        && m_namedProjectID == m_store.project().id;
    if (!isBeingTyped) {
        m_namedProjectID = m_store.project().id;
        m_projectName->setText(m_store.project().name);
        m_projectName->setCursorPosition(0);
    }
    m_edited->setVisible(m_store.hasUnsavedChanges());
    const std::optional<QUrl> url = m_store.currentFileURL();
    m_fileName->setText(url ? url->fileName() : QStringLiteral("Unsaved project"));
    m_outputState->setText(title(m_store.outputMode()).toUpper());
    m_liveCaption->setText(title(m_store.outputMode()));
    for (QLabel *label : {m_outputState, m_liveCaption})
        setStyleProperty(label, "mode", rawValue(m_store.outputMode()));

    const std::optional<Slide> live = m_store.slideWithID(m_store.liveSlideID());
    m_liveTitle->setText(live ? live->title : QStringLiteral("No live slide"));
    m_livePreview->setSlide(live);
}

void OperatorView::showSelection()
{
    m_showList->scrollTo(m_showModel->indexOf(m_store.selectedSlideID()));
}

} // namespace quenara
