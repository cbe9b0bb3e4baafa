#pragma once

#include <QDateTime>

#include <optional>
#include <string>
#include <string_view>

namespace quenara::json {

/// A date in exactly the written form "2026-03-01T09:30:00Z" (UTC, whole seconds), if it exists in
/// the calendar.
[[nodiscard]] std::optional<QDateTime> dateFromInternetText(std::string_view text);
[[nodiscard]] std::string internetText(const QDateTime &date);

/// The seconds from 2001-01-01 00:00:00 UTC to \a date.
[[nodiscard]] double referenceSeconds(const QDateTime &date);

} // namespace quenara::json
