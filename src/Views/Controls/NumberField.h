#pragma once

#include "TextField.h"

#include <limits>
#include <optional>

namespace quenara {

/// A number that can be typed, taken when the typing ends, or stepped by the arrow keys. Shows what
/// showNumber() says, again after what is no number, and tells of what the operator enters.
class NumberField : public TextField
{
    Q_OBJECT

public:
    /// What is entered below \a minimum becomes that.
    explicit NumberField(const QString &title,
                         double minimum = std::numeric_limits<double>::lowest(),
                         QWidget *parent = nullptr);

    /// Leaves what is being typed as it is. Empty for no number.
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
