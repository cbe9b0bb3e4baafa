// Whatever is pasted as a song's lyrics becomes a section for each slide, and none of its words are
// lost, doubled or made up.

#include "Demand.h"
#include "SongImportService.h"

#include <algorithm>
#include <iterator>

using namespace quenara;

namespace {

/// The signs of a text that are no white space, in order.
QString withoutSpaces(const QString &text)
{
    QString signs;
    std::copy_if(text.begin(), text.end(), std::back_inserter(signs),
                 [](QChar sign) { return !sign.isSpace(); });
    return signs;
}

} // namespace

// libFuzzer calls it by this name.
// NOLINTNEXTLINE(readability-identifier-naming)
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString lyrics = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    const QList<SongSection> sections = SongImportService::parseSections(lyrics);
    const ServiceItem item = SongImportService::serviceItem({}, lyrics, 3);
    demand(item.slides.size() == sections.size(), "each section becomes a slide");
    demand(item.title == QStringLiteral("Imported Song"), "a song without a title is given one");

    qsizetype at = 0;
    const QString signs = withoutSpaces(lyrics);
    for (qsizetype i = 0; i < sections.size(); ++i) {
        const SongSection &section = sections.at(i);
        const Slide &slide = item.slides.at(i);
        demand(slide.title == section.title && slide.body == section.body,
               "a slide shows its section");
        demand(slide.orderIndex == i, "slides are in the order of their sections");
        demand(!section.body.contains(QStringLiteral("\n\n")), "no line of a body is empty");
        const QString words = withoutSpaces(section.body);
        const qsizetype found = signs.indexOf(words, at);
        demand(found >= at, "the words of a body stand in the lyrics, in order");
        at = found + words.size();
    }
    return 0;
}
