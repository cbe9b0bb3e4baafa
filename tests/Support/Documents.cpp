#include "Documents.h"

namespace quenara::test {

namespace {

template<class Document>
std::optional<Document> readAs(const QByteArray &bytes)
{
    const std::optional<DecodedDocument> document = ProjectCodec::decode(bytes);
    const auto *found = document ? std::get_if<Document>(&*document) : nullptr;
    return found ? std::optional(*found) : std::nullopt;
}

} // namespace

Reading readingOf(const QByteArray &bytes)
{
    const std::optional<DecodedDocument> document = ProjectCodec::decode(bytes);
    if (!document)
        return Reading::nothing;
    return std::holds_alternative<ZelvoProject>(*document) ? Reading::current : Reading::legacy;
}

std::optional<ZelvoProject> currentProject(const QByteArray &bytes)
{
    return readAs<ZelvoProject>(bytes);
}

std::optional<LegacyQuenaraDocument> legacyDocument(const QByteArray &bytes)
{
    return readAs<LegacyQuenaraDocument>(bytes);
}

QByteArray encoded(const ZelvoProject &project)
{
    return ProjectCodec::encode(project);
}

QByteArray replaced(QByteArray bytes, const QByteArray &before, const QByteArray &after)
{
    return bytes.count(before) == 1 ? bytes.replace(before, after) : QByteArray();
}

} // namespace quenara::test
