#pragma once

#include "JsonReader.h"
#include "JsonWriter.h"
#include "MayDiffer.h"

#include <QHash>

#include <charconv>
#include <vector>

/// What turns one record into another, as JSON: an object with the fields that mayDiffer(). One
/// that is a record itself is written as its own change if it was there before, and whole else; an
/// optional that became empty is null; any other value is written whole.
///
/// A list of records with identifiers is an object if the same ones stand in it in the same order:
/// the changes by position. Else it is an array of its new parts: `[first, count]` for records
/// taken over, `[position, change]` for one taken over with a change, an object for a new one.
/// Positions are those of the list before; each is taken over once at most.
namespace quenara::json {

template<class T>
concept Identified = Record<T> && requires(const T &record) {
    {
        record.id
    } -> std::convertible_to<QString>;
};

/// Writes changes through \a Writer.
template<class Writer>
class ChangeWriter
{
public:
    explicit ChangeWriter(Writer &writer) : m_writer(writer) {}

    template<class T>
    void write(const T & /*before*/, const T &after)
    {
        m_writer.write(after);
    }

    template<Record T>
    void write(const T &before, const T &after)
    {
        m_writer.format().StartObject();
        forEachField<T>([&](const auto &f) {
            if (!mayDiffer(before.*f.member, after.*f.member))
                return;
            m_writer.format().Key(f.name.data(), rapidjson::SizeType(f.name.size()));
            write(before.*f.member, after.*f.member);
        });
        m_writer.format().EndObject();
    }

    template<Optional T>
    void write(const T &before, const T &after)
    {
        if (!after) {
            m_writer.format().Null();
        } else if (before) {
            write(*before, *after);
        } else {
            m_writer.write(*after);
        }
    }

    template<Identified T>
    void write(const QList<T> &before, const QList<T> &after)
    {
        const auto hasSameID = [](const T &a, const T &b) { return !mayDiffer(a.id, b.id); };
        if (std::equal(before.cbegin(), before.cend(), after.cbegin(), after.cend(), hasSameID)) {
            writeInPlace(before, after);
        } else {
            writeParts(before, after);
        }
    }

private:
    template<class T>
    void writeInPlace(const QList<T> &before, const QList<T> &after)
    {
        m_writer.format().StartObject();
        for (qsizetype i = 0; i < after.size(); ++i) {
            if (!mayDiffer(before.at(i), after.at(i)))
                continue;
            const QByteArray position = QByteArray::number(i);
            m_writer.format().Key(position.constData(), rapidjson::SizeType(position.size()));
            write(before.at(i), after.at(i));
        }
        m_writer.format().EndObject();
    }

    template<class T>
    void writeParts(const QList<T> &before, const QList<T> &after)
    {
        QHash<QString, qsizetype> positions; // of the records that can still be taken over
        for (qsizetype i = before.size(); i-- > 0;)
            positions.insert(before.at(i).id, i);
        m_writer.format().StartArray();
        qsizetype first = 0; // of the records taken over that are not written yet
        qsizetype count = 0;
        const auto writeRun = [&] {
            if (count > 0)
                writePart(first, [&] { m_writer.write(std::int64_t(count)); });
            count = 0;
        };
        for (const T &record : after) {
            const auto found = positions.constFind(record.id);
            const qsizetype position = found == positions.cend() ? -1 : *found;
            if (position >= 0)
                positions.erase(found);
            if (position >= 0 && !mayDiffer(before.at(position), record)) {
                if (position != first + count)
                    writeRun();
                first = count == 0 ? position : first;
                ++count;
                continue;
            }
            writeRun();
            if (position >= 0) {
                writePart(position, [&] { write(before.at(position), record); });
            } else {
                m_writer.write(record);
            }
        }
        writeRun();
        m_writer.format().EndArray();
    }

    template<class Rest>
    void writePart(qsizetype position, const Rest &writeRest)
    {
        m_writer.format().StartArray();
        m_writer.write(std::int64_t(position));
        writeRest();
        m_writer.format().EndArray();
    }

    Writer &m_writer;
};

/// Reads changes, as strictly as documents are read. Each apply() returns false when the element is
/// no change of the value, which is unspecified then.
class ChangeReader
{
public:
    explicit ChangeReader(Reader reader) : m_reader(std::move(reader)) {}

    /// Takes the media of the elements that follow.
    void setReader(Reader reader) { m_reader = std::move(reader); }

    template<class T>
    bool apply(Element element, T &value)
    {
        return m_reader.read(element, value);
    }

    template<Record T>
    bool apply(Element element, T &record)
    {
        simdjson::dom::object object;
        if (element.get(object) != simdjson::SUCCESS)
            return false;
        bool isApplied = true;
        forEachField<T>([&](const auto &f) {
            Element value;
            if (isApplied && object.at_key(f.name).get(value) == simdjson::SUCCESS)
                isApplied = apply(value, record.*f.member);
        });
        return isApplied;
    }

    template<Optional T>
    bool apply(Element element, T &value)
    {
        return value && !element.is_null() ? apply(element, *value) : m_reader.read(element, value);
    }

    template<Identified T>
    bool apply(Element element, QList<T> &list)
    {
        simdjson::dom::array parts;
        simdjson::dom::object changes;
        if (element.get(parts) == simdjson::SUCCESS)
            return applyParts(parts, list);
        return element.get(changes) == simdjson::SUCCESS && applyInPlace(changes, list);
    }

private:
    template<class T>
    bool applyInPlace(const simdjson::dom::object &changes, QList<T> &list)
    {
        for (const auto &change : changes) {
            const char *end = change.key.data() + change.key.size();
            qsizetype position = -1;
            const auto [numberEnd, error] = std::from_chars(change.key.data(), end, position);
            if (error != std::errc() || numberEnd != end || position < 0 || position >= list.size()
                || !apply(change.value, list[position]))
                return false;
        }
        return true;
    }

    template<class T>
    bool applyParts(const simdjson::dom::array &parts, QList<T> &list)
    {
        QList<T> before = std::exchange(list, {});
        std::vector<bool> isTaken(std::size_t(before.size()));
        const auto take = [&](std::int64_t position) {
            if (position < 0 || position >= before.size() || isTaken[std::size_t(position)]
                || --m_movesLeft < 0)
                return false;
            isTaken[std::size_t(position)] = true;
            list.append(std::move(before[position]));
            return true;
        };
        for (const Element part : parts) {
            simdjson::dom::array pair;
            if (part.get(pair) != simdjson::SUCCESS) {
                if (!m_reader.read(part, list.emplaceBack(unread<T>())))
                    return false;
                continue;
            }
            std::int64_t position = 0;
            std::int64_t count = 1;
            Element rest;
            if (pair.size() != 2 || !m_reader.read(pair.at(0), position)
                || pair.at(1).get(rest) != simdjson::SUCCESS)
                return false;
            const bool isRun = rest.is_int64();
            if (isRun && !m_reader.read(rest, count))
                return false;
            for (; count > 0; --count) {
                if (!take(position++))
                    return false;
            }
            if (!isRun && !apply(rest, list.last()))
                return false;
        }
        return true;
    }

    Reader m_reader;
    /// How many more records lists may be put together of: more than editing comes to, and what
    /// takes seconds at most.
    std::int64_t m_movesLeft = 50'000'000;
};

} // namespace quenara::json
