#include "AccessibleControls.h"

#include "AccessibleItem.h"
#include "AccessibleText.h"
#include "ContextMenu.h"
#include "Typing.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QHash>
#include <QKeySequence>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>

#include <utility>

namespace quenara {

namespace {

constexpr auto roleProperty = "accessibleRole";

/// What is written on a button, without the marks of its mnemonic.
QString plainText(const QString &text)
{
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('&') && i + 1 < text.size())
            ++i;
        plain += text.at(i);
    }
    return plain;
}

/// Whether a dialog that has to be answered first keeps clicks from \a widget.
bool isBehindDialog(const QWidget &widget)
{
    const QWidget *dialog = QApplication::activeModalWidget();
    const QWidget *around = &widget;
    while (dialog && around && around != dialog)
        around = around->parentWidget();
    return dialog && !around;
}

bool isBehindPopup(const QWidget &widget)
{
    return QApplication::activePopupWidget() && widget.window()->windowType() != Qt::Popup;
}

/// Qt's own interface checks a button that is toggled without clicking it.
class ButtonInterface : public QAccessibleWidget
{
public:
    explicit ButtonInterface(QAbstractButton &button) : QAccessibleWidget(&button), m_button(button)
    {
        addControllingSignal(button.isCheckable() ? QStringLiteral("toggled(bool)")
                                                  : QStringLiteral("clicked()"));
    }

