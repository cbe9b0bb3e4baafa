#pragma once

#include "ProjectModels.h"

#include <QWidget>

#include <optional>

namespace quenara {

class PictureCache;

/// A picture of a slide inside a window of the interface, outlined.
class SlideView : public QWidget
{
    Q_OBJECT

public:
    explicit SlideView(PictureCache &pictures, QWidget *parent = nullptr);

    void setSlide(const std::optional<Slide> &slide);
    const std::optional<Slide> &slide() const { return m_slide; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    PictureCache &m_pictures;
    std::optional<Slide> m_slide;
};

} // namespace quenara
