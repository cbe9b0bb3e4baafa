#pragma once

#include "ProjectModels.h"

#include <QCache>
#include <QElapsedTimer>
#include <QPixmap>

namespace quenara {

class PictureCache;

/// Small pictures of slides, each kept until its slide looks otherwise. Makes no more at a time
/// than a list can wait for while it scrolls.
class SlideThumbnails
{
public:
    static constexpr QSize size{64, 36}; ///< points

    explicit SlideThumbnails(PictureCache &pictures) : m_pictures(pictures) {}

    /// From here on pictures are made for a few milliseconds, the first one in any case.
    void startMaking();

    /// Null while the picture is not made and the time is up; \a slide is then owed.
    QPixmap thumbnail(const Slide &slide, double devicePixelRatio);

    /// Whether any picture was asked for and not given since startMaking().
    bool owesPictures() const { return m_owesPictures; }

    /// How many were made since the beginning.
    int madeCount() const { return m_madeCount; }

private:
    struct Entry
    {
        SlideDesign design;
        QPixmap pixmap;
    };

    QPixmap made(const Slide &slide, double devicePixelRatio) const;

    PictureCache &m_pictures;
    QCache<QString, Entry> m_entries{1000};
    QElapsedTimer m_making;
    bool m_owesPictures = false;
    int m_madeCount = 0;
    int m_countBefore = 0;
};

} // namespace quenara
