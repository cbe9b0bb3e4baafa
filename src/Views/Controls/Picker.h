#pragma once

#include <QComboBox>

namespace quenara {

/// One of several choices, in a list that opens. Takes keys only to open the list and in it, and
/// never turns under the mouse wheel, which scrolls what it lies in.
class Picker : public QComboBox
{
    Q_OBJECT

public:
    explicit Picker(const QString &title, QWidget *parent = nullptr);

    void hidePopup() override;

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
};

} // namespace quenara
