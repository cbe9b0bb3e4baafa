#include "ProjectGenerator.h"

#include "Identifier.h"
#include "ProjectTemplates.h"

#include <QRandomGenerator>
#include <QStringList>
#include <QTimeZone>

#include <array>

namespace quenara::bench {

namespace {

using Random = QRandomGenerator;

QString line(Random &random)
{
    static constexpr std::array words = {"morning", "river", "mountain", "light", "gather",
                                         "harvest", "stand", "quiet",    "bread", "evening"};
    QStringList line;
    const int count = random.bounded(3, 8);
    for (int i = 0; i < count; ++i)
        line.append(QString::fromLatin1(words.at(std::size_t(random.bounded(int(words.size()))))));
    return line.join(QLatin1Char(' '));
}

QString stanza(Random &random)
{
    QStringList lines;
    const int count = random.bounded(1, 5);
    for (int i = 0; i < count; ++i)
        lines.append(line(random));
    return lines.join(QLatin1Char('\n'));
}

SlideMedia noiseImage(Random &random, qsizetype byteCount)
{
    QByteArray bytes(byteCount, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = char(random.generate());
    return {.dataUrl = "data:image/jpeg;base64," + bytes.toBase64(),
            .name = QStringLiteral("photo.jpg"),
            .mimeType = QStringLiteral("image/jpeg")};
}

} // namespace

ZelvoProject generateProject(const ProjectSize &size, quint32 seed)
{
    Random random(seed);
    const QList<SlideTemplate> templates = ProjectTemplates::templates();
    constexpr auto types = allCases<ServiceItemType>();
    ZelvoProject project;
    project.id = newIdentifier();
    project.name = QStringLiteral("Generated");
    project.kind = ProjectKind::custom;
    project.updatedAt = QDateTime(QDate(2026, 3, 1), QTime(9, 30), QTimeZone::utc()).toUTC();
    project.serviceItems.reserve(size.itemCount);
    for (int i = 0; i < size.itemCount; ++i) {
        ServiceItem item;
        item.id = newIdentifier();
        item.title = line(random);
        item.type = types.at(std::size_t(i) % types.size());
        item.orderIndex = i;
        const int first = int(qint64(size.slideCount) * i / size.itemCount);
        const int end = int(qint64(size.slideCount) * (i + 1) / size.itemCount);
        item.slides.reserve(end - first);
        for (int j = first; j < end; ++j) {
            const qsizetype choice = random.bounded(int(templates.size()));
            item.slides.append(ProjectTemplates::slide(line(random), stanza(random), j - first,
                                                       templates.at(choice).id));
            const bool hasImage = qint64(size.imageCount) * j / size.slideCount
                != qint64(size.imageCount) * (j + 1) / size.slideCount;
            if (hasImage)
                item.slides.last().design.background.image = noiseImage(random, size.imageBytes);
        }
        project.serviceItems.append(item);
    }
    return project;
}

} // namespace quenara::bench
