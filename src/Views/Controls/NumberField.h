#pragma once

#include "TextField.h"

#include <limits>
#include <optional>

namespace quenara {

/// A number that can be typed, taken when the typing ends, or stepped by the arrow keys. Shows the
/// number that showNumber() is given, and returns to it if what is typed is no number.
class NumberField : public TextField
{
    Q_OBJECT

public:
    /// A number below \a minimum that is entered counts as \a minimum.
    explicit NumberField(const QString &title,
                         double minimum = std::numeric_limits<double>::lowest(),
                         QWidget *parent = nullptr);

    /// Shows nothing without a number. While a number is being typed, that stays shown.
    void showNumber(std::optional<double> number);

    /// Drops what has been typed.
    void endEditing();

signals:
    void edited(double number);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void enter(std::optional<double> number);
    void commit();
    void step(double by);

    double m_minimum;
    std::optional<double> m_number;
};

} // namespace quenara
