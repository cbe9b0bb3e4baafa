#pragma once

#include "ZelvoTheme.h"

#include <QWidget>

class QLabel;

namespace quenara {

class ElidedLabel;
class PictureCache;
class SlideView;
struct Slide;

/// A small picture of a slide under its role in the show and its title.
class TransportPreview : public QWidget
{
    Q_OBJECT

public:
    /// \a accent is the theme's colour for that role.
    TransportPreview(const QString &title, QColor ZelvoTheme::*accent, PictureCache &pictures,
                     QWidget *parent = nullptr);

    void setSlide(const std::optional<Slide> &slide);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_title;
    QColor ZelvoTheme::*m_accent;
    ElidedLabel *m_slideTitle;
    SlideView *m_picture;
};

} // namespace quenara
