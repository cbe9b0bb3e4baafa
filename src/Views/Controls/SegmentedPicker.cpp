#include "SegmentedPicker.h"

#include "AccessibleControls.h"
#include "ExclusiveButtons.h"
#include "PlainToolTip.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace quenara {

namespace {

constexpr int groupMargin = 3;
constexpr int segmentHeight = 24;

} // namespace

SegmentedPicker::SegmentedPicker(const QString &title, const QStringList &segments, QWidget *parent)
    : QFrame(parent)
{
    setAccessibleRole(*this, QAccessible::Grouping);
    setAccessibleName(title);
    setProperty("look", QStringLiteral("segments"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(groupMargin, groupMargin, groupMargin, groupMargin);
    layout->setSpacing(0);
    for (const QString &segment : segments) {
        auto *button = new QPushButton(segment);
        button->setProperty("look", QStringLiteral("segment"));
        button->setToolTip(segment);
        button->setCheckable(true);
        button->setAutoExclusive(true); // so that a screen reader calls it a radio button
        button->setAutoDefault(false);
        button->setFixedHeight(segmentHeight);
        m_segments.addButton(button, int(m_segments.buttons().size()));
        layout->addWidget(button, 1);
    }
    connect(&m_segments, &QButtonGroup::idClicked, this, &SegmentedPicker::activated);
}

void SegmentedPicker::setCurrentIndex(int index)
{
    checkOnly(m_segments, index);
}

void SegmentedPicker::setShortcuts(const QList<QKeySequence> &shortcuts)
{
    for (QAbstractButton *button : m_segments.buttons()) {
        const QKeySequence &shortcut = shortcuts.at(m_segments.id(button));
        button->setShortcut(shortcut);
        button->setToolTip(buttonToolTip(button->text(), shortcut));
    }
}

} // namespace quenara
