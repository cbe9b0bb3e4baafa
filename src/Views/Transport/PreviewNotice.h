#pragma once

#include "WorkspaceState.h"

#include <QWidget>

namespace quenara {

/// Lies over the preview of the live slide while the audience sees something else, and says what.
/// Whoever makes it gives it its size.
class PreviewNotice : public QWidget
{
    Q_OBJECT

public:
    /// Why the audience does not see the live slide.
    enum class Reason { none, blackout, logo, noDisplay, waitingDisplay };

    explicit PreviewNotice(QWidget *preview);

    /// Hidden for none.
    void setReason(Reason reason);

    /// Empty for none.
    [[nodiscard]] QString text() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void paintMode(QPainter &painter, OutputMode mode) const;
    void paintStrip(QPainter &painter) const;

    Reason m_reason = Reason::none;
};

} // namespace quenara
