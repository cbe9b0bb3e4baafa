#pragma once

#include "AppAppearance.h"

#include <QObject>

namespace quenara {

class SystemColorScheme;

/// The palette and the style sheet of the whole application: those of the chosen appearance, and
/// those of the desktop's scheme while that is the choice.
class ApplicationAppearance : public QObject
{
    Q_OBJECT

public:
    explicit ApplicationAppearance(const SystemColorScheme &systemScheme,
                                   QObject *parent = nullptr);

    void set(AppAppearance appearance);
    AppAppearance appearance() const { return m_appearance; }

private:
    void apply();

    const SystemColorScheme &m_systemScheme;
    AppAppearance m_appearance = AppAppearance::system;
};

} // namespace quenara
