#include "Stepper.h"

#include "AccessibleControls.h"
#include "RoleLabel.h"
#include "SymbolButton.h"

#include <QHBoxLayout>

#include <algorithm>
#include <cmath>

namespace quenara {

namespace {

constexpr int buttonGap = 4;

} // namespace

Stepper::Stepper(const QString &title, const Range &range, QWidget *parent)
    : QWidget(parent), m_title(title), m_range(range),
      m_text(makeRoleLabel(QStringLiteral("fieldLabel")))
{
    setAccessibleRole(*this, QAccessible::Grouping);
    setAccessibleName(title);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(buttonGap);
    layout->addWidget(m_text);
    layout->addWidget(
        makeButton(QStringLiteral("minus"), QStringLiteral("Decrease %1").arg(title), -range.step));
    layout->addWidget(
        makeButton(QStringLiteral("plus"), QStringLiteral("Increase %1").arg(title), +range.step));
    layout->addStretch();
    setValue(0);
}

void Stepper::setTitleWidth(int width)
{
    m_text->setFixedWidth(width - buttonGap);
}

QString Stepper::shownText() const
{
    return m_text->text();
}

void Stepper::setValue(double value)
{
    m_value = value;
    m_text->setText(
        QStringLiteral("%1 %2").arg(m_title, QString::number(std::trunc(value) + 0.0, 'f', 0)));
}

SymbolButton *Stepper::makeButton(const QString &symbol, const QString &title, double step)
{
    auto *button = new SymbolButton(symbol, title, SymbolButton::Look::framed);
    button->setAutoRepeat(true);
    connect(button, &SymbolButton::pressed, this, [this, step] { takeStep(step); });
    connect(button, &SymbolButton::released, this, [this, button] {
        // A button that repeats emits released() between its steps, too.
        if (!button->isDown())
            emit editingFinished();
    });
    return button;
}

void Stepper::takeStep(double step)
{
    const double next = std::clamp(m_value + step, m_range.minimum, m_range.maximum);
    // A value above the range is not changed by a step up, nor one below it by a step down.
    if ((next - m_value) * step > 0)
        emit edited(next);
}

} // namespace quenara
