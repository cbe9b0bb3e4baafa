#pragma once

#include "ZelvoTheme.h"

#include <QWidget>

namespace quenara {

/// A symbol as an ornament, in a colour of the theme.
class SymbolLabel : public QWidget
{
    Q_OBJECT

public:
    /// \a symbol is a name in `resources/icons.list`; \a size is the length of a side, points.
    SymbolLabel(const QString &symbol, int size, QColor ZelvoTheme::*color,
                QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbol;
    QColor ZelvoTheme::*m_color;
};

} // namespace quenara
