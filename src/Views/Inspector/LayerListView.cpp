#include "LayerListView.h"

#include "AccessibleControls.h"
#include "InspectorRows.h"
#include "LayerMenu.h"
#include "LayerRow.h"
#include "PlainToolTip.h"
#include "RoleLabel.h"
#include "SymbolButton.h"
#include "SymbolLabel.h"
#include "TextNotice.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <vector>

namespace quenara {

namespace {

constexpr int actionGap = 4;
constexpr int warningSize = 14;
constexpr int warningGap = 6;
constexpr int belowHeader = 4;
constexpr int actionsMargin = 8; ///< above them
constexpr qsizetype mostRows = 200; ///< widgets that can be made before anybody waits for them

struct Action
{
    const char *symbol;
    const char *title;
    void (WorkspaceStore::*operation)();
};

constexpr auto layerActions = std::to_array<Action>({
    {"plus.square.on.square", "Duplicate layer", &WorkspaceStore::duplicateSelectedElement},
    {"trash", "Delete layer", &WorkspaceStore::deleteSelectedElement},
    {"arrow.up.to.line.compact", "Bring forward", &WorkspaceStore::bringSelectedElementForward},
    {"arrow.down.to.line.compact", "Send backward", &WorkspaceStore::sendSelectedElementBackward},
});

/// The topmost layer first. Layers that share a zIndex keep the order of the design.
QList<LayerRow::Contents> rowsOf(const QList<SlideElement> &elements)
{
    std::vector<const SlideElement *> fromTop;
    for (const SlideElement &element : elements)
        fromTop.push_back(&element);
    std::stable_sort(fromTop.begin(), fromTop.end(),
                     [](const auto *a, const auto *b) { return a->zIndex > b->zIndex; });
    QList<LayerRow::Contents> rows;
    for (const SlideElement *element : fromTop) {
        rows.append({element->id, element->name, element->kind, element->visible, element->locked});
    }
    return rows;
}

} // namespace

LayerListView::LayerListView(WorkspaceStore &store, RenderCaches &caches, QWidget *parent)
    : QWidget(parent), m_store(store), m_caches(caches),
      m_warning(
          new SymbolLabel(QLatin1String(textNoticeSymbol), warningSize, &ZelvoTheme::warning)),
      m_header(makeHeader()), m_list(new QWidget), m_rowsLayout(new QVBoxLayout(m_list)),
      m_actions(makeActions()), m_above(makeRoleLabel(QStringLiteral("note"))),
      m_below(makeRoleLabel(QStringLiteral("note")))
{
    m_warning->hide();
    setAccessibleRole(*m_list, QAccessible::List);
    m_list->setAccessibleName(QStringLiteral("Layers"));
    m_rowsLayout->setContentsMargins(0, 0, 0, 0);
    m_rowsLayout->setSpacing(0);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_header);
    layout->addWidget(m_above);
    layout->addWidget(m_list);
    layout->addWidget(m_below);
    layout->addWidget(m_actions);
    connect(&store, &WorkspaceStore::changed, this, &LayerListView::showStore);
    showStore();
}

QWidget *LayerListView::makeHeader()
{
    auto *addText = new SymbolButton(QStringLiteral("textformat"), QStringLiteral("Add Text"),
                                     SymbolButton::Look::icon);
    auto *addShape = new SymbolButton(QStringLiteral("rectangle"), QStringLiteral("Add Shape"),
                                      SymbolButton::Look::icon);
    connect(addText, &SymbolButton::clicked, this,
            [this] { m_store.addTextLayer(SlideElementKind::text); });
    connect(addShape, &SymbolButton::clicked, this, [this] { m_store.addShapeLayer(); });
    auto *widget = new QWidget;
    auto *header = new QHBoxLayout(widget);
    header->setContentsMargins(0, 0, 0, belowHeader);
    header->setSpacing(0);
    header->addWidget(makeRoleLabel(QStringLiteral("sectionTitle"), QStringLiteral("Layers")));
    header->addSpacing(warningGap);
    header->addWidget(m_warning);
    header->addStretch(1);
    header->addWidget(addText);
    header->addWidget(addShape);
    m_lastTabStop = addShape;
    return widget;
}

