#pragma once

#include "ProjectModels.h"

#include <QList>
#include <QString>

namespace quenara {

/// What is looked through to find a slide by its words: made once of a show and asked again with
/// each letter.
class SlideSearch
{
public:
    explicit SlideSearch(const QList<FlattenedSlide> &show);

    /// The slides with all of the \a words, in the order of the show: each begins a word of the
    /// section's title, of the slide's title or of its layers' texts, whatever its accents and
    /// case. Where a script writes no spaces, it may stand anywhere. All slides for no words.
    [[nodiscard]] QList<qsizetype> find(const QString &words) const;

    /// Of the slides that were \a found, the one that is most likely meant while the slide at
    /// \a from is live (-1: none is): one whose title has a word of \a words before others, and of
    /// its section before the others; of several the next one from there on, the first one again
    /// after the last. -1 if none was found.
    [[nodiscard]] qsizetype likeliest(const QList<qsizetype> &found, const QString &words,
                                      qsizetype from) const;

private:
    struct Entry
    {
        QString serviceItemID;
        QString title; ///< folded, like the rest
        QString text; ///< all that is looked through, the title in it
    };

    QList<Entry> m_entries; ///< of each slide of the show
};

} // namespace quenara
