#pragma once

#include <QLabel>

namespace quenara {

/// A text in one line, with an ellipsis where the room ends; the tooltip then shows all of
/// it. The style sheet knows the label by its \a role.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(const QString &role, QWidget *parent = nullptr);

    void setElideMode(Qt::TextElideMode mode);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Qt::TextElideMode m_elideMode = Qt::ElideRight;
};

} // namespace quenara
