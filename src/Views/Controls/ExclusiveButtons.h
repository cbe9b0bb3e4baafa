#pragma once

class QButtonGroup;

namespace quenara {

/// Checks the button of that \a id alone; none if there is no such button, which an exclusive group
/// by itself would not do.
void checkOnly(QButtonGroup &group, int id);

} // namespace quenara
