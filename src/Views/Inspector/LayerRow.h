#pragma once

#include "SlideDesignModels.h"

#include <QAbstractButton>

namespace quenara {

class ElidedLabel;
class SymbolButton;

/// A layer in the list of layers, checked while it is selected. Assistive technologies are told of
/// a list item.
class LayerRow : public QAbstractButton
{
    Q_OBJECT

public:
    /// What a row shows of a layer.
    struct Contents
    {
        QString id;
        QString name;
        SlideElementKind kind = SlideElementKind::text;
        bool isVisible = true;
        bool isLocked = false;

        bool operator==(const Contents &) const = default;
    };

    explicit LayerRow(QWidget *parent = nullptr);

    const Contents &contents() const { return m_contents; }
    void setContents(const Contents &contents);

    /// Puts the row and its buttons behind \a before in the tab order. Returns the last button.
    QWidget *followInTabOrder(QWidget *before);

    QSize sizeHint() const override;

signals:
    void visibilityClicked();
    void lockClicked();
    /// The context menu is to be opened there on the screen.
    void menuRequested(const QPoint &place);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showContents();

    Contents m_contents;
    ElidedLabel *m_name;
    SymbolButton *m_visibility;
    SymbolButton *m_lock;
};

} // namespace quenara
