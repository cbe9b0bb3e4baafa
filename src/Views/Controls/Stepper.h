#pragma once

#include <QWidget>

#include <optional>

class QLabel;

namespace quenara {

class SymbolButton;

/// A number, written after its title, with buttons that take it down and up. Shows the value that
/// setValue() gives. A button that is held down goes on stepping until it is released.
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

    /// The number that is shown is truncated to a whole one.
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
