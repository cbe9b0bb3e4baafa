#include "NumberField.h"

#include <QKeyEvent>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace quenara {

namespace {

/// Reads a number written as the system's locale has it or, failing that, as programs write it.
std::optional<double> numberIn(const QString &text)
{
    for (QLocale locale : {QLocale(), QLocale::c()}) {
        locale.setNumberOptions(QLocale::RejectGroupSeparator);
        bool isNumber = false;
        const double number = locale.toDouble(text.trimmed(), &isNumber);
        if (isNumber && std::isfinite(number))
            return number;
    }
    return std::nullopt;
}

/// \a number as a text, rounded to hundredths.
QString textOf(double number)
{
    constexpr double lastWithHundredths = 1e13;
    if (std::abs(number) < lastWithHundredths)
        number = std::round(number * 100) / 100;
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(number, 'f', QLocale::FloatingPointShortest);
}

} // namespace

NumberField::NumberField(const QString &title, double minimum, QWidget *parent)
    : TextField(title, parent), m_minimum(minimum)
{
    connect(this, &QLineEdit::editingFinished, this, &NumberField::commit);
}

void NumberField::showNumber(std::optional<double> number)
{
    m_number = number;
    if (!isModified())
        showText(number ? textOf(*number) : QString());
}

void NumberField::endEditing()
{
    setModified(false);
    showNumber(m_number);
}

void NumberField::enter(std::optional<double> number)
{
    setModified(false);
    if (number)
        emit edited(std::max(m_minimum, *number));
    showNumber(m_number);
}

void NumberField::commit()
{
    if (isModified())
        enter(numberIn(text()));
}

void NumberField::step(double by)
{
    const std::optional<double> typed = isModified() ? numberIn(text()) : std::nullopt;
    const std::optional<double> from = typed ? typed : m_number;
    enter(from ? std::optional(*from + by) : std::nullopt);
}

void NumberField::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        step(+1);
        break;
    case Qt::Key_Down:
        step(-1);
        break;
    case Qt::Key_Escape:
        endEditing();
        [[fallthrough]];
    default:
        TextField::keyPressEvent(event);
    }
}

} // namespace quenara
