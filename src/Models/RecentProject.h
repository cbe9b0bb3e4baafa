#pragma once

#include "Record.h"

#include <QString>
#include <QUrl>

namespace quenara {

/// A project file as it was when it was last opened or saved.
struct RecentProject
{
    QString name; ///< the project's name at that time
    QString path; ///< file-system path
    double lastOpened = 0; ///< seconds since 2001-01-01 00:00:00 UTC, as exact as they were stored

    [[nodiscard]] QUrl url() const { return QUrl::fromLocalFile(path); }
    /// The path, which is unique within the list.
    [[nodiscard]] QString id() const { return path; }

    bool operator==(const RecentProject &) const = default;
    static constexpr auto fields()
    {
        return FieldList{field("name", &RecentProject::name), field("path", &RecentProject::path),
                         field("lastOpened", &RecentProject::lastOpened)};
    }
};
static_assert(listsEveryMember<RecentProject>);

} // namespace quenara