    QAccessible::Role role() const override
    {
        const QVariant given = m_button.property(roleProperty);
        if (given.isValid())
            return QAccessible::Role(given.toInt());
        if (!m_button.isCheckable())
            return QAccessible::Button;
        const bool isOneOfSome =
            m_button.autoExclusive() || (m_button.group() && m_button.group()->exclusive());
        return isOneOfSome ? QAccessible::RadioButton : QAccessible::CheckBox;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        const auto *pushButton = qobject_cast<const QPushButton *>(&m_button);
        state.defaultButton = pushButton && pushButton->isDefault();
        state.pressed = m_button.isDown();
        if (role() == QAccessible::ListItem) {
            state.selectable = m_button.isCheckable();
            state.selected = m_button.isChecked();
        } else {
            state.checkable = m_button.isCheckable();
            state.checked = m_button.isChecked();
        }
        return state;
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Name && m_button.accessibleName().isEmpty())
            return plainText(m_button.text());
        return QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (m_button.isEnabled())
            names.prepend(clickAction());
        if (m_button.isEnabled() && offersContextMenu(m_button))
            names.append(showMenuAction());
        return names;
    }

    void doAction(const QString &action) override
    {
        if (action == clickAction()) {
            clickSoon(m_button, [button = &m_button] { button->click(); });
        } else if (action == showMenuAction() && offersContextMenu(m_button)) {
            clickSoon(m_button, [button = &m_button] { openContextMenu(*button); });
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

    QStringList keyBindingsForAction(const QString &action) const override
    {
        const QString keys = m_button.shortcut().toString(QKeySequence::NativeText);
        return action == clickAction() && !keys.isEmpty() ? QStringList(keys) : QStringList();
    }

private:
    QString clickAction() const
    {
        const bool isChecked =
            role() == QAccessible::CheckBox || role() == QAccessible::RadioButton;
        return isChecked ? toggleAction() : pressAction();
    }

    QAbstractButton &m_button;
};

/// Qt's own interface opens the list of a disabled box, too, and of one behind a dialog.
class PickerInterface : public QAccessibleWidget
{
public:
    explicit PickerInterface(QComboBox &picker)
        : QAccessibleWidget(&picker, QAccessible::ComboBox), m_picker(picker)
    {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = m_picker.view()->isVisible();
        state.collapsed = !state.expanded;
        return state;
    }

    /// On Linux, readers take the name for the choice, and the label for the name.
    QString text(QAccessible::Text kind) const override
    {
        const bool isLabelled = !relations(QAccessible::Label).isEmpty();
        return kind == QAccessible::Value || (kind == QAccessible::Name && isLabelled)
            ? m_picker.currentText()
            : QAccessibleWidget::text(kind);
    }

    int childCount() const override { return 1; }
    QAccessibleInterface *child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(m_picker.view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return child && child->object() == m_picker.view() ? 0 : -1;
    }

    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (m_picker.isEnabled())
            names.prepend(showMenuAction());
        return names;
    }

    void doAction(const QString &action) override
    {
        if (action == showMenuAction()) {
            clickSoon(m_picker, [picker = &m_picker] { picker->showPopup(); });
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    QComboBox &m_picker;
};

/// A choice in the list of a picker.
class ChoiceInterface : public AccessibleItem
{
public:
    ChoiceInterface(QComboBox &picker, int row)
        : AccessibleItem(*picker.view()), m_picker(&picker), m_row(row)
    {}

    bool isValid() const override { return m_picker && m_row < m_picker->count(); }

    QString text(QAccessible::Text kind) const override
    {
        return isValid() && kind == QAccessible::Name ? m_picker->itemText(m_row) : QString();
    }

    QRect rect() const override
    {
        if (!isValid())
            return {};
        const QAbstractItemView &view = *m_picker->view();
        return view.visualRect(index()).translated(view.viewport()->mapToGlobal(QPoint()));
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        const QAbstractItemView &view = *m_picker->view();
        state.selectable = true;
        state.selected = m_row == m_picker->currentIndex();
        state.focusable = true;
        state.focused = view.isVisible() && index() == view.currentIndex();
        state.invisible = !view.isVisible();
        state.offscreen = !view.viewport()->rect().intersects(view.visualRect(index()));
        return state;
    }

    void press() const override
    {
        clickSoon(*m_picker->view(), [picker = m_picker, row = m_row] {
            picker->hidePopup();
            picker->setCurrentIndex(row);
            emit picker->activated(row);
        });
    }

protected:
    void takeFocus() const override { m_picker->view()->setCurrentIndex(index()); }

private:
    QModelIndex index() const
    {
        return m_picker->model()->index(m_row, m_picker->modelColumn(), m_picker->rootModelIndex());
    }

    QPointer<QComboBox> m_picker;
    int m_row;
};

/// The list of a picker. Qt's own interface selects an item without choosing it.
class ChoicesInterface : public QAccessibleWidget
{
public:
    explicit ChoicesInterface(QComboBox &picker)
        : QAccessibleWidget(picker.view(), QAccessible::List), m_picker(picker)
    {}

    QString text(QAccessible::Text kind) const override
    {
        const QString own = QAccessibleWidget::text(kind);
        return own.isEmpty() && kind == QAccessible::Name ? m_picker.accessibleName() : own;
    }

    int childCount() const override { return m_picker.count(); }

    QAccessibleInterface *child(int index) const override
    {
        if (index < 0 || index >= m_picker.count())
            return nullptr;
        QAccessible::Id &id = m_choices[index];
        if (!id)
            id = QAccessible::registerAccessibleInterface(new ChoiceInterface(m_picker, index));
        return QAccessible::accessibleInterface(id);
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        for (auto choice = m_choices.cbegin(); choice != m_choices.cend(); ++choice) {
            if (QAccessible::accessibleInterface(choice.value()) == child)
                return choice.key();
        }
        return -1;
    }

    QAccessibleInterface *childAt(int x, int y) const override
    {
        const QAbstractItemView &view = *m_picker.view();
        return child(view.indexAt(view.viewport()->mapFromGlobal(QPoint(x, y))).row());
    }

    QAccessibleInterface *focusChild() const override
    {
        const QAbstractItemView &view = *m_picker.view();
        return view.isVisible() ? child(view.currentIndex().row()) : nullptr;
    }

protected:
    ~ChoicesInterface() override
    {
        for (const QAccessible::Id id : std::as_const(m_choices))
            QAccessible::deleteAccessibleInterface(id);
    }

private:
    QComboBox &m_picker;
    mutable QHash<int, QAccessible::Id> m_choices; ///< those that were asked for, by their rows
};

/// The picker whose list that is, unless one types into it.
QComboBox *pickerWithList(const QAbstractItemView *view)
{
    const QWidget *popup = view ? view->parentWidget() : nullptr;
    auto *picker = popup ? qobject_cast<QComboBox *>(popup->parentWidget()) : nullptr;
    return picker && !picker->isEditable() && picker->view() == view ? picker : nullptr;
}

bool opensMenu(const QAbstractButton &button)
{
    const auto *toolButton = qobject_cast<const QToolButton *>(&button);
    const auto *pushButton = qobject_cast<const QPushButton *>(&button);
    return (toolButton && toolButton->menu()) || (pushButton && pushButton->menu());
}

QAccessibleInterface *accessibleControl(const QString & /*className*/, QObject *object)
{
    auto *button = qobject_cast<QAbstractButton *>(object);
    if (button && !opensMenu(*button))
        return new ButtonInterface(*button);
    auto *picker = qobject_cast<QComboBox *>(object);
    if (picker && !picker->isEditable())
        return new PickerInterface(*picker);
    if (QComboBox *owner = pickerWithList(qobject_cast<QAbstractItemView *>(object)))
        return new ChoicesInterface(*owner);
    auto *widget = qobject_cast<QWidget *>(object);
    if (!widget)
        return nullptr;
    const QVariant role = widget->property(roleProperty);
    return role.isValid() ? new QAccessibleWidget(widget, QAccessible::Role(role.toInt()))
                          : makeTextInterface(*widget);
}

} // namespace

void makeControlsAccessible()
{
    QAccessible::installFactory(accessibleControl);
}

void setAccessibleRole(QWidget &widget, QAccessible::Role role)
{
    widget.setProperty(roleProperty, int(role));
    // Newer releases of Qt have met some parts of its dialogs while these were made.
    QAccessibleInterface *met = QAccessible::queryAccessibleInterface(&widget);
    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(met));
}

void closePopups()
{
    QWidget *closed = nullptr;
    QWidget *popup = QApplication::activePopupWidget();
    while (popup && popup != closed) { // one that refuses to close ends it
        closed = popup;
        popup->close();
        popup = QApplication::activePopupWidget();
    }
}

bool isReachedByClick(const QWidget &widget)
{
    if (!widget.isVisible() || !widget.isEnabled() || isBehindDialog(widget))
        return false;
    const bool isHeldBack = isBehindPopup(widget);
    if (isHeldBack)
        closePopups();
    return !isHeldBack;
}

void clickSoon(QWidget &widget, const std::function<void()> &act)
{
    const auto click = [target = QPointer(&widget), act] {
        const auto canBeClicked = [&] { return target && isReachedByClick(*target); };
        if (!canBeClicked())
            return;
        QWidget *field = QApplication::focusWidget();
        if (takesText(field) && field->window() == target->window())
            leaveField(*field);
        if (canBeClicked()) // after what was typed has been taken
            act();
    };
    QMetaObject::invokeMethod(&widget, click, Qt::QueuedConnection);
}

} // namespace quenara
