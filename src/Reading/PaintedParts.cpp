#include "PaintedParts.h"

#include <limits>

namespace quenara {

namespace {

constexpr int deepest = 600; // of elements, and of what leads to one another by names

} // namespace

int PaintedParts::add(const Cost &own)
{
    m_parts.push_back({.own = own});
    return int(m_parts.size()) - 1;
}

void PaintedParts::addTo(int part, const Cost &more)
{
    at(part).own.elements += more.elements;
    at(part).own.characters += more.characters;
}

int PaintedParts::named(const QString &name)
{
    const auto known = m_named.constFind(name);
    return known != m_named.cend() ? *known : *m_named.insert(name, add({}));
}

PaintedParts::Cost PaintedParts::painted(int part, const Cost &most, int depth)
{
    constexpr Cost endless{.elements = std::numeric_limits<double>::infinity()};
    if (at(part).painted)
        return *at(part).painted;
    if (depth > deepest)
        return endless;
    at(part).painted = endless; // while it is counted
    Cost sum = at(part).own;
    for (const int other : at(part).others) {
        const Cost more = painted(other, most, depth + 1);
        sum.elements += more.elements;
        sum.characters += more.characters;
        if (sum.elements > most.elements || sum.characters > most.characters)
            return endless;
    }
    at(part).painted = sum;
    return sum;
}

} // namespace quenara
