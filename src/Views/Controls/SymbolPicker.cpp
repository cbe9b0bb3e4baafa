#include "SymbolPicker.h"

#include "AccessibleControls.h"
#include "ExclusiveButtons.h"
#include "SymbolButton.h"

#include <QHBoxLayout>

namespace quenara {

namespace {

constexpr int gap = 4;

} // namespace

SymbolPicker::SymbolPicker(const QString &title, const QList<Choice> &choices, QWidget *parent)
    : QWidget(parent)
{
    setAccessibleRole(*this, QAccessible::Grouping);
    setAccessibleName(title);
    setProperty("look", QStringLiteral("symbols"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
    for (const Choice &choice : choices) {
        auto *button = new SymbolButton(choice.symbol, choice.title, SymbolButton::Look::icon);
        button->setCheckable(true);
        m_buttons.addButton(button, int(m_values.size()));
        m_values.append(choice.value);
        layout->addWidget(button);
    }
    layout->addStretch();
    connect(&m_buttons, &QButtonGroup::idClicked, this,
            [this](int id) { emit activated(m_values.at(id)); });
}

QString SymbolPicker::value() const
{
    return m_values.value(m_buttons.checkedId());
}

void SymbolPicker::setValue(const QString &value)
{
    checkOnly(m_buttons, int(m_values.indexOf(value)));
}

} // namespace quenara
