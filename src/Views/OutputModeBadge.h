#pragma once

#include "WorkspaceState.h"

#include <QWidget>

namespace quenara {

struct Badge;

/// The output mode in capitals, on the colour that the theme has for it.
class OutputModeBadge : public QWidget
{
    Q_OBJECT

public:
    explicit OutputModeBadge(QWidget *parent = nullptr);

    void setMode(OutputMode mode);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Badge badge() const;

    OutputMode m_mode = OutputMode::live;
};

} // namespace quenara
