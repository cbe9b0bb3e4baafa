#pragma once

#include "AppAppearance.h"

#include <QObject>

class QSettings;

namespace quenara {

/// The stored choice of appearance, watched.
class AppearancePreference : public QObject
{
    Q_OBJECT

public:
    explicit AppearancePreference(QSettings &preferences, QObject *parent = nullptr);

    /// As stored, whatever it says; "system" when nothing is.
    QString rawValue() const;
    void setRawValue(const QString &rawValue);

    AppAppearance appearance() const { return appearanceFromPreference(rawValue()); }

signals:
    void rawValueChanged(const QString &oldValue, const QString &newValue);

private:
    QSettings &m_preferences;
};

} // namespace quenara
