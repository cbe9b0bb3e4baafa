#pragma once

#include "Record.h"

#include <QByteArray>
#include <QString>

namespace quenara {

/// Media carried inside the document; never a reference to a file by path.
struct SlideMedia
{
    /// The whole media as a data URL: "data:", MIME type, ";base64,", payload. Kept as UTF-8 bytes
    /// that all copies of the record share.
    QByteArray dataUrl;
    QString name; ///< file name as imported
    QString mimeType;

    bool operator==(const SlideMedia &) const = default;
    static constexpr auto fields()
    {
        return std::tuple{field("dataUrl", &SlideMedia::dataUrl), field("name", &SlideMedia::name),
                          field("mimeType", &SlideMedia::mimeType)};
    }
};
static_assert(listsEveryMember<SlideMedia>);

} // namespace quenara
