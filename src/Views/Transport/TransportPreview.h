#pragma once

#include "PreviewNotice.h"
#include "ZelvoTheme.h"

#include <QWidget>

class QLabel;

namespace quenara {

class ElidedLabel;
struct RenderCaches;
class SlideView;
struct Slide;

/// A small view of a slide under its role in the show and its title.
class TransportPreview : public QWidget
{
    Q_OBJECT

public:
    /// \a accent is the theme's colour for that role.
    TransportPreview(const QString &title, QColor ZelvoTheme::*accent, RenderCaches &caches,
                     QWidget *parent = nullptr);

    void setSlide(const std::optional<Slide> &slide);
    /// Says over the slide why the audience does not see it.
    void setNotice(PreviewNotice::Reason reason);

    /// Makes the preview as wide as \a room, in points, but no wider than it is meant to be and no
    /// narrower than its notices need to be read.
    void fitInto(int room);

    static constexpr int fullWidth = 190; ///< points
    static constexpr int leastWidth = 108;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void describe();

    QString m_title;
    QColor ZelvoTheme::*m_accent;
    ElidedLabel *m_slideTitle;
    SlideView *m_slideView;
    PreviewNotice *m_notice;
};

} // namespace quenara
