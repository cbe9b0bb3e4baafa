#include "JsonDates.h"

#include <QTimeZone>

#include <algorithm>
#include <cstdint>

namespace quenara::json {

namespace {

constexpr std::int64_t referenceEpochSeconds = 978307200; // 2001-01-01T00:00:00Z
constexpr std::string_view internetPattern = "0000-00-00T00:00:00Z"; // 0 stands for any digit

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

std::optional<QDateTime> dateFromInternetText(std::string_view text)
{
    const bool matches =
        std::equal(text.begin(), text.end(), internetPattern.begin(), internetPattern.end(),
                   [](char c, char pattern) { return pattern == '0' ? isDigit(c) : c == pattern; });
    if (!matches)
        return std::nullopt;
    const auto number = [text](std::size_t position, std::size_t digits) {
        int value = 0;
        for (const char c : text.substr(position, digits))
            value = value * 10 + (c - '0');
        return value;
    };
    const QDate date(number(0, 4), number(5, 2), number(8, 2));
    const QTime time(number(11, 2), number(14, 2), number(17, 2));
    if (!date.isValid() || !time.isValid())
        return std::nullopt;
    // Before Qt 6.5 the result still has that time zone, which is not the same as being in UTC.
    return QDateTime(date, time, QTimeZone::utc()).toUTC();
}

std::string internetText(const QDateTime &date)
{
    return date.toUTC().toString(u"yyyy-MM-dd'T'HH:mm:ss'Z'").toStdString();
}

double referenceSeconds(const QDateTime &date)
{
    return double(date.toMSecsSinceEpoch() - referenceEpochSeconds * 1000) / 1000;
}

} // namespace quenara::json
