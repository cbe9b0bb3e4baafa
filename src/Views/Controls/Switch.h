#pragma once

#include <QAbstractButton>

namespace quenara {

/// A setting that is on or off and changes at once.
class Switch : public QAbstractButton
{
    Q_OBJECT

public:
    explicit Switch(const QString &title, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace quenara
