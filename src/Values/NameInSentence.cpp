#include "NameInSentence.h"

#include "ShortenedText.h"

#include <QList>

#include <algorithm>

namespace quenara {

namespace {

constexpr qsizetype longestName = 200; ///< characters
constexpr QChar isolate(0x2068); ///< what follows has a direction of its own,
constexpr QChar endOfIsolate(0x2069); ///< up to here

bool turnsWhatFollows(QChar character)
{
    switch (character.direction()) {
    case QChar::DirLRE:
    case QChar::DirLRO:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirPDF:
    case QChar::DirLRI:
    case QChar::DirRLI:
    case QChar::DirFSI:
    case QChar::DirPDI:
        return true;
    default:
        return false;
    }
}

bool isFromRightToLeft(char32_t character)
{
    const QChar::Direction direction = QChar::direction(character);
    return direction == QChar::DirR || direction == QChar::DirAL;
}

} // namespace

QString nameInSentence(const QString &name)
{
    QString shown = shortened(name, longestName);
    shown.removeIf(turnsWhatFollows);
    for (QChar &character : shown) {
        // Line ends among them.
        if (character.category() == QChar::Other_Control || character == QChar::LineSeparator
            || character == QChar::ParagraphSeparator)
            character = u' ';
    }
    const QList<uint> characters = shown.toUcs4();
    const bool isTurned = std::any_of(characters.cbegin(), characters.cend(), isFromRightToLeft);
    return isTurned ? isolate + shown + endOfIsolate : shown;
}

} // namespace quenara
