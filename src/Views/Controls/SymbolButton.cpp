#include "SymbolButton.h"

#include "Symbols.h"
#include "ThemeColors.h"

#include <QStyleOptionToolButton>
#include <QStylePainter>

#include <array>

namespace quenara {

namespace {

/// Points.
struct Measures
{
    const char *name; ///< in the style sheet
    int iconSize;
    int gap; ///< between symbol and title
    int margin; ///< left and right of both
    QSize minimum;
    int slack; ///< how much narrower it may be where room is scarce
};

constexpr auto measures = std::to_array<Measures>({
    {"icon", 16, 0, 6, {28, 28}, 0},
    {"framed", 15, 0, 6, {28, 28}, 0},
    {"labelled", 15, 8, 12, {0, 28}, 12},
    {"tile", 18, 5, 10, {68, 58}, 8},
    {"prominent", 20, 12, 24, {138, 58}, 12},
});

const Measures &measuresOf(SymbolButton::Look look)
{
    return measures.at(std::size_t(look));
}

} // namespace

SymbolButton::SymbolButton(const QString &symbol, const QString &title, Look look, QWidget *parent)
    : QToolButton(parent), m_look(look)
{
    setProperty("look", QLatin1String(measuresOf(look).name));
    setFocusPolicy(Qt::TabFocus);
    setIconSize({measuresOf(look).iconSize, measuresOf(look).iconSize});
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setSymbol(symbol, title);
}

void SymbolButton::setSymbol(const QString &symbol, const QString &title)
{
    if (symbol == m_symbol && title == text())
        return;
    m_symbol = symbol;
    setText(title);
    setAccessibleName(title);
    setToolTip(title);
    update();
}

int SymbolButton::gap() const
{
    return m_symbol.isEmpty() ? 0 : measuresOf(m_look).gap;
}

QSize SymbolButton::contentSize() const
{
    const QSize icon = m_symbol.isEmpty() ? QSize(0, 0) : iconSize();
    if (!showsTitle())
        return icon;
    const QSize title(fontMetrics().horizontalAdvance(text()), fontMetrics().height());
    return m_look == Look::tile
        ? QSize(std::max(icon.width(), title.width()), icon.height() + gap() + title.height())
        : QSize(icon.width() + gap() + title.width(), std::max(icon.height(), title.height()));
}

QSize SymbolButton::sizeHint() const
{
    ensurePolished();
    const Measures &own = measuresOf(m_look);
    return QSize(contentSize().width() + 2 * own.margin, 0).expandedTo(own.minimum);
}

QSize SymbolButton::minimumSizeHint() const
{
    return sizeHint() - QSize(measuresOf(m_look).slack, 0);
}

QColor SymbolButton::contentColor() const
{
    const ZelvoTheme &theme = themeOf(*this);
    if (!isEnabled())
        return theme.mutedText;
    if (m_look == Look::prominent)
        return readableOn(theme.live);
    return m_look == Look::icon ? theme.secondaryText : theme.primaryText;
}

void SymbolButton::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawComplexControl(QStyle::CC_ToolButton, option);

    const QRect content =
        QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, contentSize(), rect());
    if (!m_symbol.isEmpty()) {
        const QRect box =
            QStyle::alignedRect(Qt::LeftToRight,
                                m_look == Look::tile ? Qt::AlignHCenter | Qt::AlignTop
                                                     : Qt::AlignLeft | Qt::AlignVCenter,
                                iconSize(), content);
        paintSymbol(painter, box, m_symbol, contentColor());
    }
    if (showsTitle()) {
        painter.setPen(contentColor());
        painter.drawText(content,
                         int(m_look == Look::tile ? Qt::AlignHCenter | Qt::AlignBottom
                                                  : Qt::AlignRight | Qt::AlignVCenter)
                             | Qt::TextSingleLine,
                         text());
    }
}

} // namespace quenara
