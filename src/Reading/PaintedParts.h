#pragma once

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace quenara {

/// What the parts of a drawing have painted, each as often as others lead to it.
class PaintedParts
{
public:
    struct Cost
    {
        double elements = 0;
        double characters = 0;
    };

    /// A part that has only \a own painted; its number.
    int add(const Cost &own);
    void addTo(int part, const Cost &more);
    /// Has \a part paint \a other, too.
    void lead(int part, int other) { at(part).others.push_back(other); }
    /// The part that has all those painted that are called \a name.
    int named(const QString &name);

    /// What is painted for \a part; infinite if it leads to itself, to others too deeply or comes
    /// to more than \a most.
    Cost painted(int part, const Cost &most) { return painted(part, most, 0); }

private:
    struct Part
    {
        Cost own;
        std::vector<int> others = {};
        std::optional<Cost> painted = std::nullopt; ///< once known
    };

    Part &at(int part) { return m_parts.at(std::size_t(part)); }
    Cost painted(int part, const Cost &most, int depth);

    std::vector<Part> m_parts;
    QHash<QString, int> m_named;
};

} // namespace quenara
