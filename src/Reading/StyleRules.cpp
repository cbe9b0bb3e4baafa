#include "StyleRules.h"

#include <QRegularExpression>

#include <numeric>

namespace quenara {

namespace {

// Nanoseconds.
constexpr double ofACharacterOfRules = 900;
constexpr double ofASelector = 130; ///< compared with an element
constexpr double ofAnApplication = 300; ///< of a rule to an element, and of a character of it:
constexpr double ofAnAppliedCharacter = 40;

/// How many characters of a class take as long to compare as an element does.
constexpr double charactersOfAnElement = 14;

/// One that does not end takes with it all that follows.
QString withoutRemarks(const QString &rules)
{
    QString result;
    qsizetype at = 0;
    for (qsizetype start = 0; (start = rules.indexOf(QLatin1String("/*"), at)) >= 0;) {
        result += QStringView(rules).mid(at, start - at);
        result += u' ';
        const qsizetype end = rules.indexOf(QLatin1String("*/"), start + 2);
        at = end < 0 ? rules.size() : end + 2;
    }
    result += QStringView(rules).mid(at);
    return result;
}

/// Whether a brace may be a part of something quoted.
bool hidesBraces(const QString &rules)
{
    QChar quote;
    for (const QChar character : rules) {
        if (quote.isNull() && (character == u'"' || character == u'\'')) {
            quote = character;
        } else if (character == quote) {
            quote = QChar();
        } else if (!quote.isNull() && QStringView(u"{}\r\n\f").contains(character)) {
            return true;
        }
    }
    return !quote.isNull();
}

} // namespace

QString withoutAddresses(const QString &text)
{
    static const QRegularExpression import(QStringLiteral("@import[^;]*;?"),
                                           QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression address(
        QStringLiteral(R"(((?:url|src)\(\s*+["']?+\s*+)(?:data:[^"')]*+|(?!#)))"),
        QRegularExpression::CaseInsensitiveOption);
    if (!text.contains(u'(') && !text.contains(u'@'))
        return text;
    if (text.contains(u'\\'))
        return {};
    return QString(text).remove(import).replace(address, QStringLiteral("\\1#"));
}

QString StyleRules::add(const QString &rules)
{
    QString added = withoutAddresses(withoutRemarks(rules));
    if (added.contains(QLatin1String("/*")) || added.contains(u'\\') || hidesBraces(added))
        added.clear();
    m_sheets.append(added);
    return added;
}

void StyleRules::addNames(QChar sign, const QString &names)
{
    const QString each = names.simplified().toLower();
    for (const QStringView name : each.tokenize(u' '))
        ++m_alike[sign + name.toString()];
    m_namesSize += double(names.size());
    m_longestNames = std::max(m_longestNames, names.size());
}

double StyleRules::effort() const
{
    return std::accumulate(
        m_sheets.cbegin(), m_sheets.cend(), 0.0,
        [this](double sum, const QString &rules) { return sum + sheetEffort(rules); });
}

double StyleRules::sheetEffort(const QString &rules) const
{
    double selectors = 1;
    double sum = ofACharacterOfRules * double(rules.size());
    qsizetype start = 0;
    for (qsizetype open = rules.indexOf(u'{'); open >= 0; open = rules.indexOf(u'{', start)) {
        const qsizetype found = rules.indexOf(u'}', open);
        const qsizetype close = found < 0 ? rules.size() : found;
        const QString body = rules.mid(open + 1, close - open - 1);
        const QStringList alternatives = rules.mid(start, open - start).split(u',');
        for (const QString &selector : alternatives)
            sum += ruleEffort(selector.trimmed().toLower(), body);
        selectors += double(alternatives.size());
        start = close + 1;
    }
    return sum + ofASelector * selectors * (m_elements + m_namesSize / charactersOfAnElement);
}

/// Beyond one comparison with each element.
double StyleRules::ruleEffort(const QString &selector, const QString &body) const
{
    static const QRegularExpression name(QStringLiteral(R"(\A[.#]?[a-z_][a-z0-9_-]*\z)"));
    const double applied = ofAnApplication + ofAnAppliedCharacter * double(body.size());
    if (!body.contains(u'{') && name.match(selector).hasMatch()) {
        const bool isOfFew = selector.startsWith(u'.') || selector.startsWith(u'#');
        return applied * (isOfFew ? m_alike.value(selector) : m_elements);
    }
    // Some look at all that an element is in or comes after, and at what each of that comes after.
    const double around = m_deepest + double(selector.size() + body.size())
        + m_elements * double(selector.count(u'+'))
        + m_elements * m_elements * double(selector.count(u'~'));
    const double ofOne = 1 + double(m_longestNames) / charactersOfAnElement;
    return m_elements * (applied + ofASelector / 2 * around * ofOne);
}

} // namespace quenara