QWidget *LayerListView::makeActions()
{
    auto *widget = new QWidget;
    auto *row = new QHBoxLayout(widget);
    row->setContentsMargins(0, actionsMargin, 0, 0);
    row->setSpacing(actionGap);
    for (const Action &action : layerActions) {
        auto *button =
            new SymbolButton(QString::fromUtf8(action.symbol), QString::fromUtf8(action.title),
                             SymbolButton::Look::framed);
        connect(button, &SymbolButton::clicked, &m_store, action.operation);
        row->addWidget(button);
    }
    row->addStretch();
    return widget;
}

LayerRow *LayerListView::makeRow()
{
    auto *row = new LayerRow;
    connect(row, &LayerRow::clicked, this, [this, row] {
        m_store.selectElement(row->contents().id);
        row->setChecked(m_store.selectedElementID() == row->contents().id);
    });
    connect(row, &LayerRow::visibilityClicked, this, [this, row] {
        changeLayer(m_store, row->contents().id,
                    [](SlideElement &layer) { layer.visible = !layer.visible; });
    });
    connect(row, &LayerRow::lockClicked, this, [this, row] {
        changeLayer(m_store, row->contents().id,
                    [](SlideElement &layer) { layer.locked = !layer.locked; });
    });
    connect(row, &LayerRow::menuRequested, this,
            [this, row](const QPoint &place) { openMenu(row->contents().id, place); });
    return row;
}

void LayerListView::openMenu(const QString &layerID, const QPoint &place)
{
    m_store.selectElement(layerID);
    if (const std::optional<SlideElement> layer = m_store.selectedElement())
        makeLayerMenu(m_store, *layer, this)->popup(place);
}

/// Tells which texts are not shown as they are. What is looked at is the design, so that no other
/// change costs time.
void LayerListView::showWarning(const std::optional<Slide> &slide)
{
    const std::optional<SlideDesign> design = slide ? std::optional(slide->design) : std::nullopt;
    if (design == m_checkedDesign)
        return;
    m_checkedDesign = design;
    const QString notice = design ? textNotice(*design, m_caches) : QString();
    m_warning->setVisible(!notice.isEmpty());
    m_warning->setAccessibleName(notice);
    m_warning->setToolTip(plainToolTip(notice));
}

/// Those of \a all layers that have rows: most often all of them, else as many as stay the same
/// until one beyond is selected.
QList<LayerRow::Contents> LayerListView::chosenRows(const QList<LayerRow::Contents> &all)
{
    const qsizetype count = std::min(all.size(), mostRows);
    const auto selected = std::find_if(all.begin(), all.end(), [this](const auto &row) {
        return row.id == m_store.selectedElementID();
    });
    const qsizetype place = selected - all.begin();
    const bool hasRow = place >= m_firstRow && place < m_firstRow + count;
    if (selected != all.end() && !hasRow)
        m_firstRow = place - count / 2;
    m_firstRow = std::clamp<qsizetype>(m_firstRow, 0, all.size() - count);
    const qsizetype below = all.size() - count - m_firstRow;
    m_above->setText(QStringLiteral("%1 more above").arg(m_firstRow));
    m_above->setVisible(m_firstRow > 0);
    m_below->setText(QStringLiteral("%1 more below").arg(below));
    m_below->setVisible(below > 0);
    return all.sliced(m_firstRow, count);
}

void LayerListView::showStore()
{
    const std::optional<Slide> slide = m_store.slideWithID(m_store.selectedSlideID());
    const QList<LayerRow::Contents> rows =
        chosenRows(slide ? rowsOf(slide->design.elements) : QList<LayerRow::Contents>());
    // An enabled layout would place all rows again for each that is shown or hidden.
    m_rowsLayout->setEnabled(false);
    while (m_rows.size() < rows.size()) {
        m_rows.append(makeRow());
        m_rowsLayout->addWidget(m_rows.constLast());
        m_lastTabStop = m_rows.constLast()->followInTabOrder(m_lastTabStop);
    }
    for (qsizetype i = 0; i < m_rows.size(); ++i) {
        // Until it is placed, a row that is shown would lie where it last was, perhaps under the
        // pointer.
        if (m_rows.at(i)->isHidden())
            m_rows.at(i)->setGeometry({});
        m_rows.at(i)->setVisible(i < rows.size());
        if (i < rows.size()) {
            m_rows.at(i)->setContents(rows.at(i));
            m_rows.at(i)->setChecked(rows.at(i).id == m_store.selectedElementID());
        }
    }
    m_rowsLayout->setEnabled(true);
    showWarning(slide);
    enableControls(*m_header, slide.has_value());
    enableControls(*m_actions, m_store.selectedElement().has_value());
}

} // namespace quenara
