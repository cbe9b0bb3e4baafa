#pragma once

#include <QPageSize>
#include <QSize>
#include <QString>

#include <array>
#include <cstdint>

class QLocale;

namespace quenara {

/// What a show is exported as.
enum class ExportFormat : std::uint8_t { onePerPage, fourPerPage, ninePerPage, pictures };

struct ExportFormatDescription
{
    ExportFormat format{};
    const char *title = "";
    const char *detail = "";
};

/// Every format once, in the order of the enumeration.
[[nodiscard]] const std::array<ExportFormatDescription, 4> &exportFormats();

/// Pixels of an exported picture, and of the wall that pages look like.
inline constexpr QSize exportedPixels{1920, 1080};

/// What hand-outs are printed on in the country of \a locale: Letter where that is usual, else A4.
[[nodiscard]] QPageSize paperOf(const QLocale &locale);

} // namespace quenara
