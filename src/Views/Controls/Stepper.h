#pragma once

#include <QWidget>

#include <optional>

class QLabel;

namespace quenara {

class SymbolButton;

/// A number that is written after its title, with buttons that take it down and up. Shows what
/// setValue() says and tells of each step of the operator; a button that is held goes on stepping
/// until it is let go.
class Stepper : public QWidget
{
    Q_OBJECT

public:
    struct Range
    {
        double minimum;
        double maximum;
        double step;
    };

    Stepper(const QString &title, const Range &range, QWidget *parent = nullptr);

    void setTitleWidth(int width);
    QString shownText() const;

    /// Shown truncated to a whole number.
    void setValue(double value);

signals:
    void edited(double value);
    void editingFinished();

private:
    SymbolButton *makeButton(const QString &symbol, const QString &title, double step);
    void takeStep(double step);

    QString m_title;
    Range m_range;
    double m_value = 0;
    QLabel *m_text;
};

} // namespace quenara
