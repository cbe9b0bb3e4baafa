#include "ProjectCodec.h"

#include "Identifier.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

// These two are templates over the JSON libraries, which only this file includes.
#include "JsonReader.h"
#include "JsonWriter.h"

namespace quenara {

namespace json {

template<>
Slide unread<Slide>()
{
    return {.id = {},
            .title = {},
            .body = {},
            .orderIndex = 0,
            .footer = {},
            .image = {},
            .audio = {},
            .design = {}};
}

/// A slide is the one record whose every key may be missing.
template<>
bool complete(Slide &slide, const PresentFields<Slide> &present)
{
    const auto isMissing = [&present](std::string_view name) {
        std::size_t index = 0;
        bool missing = false;
        forEachField<Slide>([&](const auto &f) {
            missing = missing || (f.name == name && !present.test(index));
            ++index;
        });
        return missing;
    };
    if (isMissing("id"))
        slide.id = newIdentifier();
    if (isMissing("title"))
        slide.title = QStringLiteral("Slide");
    if (isMissing("design"))
        slide.design = SlideDesign::centeredLyric(slide.body, QStringLiteral("centerLyric"));
    return true;
}

} // namespace json

namespace {

using DocumentReader = json::Reader<json::DateForm::internetDateTime>;
using PreferencesReader = json::Reader<json::DateForm::referenceSeconds>;

simdjson::padded_string padded(const QByteArray &bytes)
{
    return simdjson::padded_string(bytes.constData(), std::size_t(bytes.size()));
}

QByteArray bytesOf(const rapidjson::StringBuffer &buffer)
{
    return {buffer.GetString(), qsizetype(buffer.GetSize())};
}

} // namespace

std::optional<DecodedDocument> ProjectCodec::decode(const QByteArray &bytes)
{
    simdjson::dom::parser parser;
    json::Element root;
    const simdjson::padded_string text = padded(bytes);
    if (parser.parse(text).get(root) != simdjson::SUCCESS)
        return std::nullopt;
    ZelvoProject project;
    if (DocumentReader::read(root, project) && !project.serviceItems.isEmpty())
        return project;
    LegacyQuenaraDocument legacy;
    if (DocumentReader::read(root, legacy))
        return legacy;
    return std::nullopt;
}

std::optional<QByteArray> ProjectCodec::encode(const ZelvoProject &project)
{
    rapidjson::StringBuffer buffer;
    rapidjson::PrettyWriter output(buffer);
    output.SetIndent(' ', 2);
    json::Writer<decltype(output), json::DateForm::internetDateTime, json::KeyOrder::sorted> writer(
        output);
    writer.write(project);
    return writer.hasFailed() ? std::nullopt : std::optional(bytesOf(buffer));
}

QByteArray ProjectCodec::encode(const QList<RecentProject> &recentProjects)
{
    rapidjson::StringBuffer buffer;
    rapidjson::Writer output(buffer);
    json::Writer<decltype(output), json::DateForm::referenceSeconds, json::KeyOrder::declaration>(
        output)
        .write(recentProjects);
    return bytesOf(buffer);
}

std::optional<QList<RecentProject>> ProjectCodec::decodeRecentProjects(const QByteArray &bytes)
{
    simdjson::dom::parser parser;
    json::Element root;
    QList<RecentProject> recentProjects;
    const simdjson::padded_string text = padded(bytes);
    if (parser.parse(text).get(root) != simdjson::SUCCESS
        || !PreferencesReader::read(root, recentProjects))
        return std::nullopt;
    return recentProjects;
}

} // namespace quenara
