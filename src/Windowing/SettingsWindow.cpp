#include "SettingsWindow.h"

#include "AppearancePreference.h"
#include "BringToFront.h"
#include "PreferencesView.h"
#include "ZelvoCommands.h"

#include <QVBoxLayout>

namespace quenara {

SettingsWindow::SettingsWindow(AppearancePreference &appearance, const ZelvoCommands &menus,
                               QWidget *operatorWindow)
    : QDialog(operatorWindow)
{
    setObjectName(QStringLiteral("settingsWindow"));
    setWindowTitle(QStringLiteral("Quenara Settings"));
    auto *content = new PreferencesView;
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(content);
    content->setFocus(); // Space would press a choice that has the keyboard.
    menus.addTo(*this);

    content->setAppAppearance(appearance.rawValue());
    connect(&appearance, &AppearancePreference::rawValueChanged, content,
            [content](const QString & /*oldValue*/, const QString &newValue) {
                content->setAppAppearance(newValue);
            });
    connect(content, &PreferencesView::appAppearanceChosen, &appearance,
            &AppearancePreference::setRawValue);
}

void SettingsWindow::present()
{
    show();
    bringToFront(*this);
}

} // namespace quenara
