#pragma once

#include "ByteSink.h"
#include "JsonDates.h"
#include "MediaCollector.h"
#include "RawEnum.h"
#include "SortedFields.h"

#include <QList>
#include <QString>

#include <rapidjson/rapidjson.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

namespace quenara::json {

/// In which order the keys of an object are written.
enum class KeyOrder { declaration, sorted };

/// True when \a utf8 can stand in a JSON string as it is.
[[nodiscard]] inline bool isPlain(QByteArrayView utf8)
{
    // The compiler vectorizes a loop without an early exit.
    constexpr qsizetype block = 4096;
    unsigned char special = 0;
    for (qsizetype start = 0; special == 0 && start < utf8.size(); start += block) {
        const QByteArrayView bytes = utf8.sliced(start, std::min(block, utf8.size() - start));
        for (qsizetype i = 0; i < bytes.size(); ++i) {
            const auto byte = static_cast<unsigned char>(bytes.data()[i]);
            special = special | (byte < 0x20 || byte == '"' || byte == '\\' ? 1 : 0);
        }
    }
    return special == 0;
}

/// Streams records by their field lists through \a Format, a RapidJSON writer. Empty optionals
/// are left out; reals are written in the shortest form that reads back the same, whatever the
/// locale. JSON has no form for a real that is not finite: hasFailed() then says that the text is
/// unfit for use.
template<class Format, KeyOrder keyOrder>
class Writer
{
public:
    Writer() = default;
    /// Writes large byte strings, which are media, beside the text: \a media takes them.
    explicit Writer(MediaCollector &media) : m_media(&media) {}

    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }
    [[nodiscard]] QByteArray take() { return m_sink.take(); }
    Format &format() { return m_output; }

    void write(const QString &value) { writeText(value.toUtf8()); }
    void write(const QByteArray &value)
    {
        const auto placeholder = m_media ? m_media->placeholderFor(value) : std::nullopt;
        writeText(placeholder.value_or(value));
    }
    void write(bool value) { m_output.Bool(value); }
    void write(std::int64_t value) { m_output.Int64(value); }

    void write(double value)
    {
        m_hasFailed = m_hasFailed || !std::isfinite(value);
        // Readers take a number without a fraction for an integer: a zero would lose its sign, and
        // what is beyond 64 bits would be refused.
        constexpr double integersEnd = 9007199254740992.0; // 2^53
        const bool needsFraction =
            value == 0 ? std::signbit(value) : std::abs(value) >= integersEnd;
        std::array<char, 32> text{};
        const auto end = needsFraction
            ? std::to_chars(text.begin(), text.end(), value, std::chars_format::scientific).ptr
            : std::to_chars(text.begin(), text.end(), value).ptr;
        m_output.RawValue(text.data(), std::size_t(end - text.data()), rapidjson::kNumberType);
    }

    void write(const QDateTime &value) { m_output.String(internetText(value).c_str()); }

    template<RawEnum E>
    void write(E value)
    {
        const std::string_view text = rawCases<E>[std::size_t(value)].rawValue;
        m_output.String(text.data(), rapidjson::SizeType(text.size()));
    }

    template<class T>
    void write(const QList<T> &values)
    {
        m_output.StartArray();
        for (const T &value : values)
            write(value);
        m_output.EndArray();
    }

    template<Record T>
    void write(const T &record)
    {
        m_output.StartObject();
        writeFields(record, std::make_index_sequence<fieldCount<T>>());
        m_output.EndObject();
    }

private:
    void writeText(const QByteArray &utf8)
    {
        if (!isPlain(utf8)) {
            m_output.String(utf8.constData(), rapidjson::SizeType(utf8.size()));
            return;
        }
        // The empty value makes the format write what stands between two values. The string, which
        // may be many megabytes of media, is then copied in one go.
        m_output.RawValue("", 0, rapidjson::kStringType);
        m_sink.Put('"');
        m_sink.append(utf8);
        m_sink.Put('"');
    }

    template<Record T, std::size_t... position>
    void writeFields(const T &record, std::index_sequence<position...>)
    {
        if constexpr (keyOrder == KeyOrder::sorted) {
            (writeField(record, fieldAt<T, sortedFields<T>[position]>), ...);
        } else {
            (writeField(record, fieldAt<T, position>), ...);
        }
    }

    template<Record T, class Member, class WhenMissing>
    void writeField(const T &record, const Field<T, Member, WhenMissing> &f)
    {
        const Member &value = record.*f.member;
        if constexpr (isOptional<Member>) {
            if (value)
                writeKeyed(f.name, *value);
        } else {
            writeKeyed(f.name, value);
        }
    }

    template<class T>
    void writeKeyed(std::string_view key, const T &value)
    {
        m_output.Key(key.data(), rapidjson::SizeType(key.size()));
        write(value);
    }

    MediaCollector *m_media = nullptr;
    ByteSink m_sink;
    Format m_output{m_sink};
    bool m_hasFailed = false;
};

} // namespace quenara::json
