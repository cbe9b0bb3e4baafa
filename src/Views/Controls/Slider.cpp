#include "Slider.h"

#include "AccessibleControls.h"
#include "ThemeColors.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quenara {

namespace {

constexpr double knobSize = 14;
constexpr double grooveHeight = 4;
constexpr QSize smallestSize{60, 18};
constexpr QSize usualSize{160, 18};
constexpr int keyStepsOfRange = 50;

/// 1 up, -1 down, 0 for keys that do not move the knob.
int directionOf(int key)
{
    switch (key) {
    case Qt::Key_Right:
    case Qt::Key_Up:
        return 1;
    case Qt::Key_Left:
    case Qt::Key_Down:
        return -1;
    default:
        return 0;
    }
}

/// A slider as assistive technologies know it.
class SliderInterface : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit SliderInterface(Slider &slider)
        : QAccessibleWidget(&slider, QAccessible::Slider), m_slider(slider)
    {}

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return m_slider.value(); }
    QVariant minimumValue() const override { return m_slider.minimum(); }
    QVariant maximumValue() const override { return m_slider.maximum(); }
    QVariant minimumStepSize() const override { return 0.0; }

    void setCurrentValue(const QVariant &value) override
    {
        if (!isReachedByClick(m_slider))
            return;
        emit m_slider.edited(std::clamp(value.toDouble(), m_slider.minimum(), m_slider.maximum()));
        emit m_slider.editingFinished();
    }

private:
    Slider &m_slider;
};

QAccessibleInterface *accessibleSlider(const QString & /*className*/, QObject *object)
{
    auto *slider = qobject_cast<Slider *>(object);
    return slider ? new SliderInterface(*slider) : nullptr;
}

} // namespace

Slider::Slider(const QString &title, double minimum, double maximum, QWidget *parent)
    : QWidget(parent), m_minimum(minimum), m_maximum(maximum), m_value(minimum)
{
    QAccessible::installFactory(accessibleSlider); // Qt keeps it once, however often it is called
    setAccessibleName(title);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Slider::setValue(double value)
{
    if (value == m_value)
        return;
    m_value = value;
    QAccessibleValueChangeEvent change(this, value);
    QAccessible::updateAccessibility(&change);
    update();
}

QSize Slider::sizeHint() const
{
    return usualSize;
}

QSize Slider::minimumSizeHint() const
{
    return smallestSize;
}

QRectF Slider::knob() const
{
    const double part =
        (std::clamp(m_value, m_minimum, m_maximum) - m_minimum) / (m_maximum - m_minimum);
    return {part * (width() - knobSize), (height() - knobSize) / 2, knobSize, knobSize};
}

void Slider::pullTo(double x)
{
    const double part = (x - knobSize / 2) / (width() - knobSize);
    edit(m_minimum + part * (m_maximum - m_minimum));
}

void Slider::edit(double wanted)
{
    const double value = std::clamp(wanted, m_minimum, m_maximum);
    if (value != m_value)
        emit edited(value);
}

void Slider::endSteps()
{
    if (std::exchange(m_isStepped, false))
        emit editingFinished();
}

void Slider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    const double x = event->position().x();
    const double fromMiddle = x - knob().center().x();
    const bool isOnKnob = std::abs(fromMiddle) <= knobSize / 2;
    m_grip = isOnKnob ? fromMiddle : 0;
    if (!isOnKnob)
        pullTo(x);
}

void Slider::mouseMoveEvent(QMouseEvent *event)
{
    if (m_grip)
        pullTo(event->position().x() - *m_grip);
}

void Slider::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    m_grip.reset();
    emit editingFinished();
}

void Slider::keyPressEvent(QKeyEvent *event)
{
    const int direction = directionOf(event->key());
    if (direction == 0 || (event->modifiers() & ~Qt::KeypadModifier) != Qt::ControlModifier)
        return event->ignore();
    m_isStepped = true;
    edit(m_value + direction * (m_maximum - m_minimum) / keyStepsOfRange);
}

/// The Control key may have been released before the arrow key.
void Slider::keyReleaseEvent(QKeyEvent *event)
{
    if (directionOf(event->key()) == 0)
        return event->ignore();
    if (!event->isAutoRepeat())
        endSteps();
}

void Slider::focusOutEvent(QFocusEvent *event)
{
    endSteps();
    QWidget::focusOutEvent(event);
}

void Slider::paintEvent(QPaintEvent * /*event*/)
{
    const ZelvoTheme &theme = themeOf(*this);
    const QRectF handle = knob();
    QRectF groove(0, (height() - grooveHeight) / 2, width(), grooveHeight);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.border);
    painter.drawRoundedRect(groove, grooveHeight / 2, grooveHeight / 2);
    groove.setRight(handle.center().x());
    painter.setBrush(!isEnabled() ? theme.border : underMouse() ? theme.accentHover : theme.accent);
    painter.drawRoundedRect(groove, grooveHeight / 2, grooveHeight / 2);
    painter.setBrush(isEnabled() ? theme.primaryText : theme.mutedText);
    painter.drawEllipse(handle);
}

} // namespace quenara
