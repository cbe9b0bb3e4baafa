#include "ProjectCodec.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <charconv>
#include <new>

// Templates over the JSON libraries: only sources that read or write JSON include them.
#include "JsonReader.h"
#include "JsonWriter.h"

namespace quenara {

namespace {

using DocumentWriter =
    json::Writer<rapidjson::PrettyWriter<json::ByteSink>, json::KeyOrder::sorted>;
using PreferencesWriter =
    json::Writer<rapidjson::Writer<json::ByteSink>, json::KeyOrder::declaration>;

using ClipWriter = json::Writer<rapidjson::Writer<json::ByteSink>, json::KeyOrder::sorted>;

constexpr QByteArrayView byteOrderMark = "\xEF\xBB\xBF";

bool isBeyond64Bits(std::string_view number)
{
    const char *end = number.data() + number.size();
    std::int64_t withSign = 0;
    std::uint64_t withoutSign = 0;
    const auto [integerEnd, error] = std::from_chars(number.data(), end, withSign);
    return error == std::errc::result_out_of_range && integerEnd == end
        && std::from_chars(number.data(), end, withoutSign).ec != std::errc();
}

/// The JSON text \a json with every integer beyond 64 bits written as a real.
QByteArray withLongIntegersAsReals(std::string_view json)
{
    constexpr std::string_view numberCharacters = "0123456789+-.eE";
    QByteArray result;
    std::size_t start = 0;
    while (start < json.size()) {
        std::size_t end = start + 1;
        if (json[start] == '"') {
            while (end < json.size() && json[end] != '"')
                end += json[end] == '\\' ? 2 : 1;
            end = std::min(end + 1, json.size());
        } else if (numberCharacters.find(json[start]) != std::string_view::npos) {
            end = std::min(json.find_first_not_of(numberCharacters, start), json.size());
        }
        const std::string_view token = json.substr(start, end - start);
        result.append(token.data(), qsizetype(token.size()));
        if (isBeyond64Bits(token))
            result.append("e0");
        start = end;
    }
    return result;
}

simdjson::simdjson_result<json::Element> parse(simdjson::dom::parser &parser, QByteArray &bytes)
{
    const qsizetype start = bytes.startsWith(byteOrderMark) ? byteOrderMark.size() : 0;
    // The parser reads up to its padding beyond the end.
    bytes.reserve(bytes.size() + qsizetype(simdjson::SIMDJSON_PADDING));
    const bool copies = false;
    return parser.parse(bytes.constData() + start, std::size_t(bytes.size() - start), copies);
}

/// Newer releases of the parser have a word of their own for an integer beyond 64 bits.
template<class Error>
bool isBadNumber(Error error)
{
    bool isTooLong = false;
    if constexpr (requires { Error::BIGINT_ERROR; })
        isTooLong = error == Error::BIGINT_ERROR;
    return isTooLong || error == Error::NUMBER_ERROR;
}

/// The root of the JSON text, which lives in the parser; nothing if it is not JSON. Throws
/// std::bad_alloc.
std::optional<json::Element> parsed(simdjson::dom::parser &parser, QByteArray bytes)
{
    simdjson::simdjson_result<json::Element> root = parse(parser, bytes);
    if (isBadNumber(root.error())) {
        // Other programs write large reals as integers, which the parser refuses beyond 64 bits.
        bytes = withLongIntegersAsReals({bytes.constData(), std::size_t(bytes.size())});
        root = parse(parser, bytes);
    }
    if (root.error() == simdjson::MEMALLOC)
        throw std::bad_alloc();
    json::Element element;
    return root.get(element) == simdjson::SUCCESS ? std::optional(element) : std::nullopt;
}

template<Record T>
QByteArray encodedClip(const T &clip)
{
    ClipWriter writer;
    writer.write(clip);
    if (writer.hasFailed())
        throw ProjectEncodingError();
    return writer.take();
}

template<Record T>
std::optional<T> decodedClip(QByteArray bytes)
{
    if (bytes.isEmpty() || bytes.size() > ProjectCodec::largestClip)
        return std::nullopt;
    simdjson::dom::parser parser;
    const std::optional<json::Element> root = parsed(parser, std::move(bytes));
    T clip = json::unread<T>();
    return root && json::Reader().read(*root, clip) ? std::optional(std::move(clip)) : std::nullopt;
}

} // namespace

std::optional<DecodedDocument> ProjectCodec::decode(QByteArrayView bytes)
{
    json::MediaDetacher document;
    document.append(bytes);
    return decode(document.finish());
}

std::optional<DecodedDocument> ProjectCodec::decode(json::DetachedMedia media)
{
    simdjson::dom::parser parser;
    const std::optional<json::Element> root = parsed(parser, std::move(media.text));
    if (!root)
        return std::nullopt;
    json::Reader reader(std::move(media));
    ZelvoProject project;
    if (reader.read(*root, project) && !project.serviceItems.isEmpty())
        return project;
    LegacyQuenaraDocument legacy;
    if (reader.read(*root, legacy))
        return legacy;
    return std::nullopt;
}

QByteArray ProjectCodec::encode(const ZelvoProject &project)
{
    DocumentWriter writer;
    writer.format().SetIndent(' ', 2);
    writer.write(project);
    if (writer.hasFailed())
        throw ProjectEncodingError();
    return writer.take();
}

QByteArray ProjectCodec::encode(const SlideClip &clip)
{
    return encodedClip(clip);
}

QByteArray ProjectCodec::encode(const LayerClip &clip)
{
    return encodedClip(clip);
}

std::optional<SlideClip> ProjectCodec::decodeSlideClip(QByteArray bytes)
{
    return decodedClip<SlideClip>(std::move(bytes));
}

std::optional<LayerClip> ProjectCodec::decodeLayerClip(QByteArray bytes)
{
    return decodedClip<LayerClip>(std::move(bytes));
}

QByteArray ProjectCodec::encode(const QList<RecentProject> &recentProjects)
{
    PreferencesWriter writer;
    writer.write(recentProjects);
    return writer.take();
}

std::optional<QList<RecentProject>> ProjectCodec::decodeRecentProjects(QByteArray bytes)
{
    simdjson::dom::parser parser;
    const std::optional<json::Element> root = parsed(parser, std::move(bytes));
    QList<RecentProject> recentProjects;
    if (!root || !json::Reader().read(*root, recentProjects))
        return std::nullopt;
    return recentProjects;
}

} // namespace quenara
