#pragma once

#include <QLabel>

namespace quenara {

/// A text in one line that ends with an ellipsis where the room does. A plain-text label to the
/// style sheet, known by its \a role.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(const QString &role, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString line() const;
};

} // namespace quenara
