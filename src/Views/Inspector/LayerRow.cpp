#include "LayerRow.h"

#include "AccessibleControls.h"
#include "ContextMenu.h"
#include "ElidedLabel.h"
#include "SymbolButton.h"
#include "Symbols.h"
#include "ThemeColors.h"

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QPainter>

namespace quenara {

namespace {

constexpr int layerRowHeight = 30;
constexpr double cornerRadius = 5;
constexpr int symbolSize = 14;
constexpr int iconMargin = 8;
constexpr int nameMargin = 7; ///< to either side
constexpr int endMargin = 5;

QString symbolOf(SlideElementKind kind)
{
    switch (kind) {
    case SlideElementKind::text:
        return QStringLiteral("textformat");
    case SlideElementKind::scriptureText:
        return QStringLiteral("text.quote");
    case SlideElementKind::songLyricText:
        return QStringLiteral("music.note");
    case SlideElementKind::image:
        return QStringLiteral("photo");
    case SlideElementKind::shape:
        return QStringLiteral("rectangle");
    case SlideElementKind::lowerThird:
        return QStringLiteral("rectangle.bottomthird.inset.filled");
    }
    Q_UNREACHABLE();
}

} // namespace

LayerRow::LayerRow(QWidget *parent)
    : QAbstractButton(parent), m_name(new ElidedLabel(QStringLiteral("layerName"))),
      m_visibility(new SymbolButton({}, {}, SymbolButton::Look::icon)),
      m_lock(new SymbolButton({}, {}, SymbolButton::Look::icon))
{
    setAccessibleRole(*this, QAccessible::ListItem);
    offerContextMenu(*this);
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(iconMargin + symbolSize + nameMargin, 0, endMargin, 0);
    layout->setSpacing(0);
    layout->addWidget(m_name, 1);
    layout->addSpacing(nameMargin);
    layout->addWidget(m_visibility);
    layout->addWidget(m_lock);
    connect(m_visibility, &SymbolButton::clicked, this, &LayerRow::visibilityClicked);
    connect(m_lock, &SymbolButton::clicked, this, &LayerRow::lockClicked);
    connect(this, &LayerRow::toggled, this, [this](bool isSelected) {
        QAccessibleEvent selection(
            this, isSelected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
        QAccessible::updateAccessibility(&selection);
    });
    showContents();
}

void LayerRow::setContents(const Contents &contents)
{
    if (contents == m_contents)
        return;
    m_contents = contents;
    showContents();
}

QWidget *LayerRow::followInTabOrder(QWidget *before)
{
    setTabOrder(before, this);
    setTabOrder(this, m_visibility);
    setTabOrder(m_visibility, m_lock);
    return m_lock;
}

void LayerRow::showContents()
{
    setAccessibleName(m_contents.name);
    m_name->setText(m_contents.name);
    m_visibility->setAccessibleDescription(m_contents.name);
    m_lock->setAccessibleDescription(m_contents.name);
    update();
    m_visibility->setSymbol(m_contents.isVisible ? QStringLiteral("eye")
                                                 : QStringLiteral("eye.slash"),
                            m_contents.isVisible ? QStringLiteral("Hide") : QStringLiteral("Show"));
    m_lock->setSymbol(m_contents.isLocked ? QStringLiteral("lock") : QStringLiteral("lock.open"),
                      m_contents.isLocked ? QStringLiteral("Unlock layer")
                                          : QStringLiteral("Lock layer"));
}

QSize LayerRow::sizeHint() const
{
    return {layout()->sizeHint().width(), layerRowHeight};
}

void LayerRow::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isByKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    emit menuRequested(isByKeyboard ? mapToGlobal(rect().center()) : event->globalPos());
}

void LayerRow::paintEvent(QPaintEvent * /*event*/)
{
    const ZelvoTheme &theme = themeOf(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChecked() || underMouse()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isChecked() ? theme.selection : theme.controlBackground);
        painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    }
    paintSymbol(painter, QRect(iconMargin, (height() - symbolSize) / 2, symbolSize, symbolSize),
                symbolOf(m_contents.kind), theme.secondaryText);
}

} // namespace quenara
