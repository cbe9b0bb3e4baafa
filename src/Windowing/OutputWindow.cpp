#include "OutputWindow.h"

#include "InterfaceStyle.h"

#include <QVBoxLayout>

namespace quenara {

OutputWindow::OutputWindow(QWidget *content, Qt::WindowFlags flags) : QWidget(nullptr, flags)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
}

void OutputWindow::setAppearance(AppAppearance appearance)
{
    m_appearance = appearance;
    const std::optional<ColorScheme> scheme = colorScheme(appearance);
    if (scheme) {
        const ZelvoTheme &theme = ZelvoTheme::current(*scheme);
        setPalette(interfacePalette(theme));
        setStyleSheet(interfaceStyleSheet(theme));
    } else {
        setPalette(QPalette());
        setStyleSheet({});
    }
}

} // namespace quenara
