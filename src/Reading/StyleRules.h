#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <algorithm>

namespace quenara {

/// Style rules or the value of an attribute, with every address but that of a part of the drawing
/// ("#...") made the name of one that the drawing does not have. Nothing is left of what may hide
/// one behind escapes.
[[nodiscard]] QString withoutAddresses(const QString &text);

/// The style rules of a drawing, and the elements that each of them is compared with.
class StyleRules
{
public:
    /// The rules of one style sheet as they may be written: without addresses and remarks. Empty if
    /// they do not tell by their braces where each of them ends.
    QString add(const QString &rules);

    /// An element in so many as \a depth says, itself included.
    void addElement(int depth)
    {
        ++m_elements;
        m_deepest = std::max(m_deepest, depth);
    }
    /// What one is called, as selectors write it: "#" and its identifier, "." and a class.
    void addNames(QChar sign, const QString &names);

    /// About how many nanoseconds Qt takes to read the rules, to find those of each element and to
    /// apply them, twice.
    double effort() const;

private:
    double sheetEffort(const QString &rules) const;
    double ruleEffort(const QString &selector, const QString &body) const;

    QStringList m_sheets;
    double m_elements = 0;
    double m_namesSize = 0; ///< in characters
    qsizetype m_longestNames = 0; ///< the longest of one attribute
    int m_deepest = 1;
    QHash<QString, int> m_alike; ///< elements by what a selector calls them: ".a", "#b"
};

} // namespace quenara
