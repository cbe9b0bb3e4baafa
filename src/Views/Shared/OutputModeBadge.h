#pragma once

#include "Badge.h"
#include "WorkspaceState.h"
#include "ZelvoTheme.h"

#include <QWidget>

namespace quenara {

/// The colour that \a theme has for \a mode.
[[nodiscard]] QColor colorOf(OutputMode mode, const ZelvoTheme &theme);

/// The measures of a badge, in points.
struct BadgeLook
{
    double pixelSize;
    double horizontalPadding;
    double verticalPadding;
    double cornerRadius = 5;
};

/// Shows the output mode in capitals on the theme's colour for it.
class OutputModeBadge : public QWidget
{
    Q_OBJECT

public:
    explicit OutputModeBadge(const BadgeLook &look, QWidget *parent = nullptr);

    void setLook(const BadgeLook &look);
    void setMode(OutputMode mode);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Badge badge() const;

    BadgeLook m_look;
    OutputMode m_mode = OutputMode::live;
};

} // namespace quenara
