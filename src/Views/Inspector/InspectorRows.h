#pragma once

#include <QWidget>

class QLabel;
class QVBoxLayout;

namespace quenara {

/// Rows of an inspector: titles on the left, controls on the right.
class InspectorRows : public QWidget
{
    Q_OBJECT

public:
    static constexpr int titleWidth = 92;
    static constexpr int rowGap = 2;

    explicit InspectorRows(QWidget *parent = nullptr);

    /// A control that takes all the room beside its title, which is its accessible name.
    void add(QWidget *control);
    /// A control of its own size beside its title, which is its accessible name.
    void addSmall(QWidget *control);
    /// Controls of their own size beside one title.
    void addSmall(const QString &title, const QWidgetList &controls);
    /// Two controls of their own size in one row, each titled with its accessible name.
    void addPair(QWidget *first, QWidget *second);
    void addUntitled(QWidget *row);

private:
    QLabel *addTitled(const QString &title, QWidget *control);

    QVBoxLayout *m_rows;
};

/// Widgets side by side, \a gap points apart.
[[nodiscard]] QWidget *sideBySide(const QWidgetList &widgets, int gap);

/// Enables or disables everything within \a controls. Where that takes the focus from one of them,
/// it goes to no other control.
void enableControls(QWidget &controls, bool enabled);

} // namespace quenara
