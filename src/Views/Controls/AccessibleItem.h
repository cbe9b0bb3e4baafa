#pragma once

#include <QAccessible>
#include <QPointer>
#include <QWidget>

namespace quenara {

/// What an assistive technology meets of something that a widget shows, can be pressed and is no
/// widget itself: an item of a list, with nothing inside it.
class AccessibleItem : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    explicit AccessibleItem(QWidget &around) : m_around(&around) {}

    bool isValid() const override { return m_around; }
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_around);
    }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override {}
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
            ? static_cast<QAccessibleActionInterface *>(this)
            : nullptr;
    }

    QStringList actionNames() const override
    {
        QStringList names{pressAction(), setFocusAction()};
        if (hasMenu())
            names.append(showMenuAction());
        return names;
    }
    QStringList keyBindingsForAction(const QString & /*action*/) const override { return {}; }
    void doAction(const QString &action) override
    {
        if (isValid() && action == pressAction()) {
            press();
        } else if (isValid() && action == setFocusAction()) {
            takeFocus();
        } else if (isValid() && action == showMenuAction()) {
            showMenu();
        }
    }

    /// Does what a click on the item does. To be called while the item is valid, as takeFocus() is.
    virtual void press() const = 0;

    virtual bool hasMenu() const { return false; }

protected:
    /// Gives the item the keyboard, as far as it can have it.
    virtual void takeFocus() const = 0;
    /// Opens the item's context menu, if it has one.
    virtual void showMenu() const {}

private:
    QPointer<QWidget> m_around;
};

} // namespace quenara
