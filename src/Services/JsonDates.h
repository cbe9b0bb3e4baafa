#pragma once

#include <QDateTime>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quenara::json {

/// How a date stands in a document.
enum class DateForm {
    internetDateTime, ///< "2026-03-01T09:30:00Z": UTC, whole seconds
    referenceSeconds, ///< a number: seconds since 2001-01-01 00:00:00 UTC
};

/// A date in exactly the written internet form, if it exists in the calendar.
[[nodiscard]] std::optional<QDateTime> dateFromInternetText(std::string_view text);
[[nodiscard]] std::string internetText(const QDateTime &date);

/// A date at millisecond precision; nothing beyond some six thousand years from the reference.
[[nodiscard]] std::optional<QDateTime> dateFromReferenceSeconds(double seconds);
[[nodiscard]] double referenceSeconds(const QDateTime &date);

} // namespace quenara::json
