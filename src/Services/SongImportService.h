#pragma once

#include "ProjectModels.h"

#include <QList>
#include <QString>

namespace quenara {

/// A part of a song as it was pasted: a verse, a chorus.
struct SongSection
{
    QString id;
    QString title; ///< its heading, else "Section" and its 1-based number
    QString body; ///< its lines, joined by line feeds

    /// True if "chorus", "tag" or "bridge" stands anywhere in the title, even within a word.
    [[nodiscard]] bool isChorusLike() const;

    bool operator==(const SongSection &) const = default;
    static constexpr auto fields()
    {
        return FieldList{field("id", &SongSection::id), field("title", &SongSection::title),
                         field("body", &SongSection::body)};
    }
};
static_assert(listsEveryMember<SongSection>);

/// Makes song items out of pasted lyrics. Stateless.
struct SongImportService
{
    /// Blank lines and headings divide the text. A heading is a line in brackets, whatever they
    /// hold, or one of at most 32 characters without a full stop before the colon that ends it; one
    /// with nothing below it is a section without a body. Lines end with a line feed or with
    /// carriage return and line feed. A byte-order mark at the beginning is ignored.
    [[nodiscard]] static QList<SongSection> parseSections(const QString &text);

    /// Whether a heading stands anywhere in \a text, which is how written songs differ from other
    /// texts.
    [[nodiscard]] static bool hasHeadings(const QString &text);

    /// A song with a slide for each section. Those that are like a chorus stand in the lower third
    /// of the screen, the others in its middle. "Imported Song" if the title is empty.
    [[nodiscard]] static ServiceItem serviceItem(const QString &title, const QString &lyrics,
                                                 std::int64_t orderIndex);
};

} // namespace quenara
