#pragma once

#include <QWidget>

#include <optional>

namespace quenara {

/// A real number between two others, set by pulling a knob, or by Ctrl and the arrow keys in
/// fiftieths of the range. Shows the value that setValue() gives. It leaves plain keys to the show,
/// and the mouse wheel to the area around it that scrolls.
class Slider : public QWidget
{
    Q_OBJECT

public:
    Slider(const QString &title, double minimum, double maximum, QWidget *parent = nullptr);

    double minimum() const { return m_minimum; }
    double maximum() const { return m_maximum; }
    double value() const { return m_value; }
    /// For a \a value outside the range the knob stands at that end of it.
    void setValue(double value);

    /// Lets go of the knob.
    void endEditing() { m_grip.reset(); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void edited(double value);
    void editingFinished();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRectF knob() const;
    void pullTo(double x);
    void edit(double wanted);
    void endSteps();

    double m_minimum;
    double m_maximum;
    double m_value;
    std::optional<double> m_grip; ///< from the knob's middle to the pointer that pulls it
    bool m_isStepped = false; ///< by a key that is still down
};

} // namespace quenara
