#include "ExportFormat.h"

#include <QLocale>

#include <algorithm>

namespace quenara {

namespace {

constexpr auto lettersLands = std::to_array<QLocale::Country>(
    {QLocale::UnitedStates, QLocale::Canada, QLocale::Mexico, QLocale::PuertoRico,
     QLocale::Philippines, QLocale::Belize, QLocale::Chile, QLocale::Colombia, QLocale::CostaRica,
     QLocale::ElSalvador, QLocale::Guatemala, QLocale::Nicaragua, QLocale::Panama,
     QLocale::Venezuela});

} // namespace

const std::array<ExportFormatDescription, 4> &exportFormats()
{
    static constexpr std::array<ExportFormatDescription, 4> formats{{
        {ExportFormat::onePerPage, "PDF, one slide a page",
         "Pages in the slides' own shape, without margins"},
        {ExportFormat::fourPerPage, "PDF, four slides a page",
         "A hand-out with the titles of sections and slides"},
        {ExportFormat::ninePerPage, "PDF, nine slides a page", "The same on fewer pages"},
        {ExportFormat::pictures, "Pictures",
         "PNG files of 1920 by 1080 pixels, numbered, in a folder of their own"},
    }};
    return formats;
}

QPageSize paperOf(const QLocale &locale)
{
    const bool usesLetter =
        std::find(lettersLands.begin(), lettersLands.end(), locale.country()) != lettersLands.end();
    return {usesLetter ? QPageSize::Letter : QPageSize::A4};
}

} // namespace quenara
