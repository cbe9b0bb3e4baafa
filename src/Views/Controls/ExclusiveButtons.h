#pragma once

class QButtonGroup;

namespace quenara {

/// Checks the button with \a id and no other. If there is none, no button is checked, though an
/// exclusive group does not allow that by itself.
void checkOnly(QButtonGroup &group, int id);

} // namespace quenara
