#pragma once

#include "Record.h"

#include <QByteArray>
#include <QString>

namespace quenara {

/// a == b, without reading bytes that the two share: media is large.
[[nodiscard]] inline bool areEqual(const QByteArray &a, const QByteArray &b)
{
    return a.size() == b.size() && (a.constData() == b.constData() || a == b);
}

/// Media carried inside the document; never a reference to a file by path.
struct SlideMedia
{
    /// The whole media as a data URL: "data:", MIME type, ";base64,", payload. Kept as UTF-8 bytes
    /// that all copies of the record share.
    QByteArray dataUrl;
    QString name; ///< file name as imported
    QString mimeType;

    bool operator==(const SlideMedia &other) const
    {
        return areEqual(dataUrl, other.dataUrl) && name == other.name && mimeType == other.mimeType;
    }
    static constexpr auto fields()
    {
        return FieldList{field("dataUrl", &SlideMedia::dataUrl), field("name", &SlideMedia::name),
                         field("mimeType", &SlideMedia::mimeType)};
    }
};
static_assert(listsEveryMember<SlideMedia>);

} // namespace quenara
