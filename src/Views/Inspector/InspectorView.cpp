#include "InspectorView.h"

#include "AccessibleControls.h"
#include "BackgroundInspector.h"
#include "InspectorRows.h"
#include "LayerInspector.h"
#include "LayerListView.h"
#include "Panels.h"
#include "RoleLabel.h"
#include "SlideInspector.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

namespace quenara {

namespace {

constexpr int columnWidth = 340;
constexpr int leastWidth = 120; ///< what the columns beside it leave on the smallest screens
constexpr int headerHeight = 44;
constexpr int headerMargin = 12;
constexpr int columnMargin = 14;
constexpr int scrollBarWidth = 10;
constexpr int sectionMargin = 12; ///< above and below
constexpr int sectionGap = 8; ///< between the title and the rows
constexpr int sectionTitleHeight = 18;

QWidget *makeSection(const QString &title, QWidget *contents)
{
    auto *section = new QWidget;
    auto *layout = new QVBoxLayout(section);
    layout->setContentsMargins(0, sectionMargin, 0, sectionMargin);
    layout->setSpacing(sectionGap);
    if (!title.isEmpty()) {
        QLabel *label = makeRoleLabel(QStringLiteral("sectionTitle"), title);
        label->setFixedHeight(sectionTitleHeight);
        layout->addWidget(label);
    }
    layout->addWidget(contents);
    return section;
}

} // namespace

InspectorView::InspectorView(WorkspaceStore &store, RenderCaches &caches, QWidget *parent)
    : QWidget(parent), m_selection(store)
{
    setPanelName(*this, QStringLiteral("inspector"));
    setAccessibleRole(*this, QAccessible::Pane);
    setAccessibleName(QStringLiteral("Inspector"));
    setMinimumWidth(leastWidth);
    setMaximumWidth(columnWidth);
    // A click beside a field takes the focus from it, which ends the typing.
    setFocusPolicy(Qt::ClickFocus);

    QWidget *header = makePanel(QStringLiteral("inspectorHeader"), headerHeight);
    auto *headerLayout = new QHBoxLayout(header);
    headerLayout->setContentsMargins(headerMargin, 0, headerMargin, 0);
    headerLayout->addWidget(
        makeRoleLabel(QStringLiteral("panelTitle"), QStringLiteral("Inspector")));

    auto *scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setMinimumHeight(1); // on the smallest screens, it is the buttons that need the room
    scroll->setWidgetResizable(true);
    scroll->setWidget(makeColumn(caches));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 0, 0, 0); // the border on the left
    layout->setSpacing(0);
    layout->addWidget(header);
    layout->addWidget(scroll, 1);
}

QSize InspectorView::sizeHint() const
{
    return {columnWidth, QWidget::sizeHint().height()};
}

QWidget *InspectorView::makeColumn(RenderCaches &caches)
{
    auto *column = new QWidget;
    // The column is as wide without the scroll bar as beside it.
    column->setFixedWidth(columnWidth - 1 - scrollBarWidth);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(columnMargin - 1, 0, columnMargin - scrollBarWidth, 0);
    layout->setSpacing(0);
    QWidget *slide = makeSlideInspector(m_selection);
    QWidget *background = makeBackgroundInspector(m_selection);
    const auto enable = [this, slide, background] {
        for (QWidget *rows : {slide, background})
            enableControls(*rows, m_selection.slide().has_value());
    };
    connect(&m_selection, &SelectionBindings::changed, column, enable);
    enable();
    layout->addWidget(makeSection(QStringLiteral("Slide"), slide));
    layout->addWidget(makeSeparator(Qt::Horizontal));
    layout->addWidget(makeSection({}, new LayerListView(m_selection.store(), caches)));
    layout->addWidget(makeSeparator(Qt::Horizontal));
    QWidget *backgroundSection = makeSection(QStringLiteral("Background"), background);
    takeBackgroundImages(*backgroundSection, m_selection);
    layout->addWidget(backgroundSection);
    layout->addWidget(makeSeparator(Qt::Horizontal));
    layout->addWidget(
        makeSection(QStringLiteral("Selected Layer"), new LayerInspector(m_selection)));
    layout->addStretch();
    return column;
}

} // namespace quenara
