#pragma once

#include "WorkspaceState.h"

#include <QWidget>

namespace quenara {

/// Says that what is changed on the canvas changes the live slide. It stands in the margin over the
/// slide, so that nothing moves for it.
class LiveSlideMark : public QWidget
{
    Q_OBJECT

public:
    explicit LiveSlideMark(QWidget *canvas);

    /// Shows the mark in the colour of \a mode, in the middle over \a slide (points of the canvas).
    void showOver(const QRectF &slide, OutputMode mode);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    OutputMode m_mode = OutputMode::live;
};

} // namespace quenara
