#pragma once

#include "Record.h"

#include <QString>

namespace quenara {

/// A song as it was written down elsewhere.
struct SongText
{
    QString title;
    QString lyrics; ///< with section headings or without

    bool operator==(const SongText &) const = default;
    static constexpr auto fields()
    {
        return FieldList{field("title", &SongText::title), field("lyrics", &SongText::lyrics)};
    }
};
static_assert(listsEveryMember<SongText>);

} // namespace quenara
