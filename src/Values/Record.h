#pragma once

#include "SharedOptional.h"

#include <QHashFunctions>
#include <QList>

#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>

namespace quenara {

template<class T>
inline constexpr bool isOptional = false;
template<class T>
inline constexpr bool isOptional<std::optional<T>> = true;
template<class T>
inline constexpr bool isOptional<SharedOptional<T>> = true;

/// A std::optional or a SharedOptional.
template<class T>
concept Optional = isOptional<T>;

/// Marks a Field that no document may lack.
struct Required
{};

/// One stored member of a record: the key it has in a document, where it lives and what it is in a
/// document without that key.
template<class Owner, class Member, class WhenMissing = Required>
struct Field
{
    using Type = Member;

    std::string_view name;
    Member Owner::*member;
    WhenMissing whenMissing;

    static constexpr bool isRequired = !isOptional<Member> && std::is_same_v<WhenMissing, Required>;

    /// Makes the member what a document without the key means by it. The fields before this one
    /// must have their values.
    void fillIn(Owner &record) const
        requires(!isRequired)
    {
        if constexpr (isOptional<Member>) {
            (record.*member).reset();
        } else if constexpr (std::is_invocable_v<WhenMissing, const Owner &>) {
            record.*member = whenMissing(record);
        } else if constexpr (std::is_invocable_v<WhenMissing>) {
            record.*member = whenMissing();
        } else {
            record.*member = whenMissing;
        }
    }
};

/// A field that every document must hold or, if the member is an optional, that is empty in a
/// document without it.
template<class Owner, class Member>
[[nodiscard]] constexpr Field<Owner, Member> field(std::string_view name, Member Owner::*member)
{
    return {name, member, {}};
}

/// A field that may be missing from a document. Each field that is added to a record must be one,
/// since older documents lack it. The member then is \a whenMissing or, if that is a function, what
/// it returns. It is given the record, in which the fields before this one have their values, or
/// nothing.
template<class Owner, class Member, class WhenMissing>
[[nodiscard]] constexpr Field<Owner, Member, WhenMissing> field(std::string_view name,
                                                                Member Owner::*member,
                                                                WhenMissing whenMissing)
{
    static_assert(!isOptional<Member>, "an empty optional is written as a missing key");
    return {name, member, whenMissing};
}

namespace detail {

template<std::size_t position, class Field>
struct ListedField
{
    Field field;
};

template<std::size_t position, class Field>
[[nodiscard]] constexpr const Field &fieldOf(const ListedField<position, Field> &listed)
{
    return listed.field;
}

template<class Positions, class... Fields>
struct ListedFields;

template<std::size_t... position, class... Fields>
struct ListedFields<std::index_sequence<position...>, Fields...> : ListedField<position, Fields>...
{
    template<class Visitor>
    constexpr void forEach(Visitor &visit) const
    {
        (visit(fieldOf<position>(*this)), ...);
    }
};

} // namespace detail

/// What a record's fields() returns. Every file that knows a record instantiates its list: of a
/// std::tuple the compiler would choose the constructor first, which takes several times as long.
template<class... Fields>
struct FieldList : detail::ListedFields<std::index_sequence_for<Fields...>, Fields...>
{
    static constexpr std::size_t size = sizeof...(Fields);

    constexpr explicit FieldList(Fields... fields)
        : detail::ListedFields<std::index_sequence_for<Fields...>, Fields...>{{fields}...}
    {}
};

/// An aggregate that lists all its members, in declaration order, in a static fields(). Equality
/// comes from the language; hashing, reading and writing are derived from the list.
template<class T>
concept Record = std::is_aggregate_v<T> && requires { T::fields(); };

template<Record T>
inline constexpr std::size_t fieldCount = decltype(T::fields())::size;

/// The Field of \a T at \a position, which is less than fieldCount<T>.
template<Record T, std::size_t position>
inline constexpr auto fieldAt = detail::fieldOf<position>(T::fields());

/// Calls \a visit with every Field of \a T in declaration order.
template<Record T, class Visitor>
constexpr void forEachField(Visitor &&visit)
{
    T::fields().forEach(visit);
}

namespace detail {

struct AnyValue
{
    template<class T>
    operator T() const; // never defined: stands for a value of any type in unevaluated code
};

/// Whether the aggregate has at least that many members.
template<class T, std::size_t count>
inline constexpr bool hasMembers = []<std::size_t... position>(std::index_sequence<position...>) {
    return requires { T{(static_cast<void>(position), AnyValue{})...}; };
}(std::make_index_sequence<count>());

} // namespace detail

/// True when the field list of \a T names as many members as the aggregate has. Each record
/// asserts it, so that a member missing from the list does not compile.
template<Record T>
inline constexpr bool listsEveryMember =
    detail::hasMembers<T, fieldCount<T>> && !detail::hasMembers<T, fieldCount<T> + 1>;

namespace detail {

template<class T>
[[nodiscard]] std::size_t hashOf(const T &value, std::size_t seed)
{
    if constexpr (std::is_enum_v<T>) {
        return ::qHash(static_cast<int>(value), seed);
    } else {
        return qHash(value, seed);
    }
}

template<Optional T>
[[nodiscard]] std::size_t hashOf(const T &value, std::size_t seed)
{
    return value ? hashOf(*value, seed ^ 1U) : ::qHash(0, seed);
}

template<class T>
[[nodiscard]] std::size_t hashOf(const QList<T> &values, std::size_t seed)
{
    for (const T &value : values)
        seed = hashOf(value, seed);
    return ::qHash(values.size(), seed);
}

} // namespace detail

/// Combines the hashes of all fields in field order. The seed has no default: with one, Qt's own
/// qHash() for any type that hashes without a seed would be an equally good match.
template<Record T>
[[nodiscard]] std::size_t qHash(const T &record, std::size_t seed)
{
    forEachField<T>([&](const auto &f) {
        seed ^= detail::hashOf(record.*f.member, seed) + 0x9e3779b9U + (seed << 6U) + (seed >> 2U);
    });
    return seed;
}

} // namespace quenara
