#include "ApplicationAppearance.h"

#include "InterfaceStyle.h"
#include "SystemColorScheme.h"

namespace quenara {

ApplicationAppearance::ApplicationAppearance(const SystemColorScheme &systemScheme, QObject *parent)
    : QObject(parent), m_systemScheme(systemScheme)
{
    connect(&systemScheme, &SystemColorScheme::schemeChanged, this, &ApplicationAppearance::apply);
}

void ApplicationAppearance::set(AppAppearance appearance)
{
    m_appearance = appearance;
    apply();
}

void ApplicationAppearance::apply()
{
    applyTheme(ZelvoTheme::current(colorScheme(m_appearance).value_or(m_systemScheme.scheme())));
}

} // namespace quenara
