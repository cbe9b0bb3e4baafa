#include "SongImportService.h"

#include "Identifier.h"
#include "ProjectTemplates.h"

#include <QStringList>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace quenara {

namespace {

/// White space that breaks no line: tabs and the spaces of every width.
bool isSpacing(QChar character)
{
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

QString withoutSpacingAround(QStringView line)
{
    const auto first = std::find_if_not(line.begin(), line.end(), isSpacing);
    const auto last = std::find_if_not(line.rbegin(), std::make_reverse_iterator(first), isSpacing);
    return QStringView(first, last.base()).toString();
}

/// True if the text has at most \a count characters as a reader counts them.
bool isAtMost(qsizetype count, const QString &text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (; count > 0 && finder.position() < text.size(); --count)
        finder.toNextBoundary();
    return finder.position() == text.size();
}

/// The title that \a line, which has no spacing around it, is the heading of. Nothing if it is no
/// heading.
std::optional<QString> headingTitle(const QString &line)
{
    constexpr qsizetype longestHeading = 32;
    if (line.startsWith(u'[') && line.endsWith(u']'))
        return line.mid(1, line.size() - 2).trimmed();
    if (!line.endsWith(u':'))
        return std::nullopt;
    const QString title = line.chopped(1).trimmed();
    const bool isHeading = isAtMost(longestHeading, title) && !title.contains(u'.');
    return isHeading ? std::optional(title) : std::nullopt;
}

QStringList linesOf(QString text)
{
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QStringList lines = text.split(u'\n');
    for (QString &line : lines)
        line = withoutSpacingAround(line);
    return lines;
}

} // namespace

bool SongSection::isChorusLike() const
{
    const QString lowered = title.toLower();
    return lowered.contains(QLatin1String("chorus")) || lowered.contains(QLatin1String("tag"))
        || lowered.contains(QLatin1String("bridge"));
}

QList<SongSection> SongImportService::parseSections(const QString &text)
{
    QList<SongSection> sections;
    std::optional<QString> title;
    QStringList body;
    const auto finishSection = [&] {
        if (title || !body.isEmpty()) {
            const QString numbered = QStringLiteral("Section %1").arg(sections.size() + 1);
            sections.append({newIdentifier(), title.value_or(numbered), body.join(u'\n')});
        }
        title.reset();
        body.clear();
    };
    for (const QString &line : linesOf(text)) {
        const std::optional<QString> heading = headingTitle(line);
        if (!heading && !line.isEmpty()) {
            body.append(line);
            continue;
        }
        finishSection();
        title = heading;
    }
    finishSection();
    return sections;
}

bool SongImportService::hasHeadings(const QString &text)
{
    const QStringList lines = linesOf(text);
    return std::any_of(lines.cbegin(), lines.cend(),
                       [](const QString &line) { return headingTitle(line).has_value(); });
}

ServiceItem SongImportService::serviceItem(const QString &title, const QString &lyrics,
                                           std::int64_t orderIndex)
{
    QList<Slide> slides;
    for (const SongSection &section : parseSections(lyrics)) {
        slides.append(ProjectTemplates::slide(section.title, section.body, slides.size(),
                                              rawValue(section.isChorusLike()
                                                           ? SlideTemplateID::lowerLyric
                                                           : SlideTemplateID::centerLyric)));
    }
    return {.id = newIdentifier(),
            .title = title.isEmpty() ? QStringLiteral("Imported Song") : title,
            .type = ServiceItemType::song,
            .orderIndex = orderIndex,
            .subtitle = QStringLiteral("%1 slides").arg(slides.size()),
            .slides = slides};
}

} // namespace quenara
