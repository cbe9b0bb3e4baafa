#pragma once

#include "ProjectModels.h"
#include "RoundedFrame.h"
#include "ZelvoTheme.h"

#include <QWidget>

#include <optional>

namespace quenara {

class PictureCache;

/// A picture of a slide inside a window of the interface, as large as there is room, outlined.
class SlideView : public QWidget
{
    Q_OBJECT

public:
    explicit SlideView(PictureCache &pictures, QWidget *parent = nullptr);

    void setSlide(const std::optional<Slide> &slide);
    const std::optional<Slide> &slide() const { return m_slide; }

    /// Where the picture lies in the room that its shape leaves; in the middle unless set.
    void setAlignment(Qt::Alignment alignment);

    /// Of continuous corners, in points; square unless set.
    void setCornerRadius(double radius);

    /// The theme's colour of the line around it, at an opacity of 0 to 1; its borders' unless set.
    void setOutline(QColor ZelvoTheme::*color, double opacity);

    /// What the picture covers of the widget, on whole points; empty if there is none to be had.
    QRect pictureRect() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    PictureCache &m_pictures;
    std::optional<Slide> m_slide;
    Qt::Alignment m_alignment = Qt::AlignCenter;
    double m_cornerRadius = 0;
    QColor ZelvoTheme::*m_outlineColor = &ZelvoTheme::border;
    double m_outlineOpacity = 1;
    RoundedFrame m_frame;
};

} // namespace quenara
