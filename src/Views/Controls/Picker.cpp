#include "Picker.h"

#include "Symbols.h"
#include "ThemeColors.h"

#include <QAbstractItemView>
#include <QCursor>
#include <QKeyEvent>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>

namespace quenara {

namespace {

constexpr int chevronSize = 12;
constexpr int chevronMargin = 8;

bool opensTheList(const QKeyEvent &press)
{
    return press.key() == Qt::Key_F4
        || (press.key() == Qt::Key_Down
            && (press.modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier);
}

} // namespace

Picker::Picker(const QString &title, QWidget *parent) : QComboBox(parent)
{
    setAccessibleName(title);
    setFocusPolicy(Qt::TabFocus);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    view()->setTextElideMode(Qt::ElideRight);
    setItemDelegate(new QStyledItemDelegate(this)); // the standard one knows no style sheet
}

void Picker::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    const QRect chevron(width() - chevronMargin - chevronSize, (height() - chevronSize) / 2,
                        chevronSize, chevronSize);
    const ZelvoTheme &theme = themeOf(*this);
    paintSymbol(painter, chevron, QStringLiteral("chevron.down"),
                isEnabled() ? theme.secondaryText : theme.mutedText);
}

bool Picker::event(QEvent *event)
{
    // What opens the list of the picker that has the keyboard is no shortcut of its window.
    if (event->type() == QEvent::ShortcutOverride
        && opensTheList(*static_cast<const QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QComboBox::event(event);
}

void Picker::keyPressEvent(QKeyEvent *event)
{
    // Qt would have the other keys choose without showing the list.
    if (opensTheList(*event)) {
        QComboBox::keyPressEvent(event);
    } else {
        event->ignore();
    }
}

/// Qt tells nothing of a pointer that leaves while the list is open, and would go on showing that
/// it is over the picker.
void Picker::hidePopup()
{
    const bool wasOpen = view()->isVisible();
    QComboBox::hidePopup();
    if (!wasOpen)
        return; // a change of the picker, which need not even have a place yet
    setAttribute(Qt::WA_UnderMouse, rect().contains(mapFromGlobal(QCursor::pos())));
    update();
}

void Picker::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

} // namespace quenara
