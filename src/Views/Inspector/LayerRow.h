#pragma once

#include "SlideDesignModels.h"

#include <QAbstractButton>

class QLabel;

namespace quenara {

class ElidedLabel;
class SymbolButton;

/// One layer in the list of layers; checked while it is the selected one.
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

    /// Has Tab go from \a before to the row and its buttons. Returns the last of these.
    QWidget *followInTabOrder(QWidget *before);

    QSize sizeHint() const override;

signals:
    void visibilityClicked();
    void lockClicked();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showContents();

    Contents m_contents;
    ElidedLabel *m_name;
    SymbolButton *m_visibility;
    SymbolButton *m_lock;
};

} // namespace quenara
