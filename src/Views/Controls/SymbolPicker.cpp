#include "SymbolPicker.h"

#include "SymbolButton.h"

#include <QHBoxLayout>

namespace quenara {

namespace {

constexpr int gap = 4;

} // namespace

SymbolPicker::SymbolPicker(const QString &title, const QList<Choice> &choices, QWidget *parent)
    : QWidget(parent)
{
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
    // An exclusive group does not let go of its last choice.
    m_buttons.setExclusive(false);
    for (QAbstractButton *button : m_buttons.buttons())
        button->setChecked(m_values.at(m_buttons.id(button)) == value);
    m_buttons.setExclusive(true);
}

} // namespace quenara
