#include "SlideSearch.h"

#include <QStringList>

#include <algorithm>
#include <tuple>

namespace quenara {

namespace {

/// \a text without what accents and case tell apart. Upper case has one spelling of each letter,
/// and two letters for one that is written so there.
QString folded(const QString &text)
{
    QString letters = text.normalized(QString::NormalizationForm_KD);
    letters.removeIf([](QChar character) { return character.isMark(); });
    return letters.toUpper();
}

QStringList foldedWords(const QString &words)
{
    return folded(words).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

bool isWrittenWithoutSpaces(QChar character)
{
    switch (character.script()) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Thai:
    case QChar::Script_Lao:
    case QChar::Script_Khmer:
    case QChar::Script_Myanmar:
        return true;
    default:
        return false;
    }
}

/// Whether some word of \a text begins with \a word; both are folded.
bool hasWord(const QString &text, const QString &word)
{
    for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1)) {
        if (at == 0 || !text.at(at - 1).isLetterOrNumber() || isWrittenWithoutSpaces(text.at(at)))
            return true;
    }
    return false;
}

QString textOf(const FlattenedSlide &slide)
{
    QStringList texts{slide.serviceItemTitle, slide.slide.title};
    for (const SlideElement &layer : slide.slide.design.elements) {
        if (isText(layer.kind) && layer.text)
            texts.append(layer.text->text);
        if (layer.kind == SlideElementKind::lowerThird && layer.lowerThird)
            texts << layer.lowerThird->title << layer.lowerThird->subtitle;
    }
    return texts.join(QLatin1Char('\n'));
}

} // namespace

SlideSearch::SlideSearch(const QList<FlattenedSlide> &show)
{
    m_entries.reserve(show.size());
    for (const FlattenedSlide &slide : show) {
        m_entries.append({.serviceItemID = slide.serviceItemID,
                          .title = folded(slide.slide.title),
                          .text = folded(textOf(slide))});
    }
}

QList<qsizetype> SlideSearch::find(const QString &words) const
{
    const QStringList wanted = foldedWords(words);
    QList<qsizetype> found;
    for (qsizetype i = 0; i < m_entries.size(); ++i) {
        const QString &text = m_entries.at(i).text;
        if (std::all_of(wanted.cbegin(), wanted.cend(),
                        [&](const QString &word) { return hasWord(text, word); }))
            found.append(i);
    }
    return found;
}

qsizetype SlideSearch::likeliest(const QList<qsizetype> &found, const QString &words,
                                 qsizetype from) const
{
    const QStringList wanted = foldedWords(words);
    const auto isTitled = [&](const Entry &entry) {
        return std::any_of(wanted.cbegin(), wanted.cend(),
                           [&](const QString &word) { return hasWord(entry.title, word); });
    };
    const auto isOfTheSection = [&](const Entry &entry) {
        return from >= 0 && entry.serviceItemID == m_entries.at(from).serviceItemID;
    };
    // What is smaller is likelier.
    const auto rank = [&](qsizetype place) {
        const Entry &entry = m_entries.at(place);
        const qsizetype steps = place >= from ? place - from : place - from + m_entries.size();
        return std::tuple(!isTitled(entry), !isOfTheSection(entry), steps);
    };
    qsizetype best = -1;
    for (const qsizetype place : found) {
        if (best < 0 || rank(place) < rank(best))
            best = place;
    }
    return best;
}

} // namespace quenara
