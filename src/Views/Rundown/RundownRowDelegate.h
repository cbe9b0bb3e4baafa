#pragma once

#include <QPixmap>
#include <QStyledItemDelegate>

namespace quenara {

class SlideThumbnails;

/// Draws the rows of RundownModel. Selected (a filled row), queued (an outlined row with a pointer)
/// and live (a badge with the word) differ in shape, not in colour alone.
class RundownRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// The room for the buttons at the right end of a service item's row, in points.
    static constexpr int itemButtonsWidth = 64;

    /// What is filled or outlined of a row that covers \a rect; empty if that is.
    [[nodiscard]] static QRect frameOf(const QRect &rect);

    RundownRowDelegate(SlideThumbnails &thumbnails, QObject *parent);

    /// A row of \a size points as it is dragged over \a viewport: on a card, that of a service item
    /// with the number of its slides, on a second card if it has some.
    [[nodiscard]] QPixmap pictureOf(const QModelIndex &index, const QWidget &viewport,
                                    const QSize &size) const;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

private:
    void paintItem(QPainter &painter, const QStyleOptionViewItem &option,
                   const QModelIndex &index) const;
    void paintSlide(QPainter &painter, const QStyleOptionViewItem &option,
                    const QModelIndex &index) const;

    SlideThumbnails &m_thumbnails;
};

} // namespace quenara
