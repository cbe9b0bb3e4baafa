#include "InspectorRows.h"

#include "RoleLabel.h"
#include "Typing.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace quenara {

namespace {

constexpr int rowHeight = 28;
constexpr int controlGap = 8;
constexpr int pairGap = 24; ///< between a control and the title of the one beside it

QLabel *makeTitle(const QString &title)
{
    return makeRoleLabel(QStringLiteral("fieldLabel"), title);
}

} // namespace

InspectorRows::InspectorRows(QWidget *parent) : QWidget(parent), m_rows(new QVBoxLayout(this))
{
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(rowGap);
}

void InspectorRows::add(QWidget *control)
{
    // A screen reader calls a picker by its choice; only the label says what is chosen.
    addTitled(control->accessibleName(), control)->setBuddy(control);
}

void InspectorRows::addSmall(QWidget *control)
{
    addSmall(control->accessibleName(), {control});
}

void InspectorRows::addSmall(const QString &title, const QWidgetList &controls)
{
    addTitled(title, sideBySide(controls, controlGap));
}

void InspectorRows::addPair(QWidget *first, QWidget *second)
{
    addSmall(first->accessibleName(),
             {sideBySide({first, makeTitle(second->accessibleName())}, pairGap), second});
}

void InspectorRows::addUntitled(QWidget *row)
{
    row->setMinimumHeight(rowHeight);
    m_rows->addWidget(row);
}

QLabel *InspectorRows::addTitled(const QString &title, QWidget *control)
{
    QLabel *label = makeTitle(title);
    label->setFixedWidth(titleWidth);
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(label);
    layout->addWidget(control, 1);
    addUntitled(row);
    return label;
}

QWidget *sideBySide(const QWidgetList &widgets, int gap)
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
    for (QWidget *widget : widgets)
        layout->addWidget(widget);
    layout->addStretch();
    return row;
}

void enableControls(QWidget &controls, bool enabled)
{
    // Qt would give the focus to the next control, which may be a text field.
    QWidget *focused = controls.window()->focusWidget();
    if (!enabled && focused && controls.isAncestorOf(focused))
        leaveField(*focused);
    controls.setEnabled(enabled);
}

} // namespace quenara
