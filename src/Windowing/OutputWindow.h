#pragma once

#include "AppAppearance.h"

#include <QColor>
#include <QWidget>

#include <optional>

namespace quenara {

/// A window around one output view, with an appearance of its own.
class OutputWindow : public QWidget
{
    Q_OBJECT

public:
    /// Takes \a content over and fills itself with it.
    OutputWindow(QWidget *content, Qt::WindowFlags flags);

    /// The colour before and around the content, whatever the appearance. The theme's unless set.
    void setBackground(const QColor &color);

    /// Light and dark hold whatever the application's appearance is; system follows it.
    void setAppearance(AppAppearance appearance);
    AppAppearance appearance() const { return m_appearance; }

signals:
    /// By the pointer's main button, anywhere on the content.
    void doubleClicked();
    /// Also when the desktop has changed the state.
    void windowStateChanged();

protected:
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void applyPalette();

    std::optional<QColor> m_background;
    AppAppearance m_appearance = AppAppearance::system;
};

} // namespace quenara
