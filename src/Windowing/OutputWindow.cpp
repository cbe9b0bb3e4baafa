#include "OutputWindow.h"

#include "InterfaceStyle.h"

#include <QEvent>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace quenara {

OutputWindow::OutputWindow(QWidget *content, Qt::WindowFlags flags) : QWidget(nullptr, flags)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
}

void OutputWindow::setBackground(const QColor &color)
{
    m_background = color;
    applyPalette();
}

void OutputWindow::setAppearance(AppAppearance appearance)
{
    m_appearance = appearance;
    const std::optional<ColorScheme> scheme = colorScheme(appearance);
    setStyleSheet(scheme ? interfaceStyleSheet(ZelvoTheme::current(*scheme)) : QString());
    applyPalette();
}

/// Takes the keyboard: nobody else gives it to a window without a window manager.
void OutputWindow::mousePressEvent(QMouseEvent * /*event*/)
{
    activateWindow();
}

void OutputWindow::mouseDoubleClickEvent(QMouseEvent *event)
{
    mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        emit doubleClicked();
}

void OutputWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        emit windowStateChanged();
}

void OutputWindow::applyPalette()
{
    const std::optional<ColorScheme> scheme = colorScheme(m_appearance);
    QPalette palette = scheme ? interfacePalette(ZelvoTheme::current(*scheme)) : QPalette();
    if (m_background)
        palette.setColor(QPalette::Window, *m_background);
    setPalette(palette);
}

} // namespace quenara
