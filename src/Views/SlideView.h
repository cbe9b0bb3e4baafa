#pragma once

#include "ProjectModels.h"

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

    /// What the picture covers of the widget, on whole points; empty if there is none to be had.
    QRect pictureRect() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    PictureCache &m_pictures;
    std::optional<Slide> m_slide;
    Qt::Alignment m_alignment = Qt::AlignCenter;
    double m_cornerRadius = 0;
};

} // namespace quenara
