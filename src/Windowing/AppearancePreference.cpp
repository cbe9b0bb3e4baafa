#include "AppearancePreference.h"

#include <QSettings>

namespace quenara {

AppearancePreference::AppearancePreference(QSettings &preferences, QObject *parent)
    : QObject(parent), m_preferences(preferences)
{}

QString AppearancePreference::rawValue() const
{
    return m_preferences
        .value(QLatin1String(appAppearanceKey), quenara::rawValue(AppAppearance::system))
        .toString();
}

void AppearancePreference::setRawValue(const QString &rawValue)
{
    const QString oldValue = this->rawValue();
    if (rawValue == oldValue)
        return;
    m_preferences.setValue(QLatin1String(appAppearanceKey), rawValue);
    emit rawValueChanged(oldValue, rawValue);
}

} // namespace quenara
