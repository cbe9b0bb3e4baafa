#include "SymbolLabel.h"

#include "Symbols.h"
#include "ThemeColors.h"

#include <QPainter>

namespace quenara {

SymbolLabel::SymbolLabel(const QString &symbol, int size, QColor ZelvoTheme::*color,
                         QWidget *parent)
    : QWidget(parent), m_symbol(symbol), m_color(color)
{
    setFixedSize(size, size);
}

void SymbolLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    paintSymbol(painter, rect(), m_symbol, themeOf(*this).*m_color);
}

} // namespace quenara
