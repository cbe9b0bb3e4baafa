#pragma once

#include "Clips.h"
#include "DetachedMedia.h"
#include "LegacyDocument.h"
#include "ProjectFileError.h"
#include "ProjectModels.h"
#include "RecentProject.h"

#include <QByteArray>
#include <QList>

#include <optional>
#include <variant>

namespace quenara {

/// A document as its bytes held it, not yet normalized.
using DecodedDocument = std::variant<ZelvoProject, LegacyQuenaraDocument>;

/// Between bytes and records: the one place that knows JSON. UTF-8; keys are the records' fields.
struct ProjectCodec
{
    /// The bytes as a current project with at least one item, else as a legacy document; nothing
    /// if they are neither. Throws std::bad_alloc.
    [[nodiscard]] static std::optional<DecodedDocument> decode(QByteArrayView bytes);
    /// The same for bytes whose media were taken out of them already.
    [[nodiscard]] static std::optional<DecodedDocument> decode(json::DetachedMedia media);

    /// Pretty-printed with sorted keys: the same project always gives the same bytes. Throws
    /// ProjectEncodingError if a number in it is not finite.
    [[nodiscard]] static QByteArray encode(const ZelvoProject &project);

    /// A clip as the clipboard carries it: compact, keys sorted. Throws ProjectEncodingError if a
    /// number in it is not finite.
    [[nodiscard]] static QByteArray encode(const SlideClip &clip);
    [[nodiscard]] static QByteArray encode(const LayerClip &clip);

    /// The size of the largest clip in bytes.
    static constexpr qsizetype largestClip = qsizetype(256) << 20U;
    /// Any program may have put \a bytes on the clipboard: nothing if they are no such clip, or too
    /// many. Throws std::bad_alloc.
    [[nodiscard]] static std::optional<SlideClip> decodeSlideClip(QByteArray bytes);
    [[nodiscard]] static std::optional<LayerClip> decodeLayerClip(QByteArray bytes);

    /// The list as the preferences keep it: compact, keys in declaration order, dates as seconds
    /// since 2001-01-01 UTC.
    [[nodiscard]] static QByteArray encode(const QList<RecentProject> &recentProjects);
    [[nodiscard]] static std::optional<QList<RecentProject>> decodeRecentProjects(QByteArray bytes);
};

} // namespace quenara
