#pragma once

#include <QStyledItemDelegate>

namespace quenara {

/// Draws the rows of ShowListModel. Selected, queued and live differ in shape and word, not in
/// colour alone.
class ShowRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

} // namespace quenara
