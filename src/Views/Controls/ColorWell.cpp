#include "ColorWell.h"

#include "DialogParts.h"
#include "ThemeColors.h"

#include <QColorDialog>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

namespace quenara {

namespace {

constexpr QSize wellSize{44, 22};
constexpr double wellCornerRadius = 5;
constexpr int checkSize = 6;

/// Paints the pattern that shows through a translucent colour.
void paintChecks(QPainter &painter, const QRect &area, const ZelvoTheme &theme)
{
    painter.fillRect(area, theme.primaryText);
    for (int y = 0; y < area.height(); y += checkSize) {
        for (int x = y % (2 * checkSize); x < area.width(); x += 2 * checkSize)
            painter.fillRect(x, y, checkSize, checkSize, theme.mutedText);
    }
}

} // namespace

ColorWell::ColorWell(const QString &title, QWidget *parent) : QAbstractButton(parent)
{
    setAccessibleName(title);
    setToolTip(title);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, &ColorWell::openDialog);
}

void ColorWell::setColor(const std::optional<RGBAColor> &color)
{
    if (color == m_color)
        return;
    m_color = color;
    setAccessibleDescription(m_color ? m_color->toColor().name() : QString());
    update();
}

QSize ColorWell::sizeHint() const
{
    return wellSize;
}

void ColorWell::openDialog()
{
    if (!m_color || m_dialog)
        return;
    m_dialog = new QColorDialog(this);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    m_dialog->setWindowTitle(accessibleName());
    m_dialog->setOption(QColorDialog::ShowAlphaChannel); // before the colour, or it becomes opaque
    m_dialog->setCurrentColor(m_color->toColor());
    nameParts(*m_dialog);
    const QSize frame = window()->frameSize() - window()->size(); // which the dialog will have, too
    fitInto(screen()->availableSize() - frame, *m_dialog);
    connect(m_dialog, &QColorDialog::currentColorChanged, this,
            [this](const QColor &color) { emit edited(RGBAColor::fromColor(color)); });
    connect(m_dialog, &QDialog::finished, this, [this] { m_dialog.clear(); });
    connect(m_dialog, &QDialog::accepted, this, &ColorWell::editingFinished);
    connect(m_dialog, &QDialog::rejected, this, &ColorWell::editingCancelled);
    m_dialog->open();
}

void ColorWell::endEditing()
{
    if (m_dialog) {
        m_dialog->disconnect(this);
        m_dialog->close();
        m_dialog.clear();
    }
}

void ColorWell::paintEvent(QPaintEvent * /*event*/)
{
    const ZelvoTheme &theme = themeOf(*this);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath outline;
    outline.addRoundedRect(frame, wellCornerRadius, wellCornerRadius);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_color) {
        painter.save();
        painter.setClipPath(outline);
        if (m_color->alpha < 1)
            paintChecks(painter, rect(), theme);
        painter.fillPath(outline, m_color->toColor());
        painter.restore();
    }
    painter.setPen(underMouse() ? theme.accent : theme.border);
    painter.drawPath(outline);
}

} // namespace quenara
