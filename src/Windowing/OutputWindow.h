#pragma once

#include "AppAppearance.h"

#include <QWidget>

namespace quenara {

/// A window around one output view, with an appearance of its own.
class OutputWindow : public QWidget
{
    Q_OBJECT

public:
    /// Takes \a content over and fills itself with it.
    OutputWindow(QWidget *content, Qt::WindowFlags flags);

    /// Light and dark are kept whatever the application has; system inherits it.
    void setAppearance(AppAppearance appearance);
    AppAppearance appearance() const { return m_appearance; }

private:
    AppAppearance m_appearance = AppAppearance::system;
};

} // namespace quenara
