#pragma once

#include "ProjectModels.h"

#include <QCache>
#include <QElapsedTimer>
#include <QPixmap>
#include <QStringList>

namespace quenara {

struct RenderCaches;

/// Small images of slides, each held until its slide looks otherwise. Makes no more at a time than
/// a list can wait for while it scrolls.
class SlideThumbnails
{
public:
    static constexpr QSize size{64, 36}; ///< points

    explicit SlideThumbnails(RenderCaches &caches) : m_caches(caches) {}

    /// From now on thumbnails are made for a few milliseconds, the first one in any case.
    void startMaking();

    /// Lets go of all thumbnails, and of what their slides hold.
    void clear() { m_entries.clear(); }

    /// Null if the thumbnail is not made yet and the time is up; it is then owed.
    QPixmap thumbnail(const Slide &slide, double devicePixelRatio);

    /// What textNotice() tells of \a slide, once its thumbnail is made.
    QString notice(const Slide &slide) const;

    /// Whether any thumbnail was asked for and not given since startMaking().
    bool owesThumbnails() const { return m_owesThumbnails; }

    /// How many were ever made.
    int madeCount() const { return m_madeCount; }

private:
    /// All that a thumbnail is made from.
    struct Key
    {
        SlideDesign design;
        double devicePixelRatio;

        bool operator==(const Key &) const = default;
    };

    struct Entry
    {
        Key key;
        QPixmap pixmap;
        QString notice;
    };

    QPixmap made(const Key &key) const;

    RenderCaches &m_caches;
    QCache<QString, Entry> m_entries{1000}; ///< by the slide's id; one for each slide
    QElapsedTimer m_making;
    bool m_owesThumbnails = false;
    int m_madeCount = 0;
    int m_countBefore = 0;
};

} // namespace quenara
