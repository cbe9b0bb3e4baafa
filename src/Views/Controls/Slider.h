#pragma once

#include <QWidget>

#include <optional>

namespace quenara {

/// A real number between two others, set by pulling a knob, or by Ctrl and the arrow keys in
/// fiftieths of the range. Shows what setValue() says and tells of each place that the operator
/// takes the knob to. Plain keys are left to the show, and the mouse wheel scrolls what it lies in.
class Slider : public QWidget
{
    Q_OBJECT

public:
    Slider(const QString &title, double minimum, double maximum, QWidget *parent = nullptr);

    double minimum() const { return m_minimum; }
    double maximum() const { return m_maximum; }
    double value() const { return m_value; }
    /// The knob of a value outside the range stands at its end.
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
    bool m_isStepped = false; ///< by a key that is down
};

} // namespace quenara
