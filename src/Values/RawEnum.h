#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>

namespace quenara {

/// What a raw enumeration says of one of its cases.
template<class E>
struct RawCase
{
    E value;
    std::string_view rawValue; ///< equals the case's name; what documents and preferences store
    std::string_view title = {}; ///< shown to the operator; empty where the enumeration has none
};

/// The cases of \a E in order; specialised beside each enumeration, with one entry a case, so that
/// the entry of a case stands at the index of its value.
template<class E>
inline constexpr std::array<RawCase<E>, 0> rawCases = {};

/// An enumeration stored by raw string.
template<class E>
concept RawEnum = std::is_enum_v<E> && !rawCases<E>.empty();

/// Whether an enumeration has a case of this value. Compilers write one as "value = Color::red]"
/// and any other value as "value = (Color)3]".
template<auto value>
[[nodiscard]] consteval bool isCase()
{
    constexpr std::string_view function = __PRETTY_FUNCTION__;
    return function[function.find_last_of(":)")] == ':';
}

/// True when \a table has one entry for each case of the enumeration, whose cases count up from 0
/// without a gap. The entry names its case in \a key and stands at the index of that case, where
/// lookups find it.
template<class Entry, class E, std::size_t count>
[[nodiscard]] constexpr bool entriesStandAtTheirCases(const std::array<Entry, count> &table,
                                                      E Entry::*key)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (table[i].*key != static_cast<E>(i))
            return false;
    }
    return !isCase<static_cast<E>(count)>();
}

/// What the lookups below rely on.
template<RawEnum E>
inline constexpr bool casesStandAtTheirValues =
    entriesStandAtTheirCases(rawCases<E>, &RawCase<E>::value);

template<RawEnum E>
[[nodiscard]] QString rawValue(E value)
{
    const std::string_view text = rawCases<E>[static_cast<std::size_t>(value)].rawValue;
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

/// What tells a case from others in a list.
template<RawEnum E>
[[nodiscard]] QString id(E value)
{
    return rawValue(value);
}

template<RawEnum E>
[[nodiscard]] QString title(E value)
{
    const std::string_view text = rawCases<E>[static_cast<std::size_t>(value)].title;
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

/// The case with exactly this raw value (case-sensitive); nothing for any other text.
template<RawEnum E>
[[nodiscard]] constexpr std::optional<E> fromRawValue(std::string_view rawValue)
{
    for (const RawCase<E> &entry : rawCases<E>) {
        if (entry.rawValue == rawValue)
            return entry.value;
    }
    return std::nullopt;
}

template<RawEnum E>
[[nodiscard]] std::optional<E> fromRawValue(const QString &rawValue)
{
    const QByteArray utf8 = rawValue.toUtf8();
    return fromRawValue<E>(std::string_view(utf8.constData(), std::size_t(utf8.size())));
}

template<RawEnum E>
[[nodiscard]] constexpr auto allCases()
{
    std::array<E, rawCases<E>.size()> cases{};
    for (std::size_t i = 0; i < cases.size(); ++i)
        cases[i] = rawCases<E>[i].value;
    return cases;
}

} // namespace quenara
