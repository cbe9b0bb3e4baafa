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

    /// The control is given all of the room. The title is its accessible name.
    void add(QWidget *control);
    /// The control has its own size. The title is its accessible name.
    void addSmall(QWidget *control);
    /// Controls of their own size, side by side.
    void addSmall(const QString &title, const QWidgetList &controls);
    /// Two controls of their own size, side by side, each with its accessible name as a title.
    void addPair(QWidget *first, QWidget *second);
    void addUntitled(QWidget *row);

private:
    QLabel *addTitled(const QString &title, QWidget *control);

    QVBoxLayout *m_rows;
};

/// Widgets side by side, \a gap points apart.
QWidget *besideEachOther(const QWidgetList &widgets, int gap);

/// Controls that are of no use are disabled, and keep no focus.
void enableControls(QWidget &controls, bool areOfUse);

} // namespace quenara
