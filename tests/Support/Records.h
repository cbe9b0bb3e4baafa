#pragma once

#include "RawEnum.h"
#include "Record.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QTimeZone>
#include <QUrl>

#include <cstdint>
#include <optional>

namespace quenara::test {

/// Values for checks that go over every field of a record, whatever its type.
struct Values
{
    /// A value that differs from \a value; what was absent or empty becomes filled.
    static QString altered(const QString &value) { return value + QLatin1Char('+'); }
    static QByteArray altered(const QByteArray &value) { return value + '+'; }
    static QUrl altered(const QUrl &value) { return QUrl(value.toString() + QStringLiteral("/+")); }
    static bool altered(bool value) { return !value; }
    static double altered(double value) { return value + 0.25; }
    static std::int64_t altered(std::int64_t value) { return value + 1; }

    static QDateTime altered(const QDateTime &value)
    {
        return value.isValid()
            ? value.addSecs(1)
            : QDateTime(QDate(2026, 3, 1), QTime(9, 30), QTimeZone::utc()).toUTC();
    }

    template<RawEnum E>
    static E altered(E value)
    {
        return E((std::size_t(value) + 1) % rawCases<E>.size());
    }

    template<Optional T>
    static T altered(const T &value)
    {
        return value ? altered(*value) : filled<typename T::value_type>();
    }

    template<class T>
    static QList<T> altered(QList<T> values)
    {
        values.append(filled<T>());
        return values;
    }

    template<Record T>
    static T altered(T record)
    {
        const auto first = fieldAt<T, 0>.member;
        record.*first = altered(record.*first);
        return record;
    }

    /// A value with every optional present and every list filled, all the way down.
    template<class T>
    static T filled()
    {
        T value = {};
        if constexpr (Record<T>) {
            forEachField<T>(
                [&value]<class Member, class WhenMissing>(const Field<T, Member, WhenMissing> &f) {
                    if constexpr (Record<Member>) {
                        value.*f.member = filled<Member>();
                    } else if constexpr (requires { (value.*f.member).clear(); }) {
                        value.*f.member = altered(Member());
                    } else {
                        value.*f.member = altered(value.*f.member);
                    }
                });
            return value;
        } else {
            return altered(value);
        }
    }
};

/// \a value with every "id" in it emptied, all the way down: what is left to compare of records
/// that were made with fresh identifiers.
template<class T>
T withoutIdentifiers(T value)
{
    if constexpr (Record<T>) {
        forEachField<T>(
            [&value]<class Member, class WhenMissing>(const Field<T, Member, WhenMissing> &f) {
                if constexpr (std::is_same_v<Member, QString>) {
                    if (f.name == "id")
                        (value.*f.member).clear();
                } else {
                    value.*f.member = withoutIdentifiers(value.*f.member);
                }
            });
    } else if constexpr (requires { value.has_value(); }) {
        if (value)
            *value = withoutIdentifiers(*value);
    } else if constexpr (requires { value.removeLast(); }) {
        for (auto &element : value)
            element = withoutIdentifiers(element);
    }
    return value;
}

/// True when two values are equal without having been copied: their lists, strings and bytes lie at
/// the same addresses, all the way down. Reads through const access only, so it detaches nothing.
template<class T>
bool isSharedWith(const T &a, const T &b)
{
    if constexpr (Record<T>) {
        bool shared = true;
        forEachField<T>(
            [&](const auto &f) { shared = shared && isSharedWith(a.*f.member, b.*f.member); });
        return shared;
    } else if constexpr (requires { a.constData(); }) {
        return a.constData() == b.constData() && a.size() == b.size();
    } else if constexpr (requires { a.has_value(); }) {
        return a.has_value() == b.has_value() && (!a || isSharedWith(*a, *b));
    } else {
        return a == b;
    }
}

} // namespace quenara::test
