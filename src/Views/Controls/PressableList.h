#pragma once

#include <QListView>

namespace quenara {

/// A list in which a click on a row does something. Assistive technologies meet it as a list of
/// items that can be selected, and whose action does what a click does. What is said of an item
/// beside its title has Qt::AccessibleDescriptionRole.
class PressableList : public QListView
{
    Q_OBJECT

public:
    explicit PressableList(QWidget *parent = nullptr);

    /// Does what a click on a row does.
    virtual void choose(const QModelIndex &index) = 0;

    [[nodiscard]] virtual bool isChosen(const QModelIndex &index) const = 0;

    /// Whether rows have a context menu.
    [[nodiscard]] virtual bool hasMenus() const { return false; }
    /// Brings a row into sight and opens its context menu on it, if rows have one.
    virtual void openMenu(const QModelIndex & /*index*/) {}
};

} // namespace quenara
