#pragma once

#include "ProjectModels.h"
#include "RoundedFrame.h"
#include "ZelvoTheme.h"

#include <QWidget>

#include <optional>

namespace quenara {

struct RenderCaches;

/// Shows a slide inside a window of the interface, as large as there is room, outlined.
class SlideView : public QWidget
{
    Q_OBJECT

public:
    explicit SlideView(RenderCaches &caches, QWidget *parent = nullptr);

    void setSlide(const std::optional<Slide> &slide);
    const std::optional<Slide> &slide() const { return m_slide; }

    /// Where the slide lies in the room that its shape leaves; in the middle unless set.
    void setAlignment(Qt::Alignment alignment);

    /// The radius of the slide's continuous corners, in points; 0 unless set.
    void setCornerRadius(double radius);

    /// The width of the line around the slide, in points; 1 unless set.
    void setLineWidth(double width);

    /// The theme's colour of the line around the slide, at an opacity of 0 to 1; its colour of
    /// borders, opaque, unless set.
    void setOutline(QColor ZelvoTheme::*color, double opacity);

    /// What the slide covers of the widget, on whole points; empty if its canvas has no size.
    [[nodiscard]] QRect slideRect() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    RenderCaches &m_caches;
    std::optional<Slide> m_slide;
    Qt::Alignment m_alignment = Qt::AlignCenter;
    double m_cornerRadius = 0;
    double m_lineWidth = 1;
    QColor ZelvoTheme::*m_outlineColor = &ZelvoTheme::border;
    double m_outlineOpacity = 1;
    RoundedFrame m_frame;
};

} // namespace quenara
