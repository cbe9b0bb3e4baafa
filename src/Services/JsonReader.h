#pragma once

#include "DetachedMedia.h"
#include "JsonDates.h"
#include "RawEnum.h"
#include "Record.h"
#include "SortedFields.h"

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QString>

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>

namespace quenara::json {

using Element = simdjson::dom::element;

/// Which fields of a record a document held, by field index.
template<Record T>
using PresentFields = std::bitset<fieldCount<T>>;

/// The value that is then read into. The members of a record are empty, whatever their initializers
/// say, since those may cost more than the reading.
template<class T>
T unread()
{
    if constexpr (Record<T>) {
        return []<std::size_t... index>(std::index_sequence<index...>) {
            return T{typename decltype(fieldAt<T, index>)::Type()...};
        }(std::make_index_sequence<fieldCount<T>>());
    } else {
        return {};
    }
}

/// Fills in the fields that the document of \a record lacks. False if one of them is required.
template<Record T>
[[nodiscard]] bool fillGaps(T &record, const PresentFields<T> &present)
{
    bool isWhole = true;
    std::size_t index = 0;
    forEachField<T>([&](const auto &f) {
        if (present.test(index++))
            return;
        if constexpr (std::decay_t<decltype(f)>::isRequired) {
            isWhole = false;
        } else if (isWhole) {
            f.fillIn(record);
        }
    });
    return isWhole;
}

/// Reads the records of one document by their field lists: strict in type, unknown keys ignored,
/// of several values with one key the last counts, whatever the others are. Each read returns false
/// when the element is not what the value needs; the value is then unspecified. Equal byte strings
/// share their storage, since documents hold media as such.
class Reader
{
public:
    Reader() = default;
    /// Reads the text of \a media.
    explicit Reader(DetachedMedia media) : m_media(std::move(media)) {}

    bool read(Element element, QString &value)
    {
        std::string_view utf8;
        if (element.get(utf8) != simdjson::SUCCESS)
            return false;
        const QByteArray *url = m_media.areTextsDetached ? m_media.urlBehind(utf8) : nullptr;
        if (url)
            utf8 = {url->constData(), std::size_t(url->size())};
        value = QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
        // Qt drops a byte-order mark at the start of a text.
        if (utf8.starts_with("\xef\xbb\xbf"))
            value.prepend(QChar::ByteOrderMark);
        return true;
    }

    bool read(Element element, QByteArray &value)
    {
        std::string_view utf8;
        if (element.get(utf8) != simdjson::SUCCESS)
            return false;
        const QByteArray *url = m_media.urlBehind(utf8);
        value = url ? *url : shared(utf8);
        return true;
    }

    bool read(Element element, bool &value) { return element.get(value) == simdjson::SUCCESS; }

    bool read(Element element, double &value)
    {
        return element.get(value) == simdjson::SUCCESS && std::isfinite(value);
    }

    /// A number without a fraction, however it is written.
    bool read(Element element, std::int64_t &value)
    {
        if (element.get(value) == simdjson::SUCCESS)
            return true;
        constexpr double exactLimit = 9007199254740992.0; // 2^53: beyond, a double skips integers
        double real = 0;
        if (!read(element, real) || std::trunc(real) != real || std::abs(real) > exactLimit)
            return false;
        value = std::int64_t(real);
        return true;
    }

    bool read(Element element, QDateTime &value)
    {
        std::string_view text;
        const std::optional<QDateTime> date =
            element.get(text) == simdjson::SUCCESS ? dateFromInternetText(text) : std::nullopt;
        value = date.value_or(QDateTime());
        return date.has_value();
    }

    template<RawEnum E>
    bool read(Element element, E &value)
    {
        std::string_view text;
        if (element.get(text) != simdjson::SUCCESS)
            return false;
        const std::optional<E> found = fromRawValue<E>(text);
        value = found.value_or(value);
        return found.has_value();
    }

    template<class T>
    bool read(Element element, QList<T> &values)
    {
        simdjson::dom::array array;
        if (element.get(array) != simdjson::SUCCESS)
            return false;
        // A long list must not take memory for records before it has proved to hold any.
        constexpr std::size_t mostReserved = 4096;
        values.clear();
        values.reserve(qsizetype(std::min(array.size(), mostReserved)));
        for (const Element item : array) {
            if (!read(item, values.emplaceBack(unread<T>())))
                return false;
        }
        return true;
    }

    /// An empty optional may also be written as null.
    template<Optional T>
    bool read(Element element, T &value)
    {
        if (element.is_null()) {
            value.reset();
            return true;
        }
        return read(element, value.emplace(unread<typename T::value_type>()));
    }

    template<Record T>
    bool read(Element element, T &record)
    {
        simdjson::dom::object object;
        if (element.get(object) != simdjson::SUCCESS)
            return false;
        // Nothing is read of the values that a later one of the same key replaces.
        std::array<Element, fieldCount<T>> lastValues;
        PresentFields<T> present;
        // Our own documents are sorted, so that the next key is nearly always the next field.
        std::size_t expected = 0;
        for (const auto &entry : object) {
            const std::size_t rank = rankOf<T>(entry.key, expected);
            if (rank == fieldCount<T>)
                continue;
            expected = rank + 1;
            lastValues[rank] = entry.value;
            // A null means what a missing key means.
            present.set(fieldReaders<T>[rank].index, !entry.value.is_null());
        }
        for (std::size_t rank = 0; rank < fieldCount<T>; ++rank) {
            const FieldReader<T> &f = fieldReaders<T>[rank];
            if (present.test(f.index) && !f.read(*this, lastValues[rank], record))
                return false;
        }
        return fillGaps(record, present);
    }

private:
    /// A field as the loop over a document's keys needs it.
    template<Record T>
    struct FieldReader
    {
        std::string_view name;
        std::size_t index; ///< in declaration order
        bool (*read)(Reader &reader, Element element, T &record);
    };

    template<Record T, std::size_t index>
    static bool readField(Reader &reader, Element element, T &record)
    {
        return reader.read(element, record.*fieldAt<T, index>.member);
    }

    /// In the order of their names.
    template<Record T>
    static constexpr auto fieldReaders = []<std::size_t... rank>(std::index_sequence<rank...>) {
        return std::array<FieldReader<T>, sizeof...(rank)>{
            FieldReader<T>{fieldAt<T, sortedFields<T>[rank]>.name, sortedFields<T>[rank],
                           readField<T, sortedFields<T>[rank]>}...};
    }(std::make_index_sequence<fieldCount<T>>());

    /// The index of \a key among the sorted fields, their count if it is none of them. Tries
    /// \a expected first.
    template<Record T>
    static std::size_t rankOf(std::string_view key, std::size_t expected)
    {
        if (expected < fieldCount<T> && fieldReaders<T>[expected].name == key)
            return expected;
        std::size_t rank = 0;
        while (rank < fieldCount<T> && fieldReaders<T>[rank].name != key)
            ++rank;
        return rank;
    }

    QByteArray shared(std::string_view utf8)
    {
        const auto size = qsizetype(utf8.size());
        const auto found = m_byteStrings.constFind(QByteArray::fromRawData(utf8.data(), size));
        return found != m_byteStrings.cend() ? *found
                                             : *m_byteStrings.insert(QByteArray(utf8.data(), size));
    }

    DetachedMedia m_media;
    QSet<QByteArray> m_byteStrings;
};

} // namespace quenara::json
