// Whatever bytes the reader accepts must become a project that a save and a load give back whole,
// and the same of what is pasted.

#include "Demand.h"
#include "ProjectCodec.h"
#include "ProjectNormalizer.h"

#include <QTimeZone>

using namespace quenara;

namespace {

ZelvoProject normalized(const DecodedDocument &document)
{
    const QDateTime now = QDateTime(QDate(2026, 3, 1), QTime(9, 30), QTimeZone::utc()).toUTC();
    if (const auto *legacy = std::get_if<LegacyQuenaraDocument>(&document))
        return ProjectNormalizer::project(*legacy, now);
    return ProjectNormalizer::normalized(std::get<ZelvoProject>(document));
}

template<class Clip>
void demandWhole(const std::optional<Clip> &clip, std::optional<Clip> (*decode)(QByteArray bytes))
{
    demand(!clip || decode(ProjectCodec::encode(*clip)) == clip,
           "a clip that was written reads back the same");
}

} // namespace

// libFuzzer calls it by this name.
// NOLINTNEXTLINE(readability-identifier-naming)
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArrayView bytes(data, qsizetype(size));
    demandWhole(ProjectCodec::decodeSlideClip(bytes.toByteArray()), ProjectCodec::decodeSlideClip);
    demandWhole(ProjectCodec::decodeLayerClip(bytes.toByteArray()), ProjectCodec::decodeLayerClip);
    const std::optional<DecodedDocument> document = ProjectCodec::decode(bytes);
    constexpr qsizetype leastSize = 8;
    json::MediaDetacher detacher(leastSize);
    detacher.append(bytes);
    demand(ProjectCodec::decode(detacher.finish()).has_value() == document.has_value(),
           "whether media are taken out of a document does not matter");
    if (!document)
        return 0;
    const ZelvoProject project = normalized(*document);
    demand(!project.serviceItems.isEmpty(), "a project that was read has an item");
    demand(ProjectNormalizer::normalized(project) == project, "normalizing twice changes nothing");

    // What was read can be written: it throws nothing.
    const QByteArray written = ProjectCodec::encode(project);
    const std::optional<DecodedDocument> reread = ProjectCodec::decode(written);
    demand(reread.has_value(), "what was written can be read");
    const auto *again = std::get_if<ZelvoProject>(&*reread);
    demand(again, "what was written is a current document");
    demand(*again == project, "what was written reads back the same");
    demand(ProjectCodec::encode(*again) == written, "it is written as the same bytes again");
    return 0;
}
