#pragma once

#include "AppAppearance.h"

#include <QObject>

class QSettings;

namespace quenara {

/// The stored choice of appearance. Announces its changes.
class AppearancePreference : public QObject
{
    Q_OBJECT

public:
    explicit AppearancePreference(QSettings &preferences, QObject *parent = nullptr);

    /// The stored text, whatever it says; "system" if none is stored.
    QString rawValue() const;
    void setRawValue(const QString &rawValue);

    AppAppearance appearance() const { return appearanceFromPreference(rawValue()); }

signals:
    void rawValueChanged(const QString &oldValue, const QString &newValue);

private:
    QSettings &m_preferences;
};

} // namespace quenara
