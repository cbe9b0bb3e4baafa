#include "PressableList.h"

#include "AccessibleControls.h"
#include "AccessibleItem.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QLineEdit>
#include <QPointer>

namespace quenara {

namespace {

/// A row. It stays the same interface wherever its row moves.
class RowInterface : public AccessibleItem
{
public:
    RowInterface(PressableList &list, const QModelIndex &index)
        : AccessibleItem(list), m_list(&list), m_index(index)
    {}

    bool isValid() const override { return m_list && m_index.isValid(); }

    QString text(QAccessible::Text kind) const override
    {
        switch (kind) {
        case QAccessible::Name:
            return m_index.data(Qt::DisplayRole).toString();
        case QAccessible::Description:
            return m_index.data(Qt::AccessibleDescriptionRole).toString();
        default:
            return {};
        }
    }

    QRect rect() const override
    {
        const QRect row = isValid() ? m_list->visualRect(m_index) : QRect();
        return row.translated(m_list ? m_list->viewport()->mapToGlobal(QPoint()) : QPoint());
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.selectable = true;
        state.focusable = true;
        state.selected = m_list->isChosen(m_index);
        state.focused = m_list->hasFocus() && m_index == m_list->currentIndex();
        state.invisible = !m_list->isVisible();
        state.offscreen = !m_list->viewport()->rect().intersects(m_list->visualRect(m_index));
        return state;
    }

    void press() const override
    {
        clickSoon(*m_list, [list = m_list, index = m_index] {
            list->setFocus(Qt::MouseFocusReason);
            list->choose(index);
        });
    }

    bool hasMenu() const override { return m_list && m_list->hasMenus(); }

    const QPersistentModelIndex &index() const { return m_index; }

protected:
    void showMenu() const override
    {
        clickSoon(*m_list, [list = m_list, index = m_index] { list->openMenu(index); });
    }

    void takeFocus() const override
    {
        m_list->setFocus(Qt::OtherFocusReason);
        m_list->setCurrentIndex(m_index);
    }

private:
    QPointer<PressableList> m_list;
    QPersistentModelIndex m_index;
};

/// The list. It is a table of one column, too: that is how Qt lets assistive technologies select.
class ListInterface : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit ListInterface(PressableList &list)
        : QAccessibleWidget(&list, QAccessible::List), m_list(list)
    {}

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface *>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    int childCount() const override { return rowCount() + (titleField() ? 1 : 0); }

    QAccessibleInterface *child(int row) const override
    {
        if (row == rowCount())
            return titleField();
        const QModelIndex index = m_list.model()->index(row, 0);
        if (!index.isValid())
            return nullptr;
        QAccessible::Id &id = m_rows[index];
        if (!id)
            id = QAccessible::registerAccessibleInterface(new RowInterface(m_list, index));
        return QAccessible::accessibleInterface(id);
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        if (child && child == titleField())
            return rowCount();
        const auto *row = dynamic_cast<const RowInterface *>(child);
        return row ? row->index().row() : -1;
    }

    QAccessibleInterface *childAt(int x, int y) const override
    {
        const QPoint place = m_list.viewport()->mapFromGlobal(QPoint(x, y));
        if (!m_list.viewport()->rect().contains(place))
            return nullptr; // where a row would go on if it were in sight
        QAccessibleInterface *field = titleField();
        return field && field->rect().contains(x, y) ? field : child(m_list.indexAt(place).row());
    }

    QAccessibleInterface *focusChild() const override
    {
        return m_list.hasFocus() ? child(m_list.currentIndex().row()) : titleField();
    }

    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    QAccessibleInterface *cellAt(int row, int column) const override
    {
        return column == 0 ? child(row) : nullptr;
    }
    int rowCount() const override { return m_list.model()->rowCount(); }
    int columnCount() const override { return 1; }
    QString rowDescription(int /*row*/) const override { return {}; }
    QString columnDescription(int /*column*/) const override { return {}; }

    bool isRowSelected(int row) const override
    {
        return m_list.isChosen(m_list.model()->index(row, 0));
    }
    QList<int> selectedRows() const override
    {
        QList<int> rows;
        for (int row = 0; row < rowCount(); ++row) {
            if (isRowSelected(row))
                rows.append(row);
        }
        return rows;
    }
    QList<QAccessibleInterface *> selectedCells() const override
    {
        QList<QAccessibleInterface *> cells;
        for (const int row : selectedRows())
            cells.append(child(row));
        return cells;
    }
    int selectedRowCount() const override { return int(selectedRows().size()); }
    int selectedCellCount() const override { return selectedRowCount(); }
    bool isColumnSelected(int /*column*/) const override { return false; }
    QList<int> selectedColumns() const override { return {}; }
    int selectedColumnCount() const override { return 0; }

    bool selectRow(int row) override
    {
        const auto *item = dynamic_cast<const RowInterface *>(child(row));
        if (item)
            item->press();
        return item;
    }
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }

    /// Forgets the rows that are gone.
    void modelChange(QAccessibleTableModelChangeEvent * /*event*/) override
    {
        erase_if(m_rows, [](const auto &entry) {
            const bool isGone = !entry.key().isValid();
            if (isGone)
                QAccessible::deleteAccessibleInterface(entry.value());
            return isGone;
        });
    }

protected:
    ~ListInterface() override
    {
        for (const QAccessible::Id id : std::as_const(m_rows))
            QAccessible::deleteAccessibleInterface(id);
    }

private:
    /// The field in which a row is renamed, while one is.
    QAccessibleInterface *titleField() const
    {
        return QAccessible::queryAccessibleInterface(m_list.viewport()->findChild<QLineEdit *>());
    }

    PressableList &m_list;
    mutable QHash<QPersistentModelIndex, QAccessible::Id> m_rows; ///< those that were asked for
};

QAccessibleInterface *accessibleList(const QString & /*className*/, QObject *object)
{
    auto *list = qobject_cast<PressableList *>(object);
    return list ? new ListInterface(*list) : nullptr;
}

} // namespace

PressableList::PressableList(QWidget *parent) : QListView(parent)
{
    QAccessible::installFactory(accessibleList); // Qt keeps it once, however often it is called
}

} // namespace quenara
