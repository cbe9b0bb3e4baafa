#pragma once

#include <QString>

namespace quenara {

/// A fresh identifier: the upper-case canonical text of a random UUID (8-4-4-4-12 hexadecimal
/// digits with hyphens). Nothing parses identifiers.
QString newIdentifier();

} // namespace quenara
